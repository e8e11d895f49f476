#include "embedded_host/reference_data/ReferenceFile.h"

#include "embedded_host/reference_data/ReferenceFaults.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>

namespace {

Outcome<QByteArray> failed(const QString& path, const QString& what)
{
    return {{}, reference_faults::at(path, 1, what)};
}

bool isRegular(int descriptor)
{
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

Outcome<QByteArray> readReferenceFile(const QString& path, qint64 most)
{
    if (!QFile::exists(path)) {
        return failed(path, reference_faults::missingFile());
    }
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        return failed(path, reference_faults::unreadableFile(qt_error_string()));
    }
    QFile file;
    file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
    if (!isRegular(descriptor)) {
        return failed(path, reference_faults::unreadableFile(reference_faults::notRegular()));
    }
    if (file.size() > most) {
        return failed(path, reference_faults::fileTooLarge(most));
    }
    const QByteArray bytes = file.read(most + 1); // a file may grow, and those of the system say 0
    if (file.error() != QFileDevice::NoError) {
        return failed(path, reference_faults::unreadableFile(file.errorString()));
    }
    return bytes.size() > most ? failed(path, reference_faults::fileTooLarge(most))
                               : Outcome<QByteArray>{bytes, {}};
}
