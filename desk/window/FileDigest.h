#pragma once

#include <QString>

#include <memory>

class QWidget;

/// The SHA-256 of the imported file, taken in the background from the moment of its import, so that it is the
/// file that was read and not what became of it since.
class FileDigest {
public:
    /// Forgets the file before.
    void start(const QString& path);
    /// Hexadecimal digits; empty for a file that cannot be read. Shows progress where it takes long; nothing
    /// and `cancelled` set where the user did not want to wait.
    QString wait(QWidget* parent, bool& cancelled) const;

private:
    struct Work;
    std::shared_ptr<Work> mWork;
};
