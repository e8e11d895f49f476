#pragma once

#include <QString>

namespace ledger {

/// Says which process may write. The kernel holds the lock and lets go of it however the process ends: a lock
/// that stands in a file's contents would outlive one killed while it was writing them.
class OwnerLock {
public:
    enum class Answer { Taken, HeldByAnother, NotPermitted, Failed };

    explicit OwnerLock(const QString& path) : mPath(path) {}
    ~OwnerLock();
    OwnerLock(const OwnerLock&) = delete;
    OwnerLock& operator=(const OwnerLock&) = delete;

    /// Does not wait.
    Answer take();
    /// Of the process that holds it; known after HeldByAnother, as far as that process has written it down.
    qint64 ownerProcess() const { return mOwnerProcess; }
    QString ownerProgram() const { return mOwnerProgram; }

private:
    void readOwner();
    void writeOwner() const;

    const QString mPath;
    int mDescriptor = -1;
    qint64 mOwnerProcess = 0;
    QString mOwnerProgram;
};

} // namespace ledger
