#include "ledger/store/Sync.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>

namespace ledger {

namespace {

bool sync(const QString& path, int flags)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | flags);
    const bool isSynced = descriptor >= 0 && fsync(descriptor) == 0;
    if (descriptor >= 0) {
        close(descriptor);
    }
    return isSynced;
}

} // namespace

bool syncFile(const QString& path)
{
    return sync(path, 0);
}

bool syncFolder(const QString& path)
{
    return sync(path, O_DIRECTORY);
}

} // namespace ledger
