#pragma once

#include "ledger/Ledger.h"

#include <QElapsedTimer>
#include <QIODevice>
#include <QSet>

#include <functional>
#include <optional>

/// What becomes of a batch, told as text until all of it is over.
namespace demo {

class Story {
public:
    Story(ledger::Ledger& ledger, QIODevice& out);

    void say(const QString& line);
    /// True where all of the batch was filled; false where it was not after some time, or something of it
    /// ended otherwise, or the reader asked to end.
    bool follow(qint64 batch, const std::function<bool()>& isAskedToEnd);

private:
    void tell(const QString& text);
    void tellProgress(const QList<ledger::Instance>& instances);
    void tellInstances(const QList<ledger::Instance>& instances);
    bool tellNews(const QList<ledger::Instance>& instances);

    ledger::Ledger& mLedger;
    QIODevice& mOut;
    QElapsedTimer mClock;
    std::optional<qint64> mToldAt; ///< when progress was told last, milliseconds
    QSet<int> mOver;               ///< rows of which it was told
};

} // namespace demo
