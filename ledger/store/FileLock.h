#pragma once

#include <QString>

#include <optional>

namespace ledger {

/// A lock beside the ledger's file. The kernel holds it and lets go of it however the process ends. The lock
/// file is its owner's alone, is no symlink, and stays when it is let go: removing it could take it from the
/// next one.
class FileLock {
public:
    enum class Kind { Shared, Exclusive };
    enum class Answer { Taken, HeldByAnother, NotPermitted, Failed };

    explicit FileLock(const QString& path) : mPath(path) {}
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Waits for another process, but no longer than that.
    Answer take(Kind kind, int waitMilliseconds);
    /// Says in the file who has it.
    void sign(const QString& holder) const;
    /// What the holder wrote; empty where it has not yet.
    QString holder() const;
    /// Whether somebody has it exclusively; nothing where whoever asks may not know. To ask, it is shared for
    /// a moment: whoever takes it waits that long.
    std::optional<bool> isHeldExclusively() const;

private:
    const QString mPath;
    int mDescriptor = -1;
};

} // namespace ledger
