#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>

class QWidget;

/// The SHA-256 of the imported file, taken in the background from the moment of its import, so that it is the
/// file that was read and not what became of it since.
class FileDigest : public QObject {
    Q_OBJECT

public:
    explicit FileDigest(QObject* parent = nullptr);

    /// Forgets the file before.
    void start(const QString& path);
    /// Hexadecimal digits; empty for a file that cannot be read. Shows progress where it takes long; nothing
    /// and `cancelled` set where the user did not want to wait.
    QString wait(QWidget* parent, bool& cancelled) const;

signals:
    /// Once for each file, unless another was started before it was done.
    void taken(const QString& digest);

private:
    struct Work;
    void announce();

    QTimer mPoll;
    std::shared_ptr<Work> mWork;
};
