#include "desk/runner/Output.h"

#include <QFileDevice>
#include <QJsonDocument>
#include <QJsonObject>

namespace runner {

namespace {

/// Bytes that are given to the device at once.
constexpr int Portion = 65536;

/// One level further in, without the line end behind it. A line end inside of a text is escaped.
QByteArray indented(QByteArray json)
{
    json.chop(1);
    return "    " + json.replace('\n', "\n    ");
}

} // namespace

bool write(QIODevice& device, const QByteArray& text)
{
    auto* file = qobject_cast<QFileDevice*>(&device);
    return device.write(text) == text.size() && (file == nullptr || file->flush());
}

bool JsonArrayWriter::add(const QJsonObject& element)
{
    mWaiting += mIsEmpty ? "[\n" : ",\n";
    mWaiting += indented(QJsonDocument(element).toJson());
    mIsEmpty = false;
    return mWaiting.size() < Portion ? !mHasFailed : flush();
}

bool JsonArrayWriter::end()
{
    mWaiting += mIsEmpty ? "[\n]\n" : "\n]\n";
    return flush();
}

bool JsonArrayWriter::flush()
{
    mIsBegun = true;
    mHasFailed = mHasFailed || !write(mDevice, mWaiting);
    mWaiting.clear();
    return !mHasFailed;
}

} // namespace runner
