#include "ledger/store/JsonText.h"

#include <rapidjson/encodings.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

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

/// Makes of an object what QJsonObject::toVariantMap() would: a whole number is a qlonglong where it fits.
class MapBuilder : public rapidjson::BaseReaderHandler<Encoding, MapBuilder> {
public:
    using Length = rapidjson::SizeType;

    bool Null() { return add(QVariant::fromValue(nullptr)); }
    bool Bool(bool flag) { return add(flag); }
    bool Int(int number) { return add(qlonglong{number}); }
    bool Uint(unsigned number) { return add(qlonglong{number}); }
    bool Int64(int64_t number) { return add(qlonglong{number}); }
    bool Uint64(uint64_t number)
    {
        return number <= uint64_t(INT64_MAX) ? add(qlonglong(number)) : Double(double(number));
    }
    bool Double(double number)
    {
        constexpr double Beyond = 9223372036854775808.0; // the first double that no qlonglong is
        const bool isWhole = std::trunc(number) == number && number >= -Beyond && number < Beyond;
        return isWhole ? add(qlonglong(number)) : add(number);
    }
    bool String(const char16_t* text, Length length, bool) { return add(textOf(text, length)); }
    bool Key(const char16_t* text, Length length, bool)
    {
        mOpen.last().key = textOf(text, length);
        return true;
    }
    bool StartObject() { return open(true); }
    bool EndObject(Length) { return close(mOpen.takeLast().map); }
    bool StartArray() { return open(false); }
    bool EndArray(Length) { return close(mOpen.takeLast().list); }

    QMap<QString, QVariant> map; ///< of the whole text, once it is read

private:
    struct Level {
        bool isObject;
        QString key;
        QVariantMap map;
        QVariantList list;
    };

    static QString textOf(const char16_t* text, Length length)
    {
        return QString(reinterpret_cast<const QChar*>(text), static_cast<int>(length));
    }

    bool open(bool isObject)
    {
        mOpen.append({isObject, {}, {}, {}});
        return mOpen.first().isObject;
    }

    bool close(const QVariant& value)
    {
        if (mOpen.isEmpty()) {
            map = value.toMap();
            return true;
        }
        return add(value);
    }

    /// Behind the whole object there is nothing.
    bool add(const QVariant& value)
    {
        if (mOpen.isEmpty()) {
            return false;
        }
        Level& level = mOpen.last();
        if (level.isObject) {
            level.map.insert(level.key, value);
        } else {
            level.list.append(value);
        }
        return true;
    }

    QVector<Level> mOpen;
};

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

QString jsonText(const QJsonArray& array)
{
    return array.isEmpty() ? QString()
                           : QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

QMap<QString, QVariant> objectIn(const QString& json)
{
    constexpr unsigned Exactly = rapidjson::kParseFullPrecisionFlag;
    constexpr unsigned HoweverDeep = rapidjson::kParseIterativeFlag;
    rapidjson::GenericStringStream<Encoding> characters(charactersOf(json));
    rapidjson::GenericReader<Encoding, Encoding> reader;
    MapBuilder builder;
    return reader.Parse<Exactly | HoweverDeep>(characters, builder) ? builder.map : QVariantMap();
}

QStringList textsIn(const QString& json)
{
    return textsOf(QJsonDocument::fromJson(json.toUtf8()).array());
}

QJsonArray arrayIn(const QString& json)
{
    return QJsonDocument::fromJson(json.toUtf8()).array();
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
