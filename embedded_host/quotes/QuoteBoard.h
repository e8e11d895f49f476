#pragma once

#include "embedded_host/quotes/PriceWalk.h"
#include "embedded_host/reference_data/ReferenceData.h"

#include <QHash>
#include <QMap>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <random>
#include <thread>

/// The latest quote of every subscribed security: field name -> text, from the quotes of the reference data.
/// A security without a quote row never has a snapshot.
///
/// Still quotes are there when subscribe() returns, and never change. Moving quotes come from a thread of
/// their own: the first ones right after the subscription, whatever the caller's thread does, and then LastPx
/// moves by a few price ticks at a time around its start, within MinPx and MaxPx.
class QuoteBoard : public QObject {
    Q_OBJECT

public:
    struct Options {
        bool moving = false;
        quint32 seed = 0;                        ///< of the simulated moves; 0: another one every time
        std::chrono::milliseconds interval{500}; ///< between two moves
    };

    QuoteBoard(const ReferenceData& referenceData, const Options& options);
    /// Ends the quote thread and waits for it, no longer than one round of moves.
    ~QuoteBoard() override;

    /// Empty symbols, and those that are subscribed already, change nothing.
    void subscribe(const QStringList& symbols);
    /// Forgets the symbols and their snapshots.
    void unsubscribe(const QStringList& symbols);
    /// In the order of their subscription.
    QStringList subscribedSymbols() const;

    /// Empty while nothing has arrived. May be called from any thread.
    QMap<QString, QVariant> snapshot(const QString& symbol) const;

signals:
    /// The snapshots of these symbols are new. Moving quotes emit it on the quote thread, so that a receiver
    /// of another thread gets it through its event loop.
    void quotesChanged(const QStringList& symbols);

private:
    void run();
    QStringList deliverFirst();
    QStringList moveAll();
    PriceWalk walkOf(const Quote& quote) const;

    const ReferenceData mReferenceData;
    const Options mOptions;

    mutable std::mutex mMutex; // guards all that follows, but for the thread itself
    std::condition_variable mWake;
    bool mStopping = false;
    QStringList mSubscribed;
    QSet<QString> mSubscribedSet;
    QStringList mAwaited; // subscribed, no snapshot yet
    QHash<QString, QMap<QString, QVariant>> mSnapshots;
    QHash<QString, PriceWalk> mWalks;
    std::mt19937 mRandom;
    std::thread mThread;
};
