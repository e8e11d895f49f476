#pragma once

#include <QByteArray>

class QIODevice;
class QJsonObject;

namespace runner {

/// Whether the device took all of it: a pipe may be closed and a disk full.
bool write(QIODevice& device, const QByteArray& text);

/// A JSON array on its way out, element by element, in the form that QJsonDocument gives a whole one: however
/// long it is, a few elements are in memory.
class JsonArrayWriter {
public:
    explicit JsonArrayWriter(QIODevice& device) : mDevice(device) {}

    /// False: the device takes no more.
    bool add(const QJsonObject& element);
    /// Closes the array; false where the device did not take all of it.
    bool end();
    /// Whether the device was given anything yet.
    bool isBegun() const { return mIsBegun; }

private:
    bool flush();

    QIODevice& mDevice;
    QByteArray mWaiting;
    bool mIsEmpty = true;
    bool mIsBegun = false;
    bool mHasFailed = false;
};

} // namespace runner
