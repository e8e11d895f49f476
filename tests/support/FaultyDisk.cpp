#include "tests/support/FaultyDisk.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

// No Qt type: these are asked inside every call of the system.
std::string folder;
faulty_disk::Kind kind = faulty_disk::Kind::NoSpace;
int failing = 0; ///< 0: none
bool goesOn = false;
int counted = 0;

enum class Call { Make, Write, Sync, Place };

bool isBelow(const char* path)
{
    return failing > 0 && std::string(path).compare(0, folder.size(), folder) == 0;
}

bool isBelow(int descriptor)
{
    if (failing == 0) {
        return false;
    }
    char link[64];
    char path[PATH_MAX + 1];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    const ssize_t length = readlink(link, path, PATH_MAX);
    path[length > 0 ? length : 0] = '\0';
    return isBelow(path);
}

bool isMeant(Call call)
{
    using faulty_disk::Kind;
    switch (kind) {
    case Kind::Sync:
        return call == Call::Sync;
    case Kind::ShortWrite:
        return call == Call::Write;
    default:
        return call != Call::Sync;
    }
}

/// Whether this call is the one to fail; errno is set.
bool fails(Call call)
{
    if (!isMeant(call)) {
        return false;
    }
    ++counted;
    errno = kind == faulty_disk::Kind::NoSpace ? ENOSPC : EIO;
    return counted == failing || (goesOn && counted > failing);
}

template <typename Function> Function* real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Half of it, where that is the fault; 0: none.
size_t halfOf(size_t count)
{
    return kind == faulty_disk::Kind::ShortWrite ? count / 2 : 0;
}

/// Bytes that a write may take; below 0: none, it fails.
ssize_t allowed(int descriptor, size_t count)
{
    if (!isBelow(descriptor) || !fails(Call::Write)) {
        return static_cast<ssize_t>(count);
    }
    return halfOf(count) > 0 ? static_cast<ssize_t>(halfOf(count)) : -1;
}

bool writes(int descriptor)
{
    return (fcntl(descriptor, F_GETFL) & O_ACCMODE) != O_RDONLY;
}

int modeOf(int flags, va_list arguments)
{
    return (flags & O_CREAT) != 0 ? va_arg(arguments, int) : 0;
}

int opened(const char* name, const char* path, int flags, int mode)
{
    if ((flags & O_CREAT) != 0 && isBelow(path) && fails(Call::Make)) {
        return -1;
    }
    return real<int(const char*, int, ...)>(name)(path, flags, mode);
}

FILE* openedStream(const char* name, const char* path, const char* mode)
{
    const bool isMade = std::strpbrk(mode, "wa+") != nullptr;
    return isMade && isBelow(path) && fails(Call::Make)
               ? nullptr
               : real<FILE*(const char*, const char*)>(name)(path, mode);
}

} // namespace

extern "C" {

FILE* fopen(const char* path, const char* mode)
{
    return openedStream("fopen", path, mode);
}

FILE* fopen64(const char* path, const char* mode)
{
    return openedStream("fopen64", path, mode);
}

size_t fwrite(const void* bytes, size_t size, size_t count, FILE* stream)
{
    const bool isFailing = isBelow(fileno(stream)) && fails(Call::Write);
    return real<size_t(const void*, size_t, size_t, FILE*)>("fwrite")(
        bytes, size, isFailing ? halfOf(count) : count, stream);
}

/// What was buffered is lost with a close that fails.
int fclose(FILE* stream)
{
    const bool isFailing = isBelow(fileno(stream)) && writes(fileno(stream)) && fails(Call::Place);
    const int closed = real<int(FILE*)>("fclose")(stream);
    return isFailing ? EOF : closed;
}

/// A close that fails closes all the same.
int close(int descriptor)
{
    const bool isFailing = isBelow(descriptor) && writes(descriptor) && fails(Call::Place);
    const int error = errno;
    const int closed = real<int(int)>("close")(descriptor);
    errno = isFailing ? error : errno;
    return isFailing ? -1 : closed;
}

int fchmod(int descriptor, mode_t mode) noexcept
{
    return isBelow(descriptor) && fails(Call::Place) ? -1
                                                     : real<int(int, mode_t)>("fchmod")(descriptor, mode);
}

int rename(const char* from, const char* to) noexcept
{
    return isBelow(from) && fails(Call::Place) ? -1 : real<int(const char*, const char*)>("rename")(from, to);
}

int link(const char* from, const char* to) noexcept
{
    return isBelow(to) && fails(Call::Place) ? -1 : real<int(const char*, const char*)>("link")(from, to);
}

ssize_t write(int descriptor, const void* bytes, size_t count)
{
    const ssize_t most = allowed(descriptor, count);
    return most < 0 ? -1
                    : real<ssize_t(int, const void*, size_t)>("write")(descriptor, bytes,
                                                                       static_cast<size_t>(most));
}

ssize_t pwrite(int descriptor, const void* bytes, size_t count, off_t at)
{
    const ssize_t most = allowed(descriptor, count);
    return most < 0 ? -1
                    : real<ssize_t(int, const void*, size_t, off_t)>("pwrite")(descriptor, bytes,
                                                                               static_cast<size_t>(most), at);
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t count, off64_t at)
{
    const ssize_t most = allowed(descriptor, count);
    return most < 0 ? -1
                    : real<ssize_t(int, const void*, size_t, off64_t)>("pwrite64")(
                          descriptor, bytes, static_cast<size_t>(most), at);
}

int ftruncate64(int descriptor, off64_t size) noexcept
{
    const bool isFailing = isBelow(descriptor) && fails(Call::Write);
    return isFailing ? -1 : real<int(int, off64_t)>("ftruncate64")(descriptor, size);
}

int fsync(int descriptor)
{
    return isBelow(descriptor) && fails(Call::Sync) ? -1 : real<int(int)>("fsync")(descriptor);
}

int fdatasync(int descriptor)
{
    return isBelow(descriptor) && fails(Call::Sync) ? -1 : real<int(int)>("fdatasync")(descriptor);
}

int mkdir(const char* path, mode_t mode) noexcept
{
    return isBelow(path) && fails(Call::Make) ? -1 : real<int(const char*, mode_t)>("mkdir")(path, mode);
}

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = modeOf(flags, arguments);
    va_end(arguments);
    return opened("open", path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = modeOf(flags, arguments);
    va_end(arguments);
    return opened("open64", path, flags, mode);
}

} // extern "C"

namespace faulty_disk {

void arm(const QString& below, Kind which, int number, bool andAllAfter)
{
    folder = QFile::encodeName(below).toStdString();
    kind = which;
    goesOn = andAllAfter;
    counted = 0;
    failing = number;
}

bool disarm()
{
    const bool wasReached = counted >= failing;
    failing = 0;
    return wasReached;
}

} // namespace faulty_disk
