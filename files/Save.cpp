#include "files/Save.h"

#include "words/Words.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <utility>

namespace files {
namespace {

constexpr int NoFile = -1;
constexpr mode_t AnyMode = 07777;
constexpr mode_t NewFileMode = 0666; // what the user's mask leaves of it

QString reasonOf(int error)
{
    switch (error) {
    case ENOSPC:
        return Words::tr("磁盘空间不足");
    case EDQUOT:
        return Words::tr("磁盘配额已用完");
    case EIO:
        return Words::tr("磁盘读写出错");
    case EROFS:
        return Words::tr("磁盘是只读的");
    case EACCES:
    case EPERM:
        return Words::tr("没有写入权限");
    case ENOENT:
    case ENOTDIR:
        return Words::tr("文件夹不存在");
    case ENAMETOOLONG:
        return Words::tr("文件名过长");
    case EFBIG:
        return Words::tr("文件过大");
    default:
        return Words::tr("系统错误%1（%2）").arg(error).arg(qt_error_string(error));
    }
}

/// By `result` of a system call, as the system means it.
Outcome<void> outcomeOf(int result)
{
    return {result == 0 ? QString() : reasonOf(errno)};
}

/// The file that a chain of links leads to, whether it exists or not.
QString behindLinks(const QString& path)
{
    constexpr int LongestChain = 40;
    QFileInfo info(path);
    for (int link = 0; link < LongestChain && info.isSymLink(); ++link) {
        info.setFile(info.symLinkTarget());
    }
    return info.absoluteFilePath();
}

/// What cannot be replaced by a file, or is kept from it by its owner.
Outcome<void> mayReplace(const QByteArray& path)
{
    struct stat old;
    if (::stat(path.constData(), &old) != 0) {
        return {errno == ENOENT ? QString() : reasonOf(errno)};
    }
    if (S_ISDIR(old.st_mode)) {
        return {Words::tr("该名称是一个文件夹")};
    }
    return S_ISREG(old.st_mode) ? outcomeOf(::access(path.constData(), W_OK))
                                : Outcome<void>{Words::tr("不是普通文件")};
}

/// The new file beside the old one. It goes away again unless it took the old one's place.
class Draft {
public:
    explicit Draft(const QByteArray& target)
        : mTarget(target), mFolder(target.left(target.lastIndexOf('/') + 1)),
          mPath(mFolder + ".saving-" + QByteArray::number(QRandomGenerator::system()->generate64(), 16))
    {
    }
    ~Draft();
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    Outcome<void> create();
    Outcome<void> write(const QByteArray& bytes) const;
    Outcome<void> finish();
    Outcome<void> takePlace();

private:
    QByteArray mTarget;
    QByteArray mFolder;
    QByteArray mPath;
    int mFile = NoFile;
    bool mExists = false;
};

Draft::~Draft()
{
    if (mFile != NoFile) {
        ::close(mFile);
    }
    if (mExists) {
        ::unlink(mPath.constData());
    }
}

Outcome<void> Draft::create()
{
    struct stat old;
    const bool replaces = ::stat(mTarget.constData(), &old) == 0;
    const mode_t mode = replaces ? old.st_mode & AnyMode : NewFileMode;
    mFile = ::open(mPath.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    mExists = mFile != NoFile;
    if (!mExists) {
        return {reasonOf(errno)};
    }
    return replaces ? outcomeOf(::fchmod(mFile, mode)) : Outcome<void>();
}

Outcome<void> Draft::write(const QByteArray& bytes) const
{
    for (int written = 0; written < bytes.size();) {
        const ssize_t taken =
            ::write(mFile, bytes.constData() + written, static_cast<size_t>(bytes.size() - written));
        if (taken < 0 && errno != EINTR) {
            return {reasonOf(errno)};
        }
        if (taken == 0) {
            return {reasonOf(ENOSPC)}; // a device that takes nothing, again and again
        }
        written += static_cast<int>(qMax<ssize_t>(taken, 0));
    }
    return {};
}

Outcome<void> Draft::finish()
{
    const Outcome<void> synced = outcomeOf(::fsync(mFile));
    const Outcome<void> closed = outcomeOf(::close(std::exchange(mFile, NoFile)));
    return synced.ok() ? closed : synced;
}

/// A name lives in its folder, which is carried to the disk as well.
Outcome<void> syncFolder(const QByteArray& path)
{
    const int folder = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder == NoFile) {
        return {}; // a folder that may be written to and not be read
    }
    const bool synced = ::fsync(folder) == 0 || errno == EINVAL; // some file systems know no such thing
    const QString reason = synced ? QString() : reasonOf(errno);
    ::close(folder);
    return {synced ? QString() : Words::tr("已写入，但磁盘没有确认：%1").arg(reason)};
}

QByteArray folderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/') + 1);
}

Outcome<void> Draft::takePlace()
{
    const Outcome<void> renamed = outcomeOf(::rename(mPath.constData(), mTarget.constData()));
    if (!renamed.ok()) {
        return renamed;
    }
    mExists = false;
    return syncFolder(mFolder);
}

} // namespace

Outcome<void> save(const QString& path, const QByteArray& bytes)
{
    const QByteArray target = QFile::encodeName(behindLinks(path));
    Outcome<void> done = mayReplace(target);
    Draft draft(target);
    if (done.ok()) {
        done = draft.create();
    }
    if (done.ok()) {
        done = draft.write(bytes);
    }
    if (done.ok()) {
        done = draft.finish();
    }
    return done.ok() ? draft.takePlace() : done;
}

Outcome<void> move(const QString& from, const QString& to)
{
    const QByteArray source = QFile::encodeName(QFileInfo(from).absoluteFilePath());
    const QByteArray target = QFile::encodeName(QFileInfo(to).absoluteFilePath());
    const Outcome<void> renamed = outcomeOf(::rename(source.constData(), target.constData()));
    const Outcome<void> arrived = renamed.ok() ? syncFolder(folderOf(target)) : renamed;
    return arrived.ok() ? syncFolder(folderOf(source)) : arrived;
}

QString cannotWrite(const QString& path, const QString& reason)
{
    return Words::tr("无法写入文件“%1”：%2").arg(QDir::toNativeSeparators(path), reason);
}

} // namespace files
