#include "desk/window/FileWatch.h"

#include <QFileInfo>

namespace {

constexpr int SettleMs = 300;

} // namespace

FileWatch::FileWatch(QObject* parent) : QObject(parent)
{
    mSettling.setSingleShot(true);
    mSettling.setInterval(SettleMs);
    connect(&mWatcher, &QFileSystemWatcher::fileChanged, &mSettling, QOverload<>::of(&QTimer::start));
    connect(&mWatcher, &QFileSystemWatcher::directoryChanged, &mSettling, QOverload<>::of(&QTimer::start));
    connect(&mSettling, &QTimer::timeout, this, &FileWatch::compare);
}

void FileWatch::watch(const QString& path)
{
    const QStringList watched = mWatcher.files() + mWatcher.directories();
    if (!watched.isEmpty()) {
        mWatcher.removePaths(watched);
    }
    mSettling.stop();
    mPath = path;
    mKnown = look();
    if (QFileInfo(path).isFile()) {
        // The folder too: of a file that is replaced only the folder tells.
        mWatcher.addPaths({path, QFileInfo(path).absolutePath()});
    }
}

FileWatch::Look FileWatch::look() const
{
    const QFileInfo file(mPath);
    return file.isFile() ? Look{file.size(), file.lastModified()} : Look();
}

void FileWatch::compare()
{
    const Look now = look();
    if (now == mKnown || now.size < 0) { // gone, or between two names
        return;
    }
    mKnown = now;
    mWatcher.addPath(mPath);
    emit changed(mPath);
}
