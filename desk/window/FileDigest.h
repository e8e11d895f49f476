#pragma once

#include "table/Outcome.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>

class QWidget;

/// The SHA-256 of the imported file, taken in the background from the moment of its import, so that it is the
/// file that was read and not what became of it since.
class FileDigest : public QObject {
    Q_OBJECT

public:
    explicit FileDigest(QObject* parent = nullptr);

    /// Takes the digest; called in a thread of its own, with which it shares nothing.
    using Take = std::function<Outcome<QString>()>;

    /// Forgets the file before.
    void start(const Take& take);
    /// Hexadecimal digits; the error says why there are none. Shows progress where it takes long; nothing and
    /// `cancelled` set where the user did not want to wait.
    Outcome<QString> wait(QWidget* parent, bool& cancelled) const;

signals:
    /// Once for each file, unless another was started before it was done; empty where it has none.
    void taken(const QString& digest);

private:
    struct Work;
    void announce();

    QTimer mPoll;
    std::shared_ptr<Work> mWork;
};
