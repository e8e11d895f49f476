#pragma once

#include "dialog/AlgoBatchImportParamSetting.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

class QuoteBoard;

/// Keeps the expected amounts of the dialog near the moving quotes. Pricing blocks the GUI thread for 300 ms,
/// so it is done at most once an interval, only while the dialog can be seen and the user's hands are still;
/// F5 prices at once.
class AmountRefresher : public QObject {
    Q_OBJECT

public:
    struct Pace {
        int intervalMs = 5000; ///< between two prices of its own accord
        int stillMs = 1500;    ///< without a key or a click before one
    };

    explicit AmountRefresher(QuoteBoard& quotes, QObject* parent = nullptr);

    /// Whose amounts; null: nobody's.
    void setDialog(AlgoBatchImportParamSetting* dialog);
    void setPace(const Pace& pace);

public slots:
    void refreshNow();

signals:
    void refreshed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void noteQuotes();
    void refreshWhenUseful();
    bool isUseful() const;

    QPointer<AlgoBatchImportParamSetting> mDialog;
    Pace mPace;
    QTimer mTimer;
    QElapsedTimer mSinceRefresh;
    QElapsedTimer mSinceTouch;
    bool mQuotesMoved = false;
};
