#include "ledger/store/JsonText.h"

#include <rapidjson/encodings.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace ledger {

namespace {

// From UTF-16 to UTF-16: a text is copied character by character, and nothing on the way is translated.
using Encoding = rapidjson::UTF16<char16_t>;
using Buffer = rapidjson::GenericStringBuffer<Encoding>;
using Writer = rapidjson::Writer<Buffer, Encoding, Encoding>;

const char16_t* charactersOf(const QString& text)
{
    return reinterpret_cast<const char16_t*>(text.utf16());
}

QString textIn(const Buffer& buffer)
{
    return QString(reinterpret_cast<const QChar*>(buffer.GetString()),
                   static_cast<int>(buffer.GetSize() / sizeof(char16_t)));
}

void write(Writer& writer, const QString& text)
{
    writer.String(charactersOf(text), static_cast<rapidjson::SizeType>(text.size()));
}

void write(Writer& writer, const QStringList& texts)
{
    writer.StartArray();
    for (const QString& text : texts) {
        write(writer, text);
    }
    writer.EndArray();
}

void write(Writer& writer, const QMap<QString, QVariant>& object);

/// Numbers and what is rare, as Qt writes it.
void writeOther(Writer& writer, const QVariant& value)
{
    const QByteArray array =
        QJsonDocument(QJsonArray{QJsonValue::fromVariant(value)}).toJson(QJsonDocument::Compact);
    const QString text = QString::fromUtf8(array.mid(1, array.size() - 2));
    writer.RawValue(charactersOf(text), static_cast<size_t>(text.size()), rapidjson::kNumberType);
}

void write(Writer& writer, const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::QString:
        write(writer, value.toString());
        break;
    case QMetaType::QStringList:
        write(writer, value.toStringList());
        break;
    case QMetaType::QVariantMap:
        write(writer, value.toMap());
        break;
    case QMetaType::QVariantList: {
        writer.StartArray();
        const QVariantList elements = value.toList();
        for (const QVariant& element : elements) {
            write(writer, element);
        }
        writer.EndArray();
        break;
    }
    default:
        writeOther(writer, value);
    }
}

void write(Writer& writer, const QMap<QString, QVariant>& object)
{
    writer.StartObject();
    for (auto member = object.cbegin(); member != object.cend(); ++member) {
        write(writer, member.key());
        write(writer, member.value());
    }
    writer.EndObject();
}

QStringList textsOf(const QJsonArray& array)
{
    QStringList texts;
    for (const QJsonValue& value : array) {
        texts.append(value.toString());
    }
    return texts;
}

template <typename Value> QString textOf(const Value& value)
{
    Buffer buffer;
    Writer writer(buffer);
    write(writer, value);
    return textIn(buffer);
}

} // namespace

QString jsonText(const QMap<QString, QVariant>& object)
{
    return textOf(object);
}

QString jsonText(const QStringList& texts)
{
    return textOf(texts);
}

QString jsonText(const QList<QStringList>& rows)
{
    Buffer buffer;
    Writer writer(buffer);
    writer.StartArray();
    for (const QStringList& row : rows) {
        write(writer, row);
    }
    writer.EndArray();
    return textIn(buffer);
}

QMap<QString, QVariant> objectIn(const QString& json)
{
    return QJsonDocument::fromJson(json.toUtf8()).object().toVariantMap();
}

QStringList textsIn(const QString& json)
{
    return textsOf(QJsonDocument::fromJson(json.toUtf8()).array());
}

QList<QStringList> rowsIn(const QString& json)
{
    const QJsonArray array = QJsonDocument::fromJson(json.toUtf8()).array();
    QList<QStringList> rows;
    for (const QJsonValue& row : array) {
        rows.append(textsOf(row.toArray()));
    }
    return rows;
}

} // namespace ledger
