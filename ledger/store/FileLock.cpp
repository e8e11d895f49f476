#include "ledger/store/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <cerrno>

namespace ledger {

namespace {

constexpr unsigned long PauseMs = 20;
constexpr int LongestName = 400;

} // namespace

FileLock::~FileLock()
{
    if (mDescriptor >= 0) {
        close(mDescriptor);
    }
}

FileLock::Answer FileLock::take(Kind kind, int waitMilliseconds)
{
    if (mDescriptor < 0) {
        mDescriptor =
            open(QFile::encodeName(mPath).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    }
    if (mDescriptor < 0) {
        return errno == EACCES || errno == EROFS || errno == EPERM ? Answer::NotPermitted : Answer::Failed;
    }
    const int operation = (kind == Kind::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    QElapsedTimer watch;
    watch.start();
    while (flock(mDescriptor, operation) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return Answer::Failed;
        }
        if (watch.elapsed() >= waitMilliseconds) {
            return Answer::HeldByAnother;
        }
        QThread::msleep(PauseMs);
    }
    return Answer::Taken;
}

void FileLock::sign(const QString& holder) const
{
    QFile file;
    if (file.open(mDescriptor, QIODevice::WriteOnly | QIODevice::Unbuffered, QFile::DontCloseHandle)) {
        file.resize(0);
        file.write(holder.toUtf8().left(LongestName));
    }
}

QString FileLock::holder() const
{
    QFile file(mPath);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.read(LongestName)) : QString();
}

std::optional<bool> FileLock::isHeldExclusively() const
{
    const int asked = open(QFile::encodeName(mPath).constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (asked < 0) {
        return errno == ENOENT ? std::optional<bool>(false) : std::nullopt;
    }
    const bool isShared = flock(asked, LOCK_SH | LOCK_NB) == 0;
    const bool isKnown = isShared || errno == EWOULDBLOCK;
    close(asked); // and with it the lock
    return isKnown ? std::optional<bool>(!isShared) : std::nullopt;
}

} // namespace ledger
