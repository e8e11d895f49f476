#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <QFile>
#include <QString>

/// A file or folder with these permissions alone; the superuser, whom none stop, gives up his rights
/// meanwhile.
class RestrictedPath {
public:
    static constexpr QFile::Permissions ReadAndEnter =
        QFile::Permissions(QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                           QFile::ReadOther | QFile::ExeOther);

    explicit RestrictedPath(const QString& path, QFile::Permissions permissions = ReadAndEnter) : mPath(path)
    {
        QFile::setPermissions(path, permissions);
        constexpr uid_t Nobody = 65534;
        mDropped = geteuid() == 0 && setresuid(Nobody, Nobody, 0) == 0;
    }

    ~RestrictedPath()
    {
        if (mDropped) {
            EXPECT_EQ(setresuid(0, 0, 0), 0);
        }
        QFile::setPermissions(mPath, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    RestrictedPath(const RestrictedPath&) = delete;
    RestrictedPath& operator=(const RestrictedPath&) = delete;

private:
    const QString mPath;
    bool mDropped = false;
};
