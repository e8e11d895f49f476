#include "ledger/store/OwnerLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

namespace ledger {

OwnerLock::~OwnerLock()
{
    if (mDescriptor >= 0) {
        close(mDescriptor); // the file stays: removing it could take it from the next owner
    }
}

OwnerLock::Answer OwnerLock::take()
{
    mDescriptor = open(QFile::encodeName(mPath).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (mDescriptor < 0) {
        return errno == EACCES || errno == EROFS || errno == EPERM ? Answer::NotPermitted : Answer::Failed;
    }
    if (flock(mDescriptor, LOCK_EX | LOCK_NB) == 0) {
        writeOwner();
        return Answer::Taken;
    }
    const bool isHeld = errno == EWOULDBLOCK;
    readOwner();
    return isHeld ? Answer::HeldByAnother : Answer::Failed;
}

/// Process and program, for the sentence that another one gets to read.
void OwnerLock::writeOwner() const
{
    QFile file;
    if (file.open(mDescriptor, QIODevice::WriteOnly | QIODevice::Unbuffered, QFile::DontCloseHandle)) {
        file.resize(0);
        file.write(QByteArray::number(QCoreApplication::applicationPid()) + '\n' +
                   QFileInfo(QCoreApplication::applicationFilePath()).fileName().toUtf8() + '\n');
    }
}

void OwnerLock::readOwner()
{
    QFile file(mPath);
    if (file.open(QIODevice::ReadOnly)) {
        mOwnerProcess = file.readLine().trimmed().toLongLong();
        mOwnerProgram = QString::fromUtf8(file.readLine().trimmed());
    }
}

} // namespace ledger
