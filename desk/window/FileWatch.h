#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

/// Tells once when the imported file is another one than it was, however a program writes it: in place, or
/// beside it and renamed.
class FileWatch : public QObject {
    Q_OBJECT

public:
    explicit FileWatch(QObject* parent = nullptr);

    /// The file as it is now; an empty path: none.
    void watch(const QString& path);

signals:
    void changed(const QString& path);

private:
    struct Look {
        qint64 size = -1;
        QDateTime modified;
        bool operator==(const Look& other) const { return size == other.size && modified == other.modified; }
    };

    Look look() const;
    void compare();

    QFileSystemWatcher mWatcher;
    QTimer mSettling; ///< a program writes a file in several steps
    QString mPath;
    Look mKnown;
};
