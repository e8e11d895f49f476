#pragma once

#include "ledger/store/FileLock.h"
#include "table/Outcome.h"

#include <QFileInfoList>
#include <QString>

#include <functional>
#include <memory>

/// The folder that a desk and a counterparty without FIX share.
namespace gateway {

/// `out` holds what goes to the counterparty, which takes it away; `in` what it answers. The others are the
/// desk's: `ready` what is about to go out, `read` answers that were counted, `refused` those that nobody
/// can read.
///
/// A file stands in `out` whole from its first moment: it is written in `ready`, carried to the disk and
/// renamed. An order that is found in `ready` after a crash never went out.
class HandOffFolder {
public:
    /// `onStep` hears of every step that a crash may follow, by its name; may be null.
    HandOffFolder(const QString& path, std::function<void(const char*)> onStep);

    /// Makes the folders where they lack, below one that must exist, and locks them against a second program.
    Outcome<void> open();
    bool isReachable() const;

    /// Nothing to do where the file lies in `out` still.
    Outcome<void> placeOrder(const QString& name, const QByteArray& bytes) const;
    /// A cancel or a question.
    Outcome<void> place(const QString& name, const QByteArray& bytes) const;
    /// Written, and certainly not out.
    bool isHeldBack(const QString& orderName) const;

    /// Csv files in `in`, by name, at most so many: no links, no other things.
    QFileInfoList answers(int most) const;
    /// At most so many bytes; the error says why not.
    Outcome<QByteArray> read(const QString& name, qint64 most) const;
    /// Out of `in`, under a name that is free there.
    Outcome<void> putIntoRead(const QString& name) const;
    Outcome<void> putIntoRefused(const QString& name) const;

    void step(const char* name) const;

private:
    QString pathOf(const QString& folder, const QString& name = QString()) const;
    void dropLeftovers() const;
    Outcome<void> putAway(const QString& name, const QString& folder) const;

    QString mPath;
    std::function<void(const char*)> mOnStep;
    std::unique_ptr<ledger::FileLock> mLock;
};

} // namespace gateway
