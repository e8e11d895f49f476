// Preloaded into a program, lets one of its calls on a folder's files fail, as a bad disk does.
//
//   FAULT_FOLDER  only files in or below this folder count
//   FAULT_AT      which call fails, from 1, of those that open for writing, write, carry to the disk, close
//   or rename FAULT_ERROR   the error's number; 0: a write takes half of its bytes, and no other call fails
//   FAULT_MARK    a file that is made when the fault came about

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

std::string setting(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

template <typename Call> Call next(const char* name)
{
    return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

bool isWatched(const std::string& path)
{
    static const std::string folder = setting("FAULT_FOLDER");
    return !folder.empty() && path.compare(0, folder.size(), folder) == 0;
}

bool isWatched(int file)
{
    std::array<char, PATH_MAX> path;
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = readlink(link.c_str(), path.data(), path.size());
    return length > 0 && isWatched(std::string(path.data(), static_cast<size_t>(length)));
}

void leaveMark()
{
    const int mark = next<int (*)(const char*, int, ...)>("open")(setting("FAULT_MARK").c_str(),
                                                                  O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    next<int (*)(int)>("close")(mark);
}

/// Whether this is the call that fails; the error of those that can be cut short as well is 0.
bool isFault()
{
    static const int at = std::atoi(setting("FAULT_AT").c_str());
    static std::atomic<int> calls{0};
    if (++calls != at) {
        return false;
    }
    leaveMark();
    errno = std::atoi(setting("FAULT_ERROR").c_str());
    return errno != 0;
}

int openAsked(const char* name, const char* path, int flags, mode_t mode)
{
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    if (writes && isWatched(std::string(path)) && isFault()) {
        return -1;
    }
    return next<int (*)(const char*, int, ...)>(name)(path, flags, mode);
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return openAsked("open", path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return openAsked("open64", path, flags, mode);
}

ssize_t write(int file, const void* bytes, size_t count)
{
    const auto real = next<ssize_t (*)(int, const void*, size_t)>("write");
    if (!isWatched(file)) {
        return real(file, bytes, count);
    }
    static const bool cutsShort = setting("FAULT_ERROR") == "0";
    static const int at = std::atoi(setting("FAULT_AT").c_str());
    static std::atomic<int> writes{0};
    if (cutsShort) {
        const bool isCut = ++writes == at && count > 1;
        if (isCut) {
            leaveMark();
        }
        return real(file, bytes, isCut ? count / 2 : count);
    }
    return isFault() ? -1 : real(file, bytes, count);
}

int fsync(int file)
{
    return isWatched(file) && isFault() ? -1 : next<int (*)(int)>("fsync")(file);
}

int fchmod(int file, mode_t mode)
{
    return isWatched(file) && isFault() ? -1 : next<int (*)(int, mode_t)>("fchmod")(file, mode);
}

/// A close that fails closes all the same.
int close(int file)
{
    const bool fails = isWatched(file) && (fcntl(file, F_GETFL) & O_ACCMODE) != O_RDONLY && isFault();
    const int error = errno;
    const int closed = next<int (*)(int)>("close")(file);
    errno = fails ? error : errno;
    return fails ? -1 : closed;
}

int rename(const char* from, const char* to)
{
    return isWatched(std::string(from)) && isFault()
               ? -1
               : next<int (*)(const char*, const char*)>("rename")(from, to);
}
}
