#include "ledger/store/JsonText.h"

#include "ledger/store/Utf8.h"

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

/// rapidjson's writer, but for texts, which it would take apart and put together again character by
/// character: most of what a batch costs is the texts of its parameters.
class Writer : public rapidjson::Writer<rapidjson::StringBuffer> {
public:
    using rapidjson::Writer<rapidjson::StringBuffer>::Writer;

    void text(const QString& text)
    {
        Prefix(rapidjson::kStringType);
        const size_t most = 2 + static_cast<size_t>(text.size()) * LongestEscape;
        char* const begin = os_->Push(most);
        os_->Pop(most - static_cast<size_t>(encode(text, begin) - begin));
        EndValue(true);
    }

private:
    static constexpr size_t LongestEscape = 6; // \u0001

    static char* encode(const QString& text, char* to);
    static char* escape(ushort unit, char* to);
};

char* Writer::encode(const QString& text, char* to)
{
    *to++ = '"';
    const QChar* const end = text.cend();
    for (const QChar* at = text.cbegin(); at != end;) {
        const ushort unit = at->unicode();
        if (unit >= 0x80) {
            to = encodeWide(at, end, to);
            continue;
        }
        ++at;
        if (unit < u' ' || unit == u'"' || unit == u'\\') {
            to = escape(unit, to);
        } else {
            *to++ = static_cast<char>(unit);
        }
    }
    *to++ = '"';
    return to;
}

char* Writer::escape(ushort unit, char* to)
{
    static const char letters[] = "uuuuuuuubtnufruuuuuuuuuuuuuuuuuu"; // by control character
    static const char digits[] = "0123456789ABCDEF";
    const char letter = unit < u' ' ? letters[unit] : static_cast<char>(unit);
    *to++ = '\\';
    *to++ = letter;
    if (letter == 'u') {
        for (int shift = 12; shift >= 0; shift -= 4) {
            *to++ = digits[unit >> shift & 0xF];
        }
    }
    return to;
}

/// Writes one text of JSON.
class Composer {
public:
    template <typename Value> QByteArray textOf(const Value& value)
    {
        write(value);
        return QByteArray(mBuffer.GetString(), static_cast<int>(mBuffer.GetSize()));
    }

private:
    void write(const QString& text) { mWriter.text(text); }
    template <typename Element> void write(const QList<Element>& list);
    void write(const QMap<QString, QVariant>& object);
    void write(const QVariant& value);
    void writeOther(const QVariant& value);

    rapidjson::StringBuffer mBuffer;
    Writer mWriter{mBuffer};
};

template <typename Element> void Composer::write(const QList<Element>& list)
{
    mWriter.StartArray();
    for (const Element& element : list) {
        write(element);
    }
    mWriter.EndArray();
}

/// Numbers and what is rare, as Qt writes it.
void Composer::writeOther(const QVariant& value)
{
    const QByteArray array =
        QJsonDocument(QJsonArray{QJsonValue::fromVariant(value)}).toJson(QJsonDocument::Compact);
    mWriter.RawValue(array.constData() + 1, static_cast<size_t>(array.size() - 2), rapidjson::kNumberType);
}

void Composer::write(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::QString:
        write(value.toString());
        break;
    case QMetaType::QStringList:
        write<QString>(value.toStringList());
        break;
    case QMetaType::QVariantMap:
        write(value.toMap());
        break;
    case QMetaType::QVariantList:
        write(value.toList());
        break;
    default:
        writeOther(value);
    }
}

void Composer::write(const QMap<QString, QVariant>& object)
{
    mWriter.StartObject();
    for (auto member = object.cbegin(); member != object.cend(); ++member) {
        write(member.key());
        write(member.value());
    }
    mWriter.EndObject();
}

QStringList textsOf(const QJsonArray& array)
{
    QStringList texts;
    for (const QJsonValue& value : array) {
        texts.append(value.toString());
    }
    return texts;
}

// Read from UTF-16, as a column gives it.
using Encoding = rapidjson::UTF16<char16_t>;

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

} // namespace

QByteArray jsonText(const QMap<QString, QVariant>& object)
{
    return Composer().textOf(object);
}

QByteArray jsonText(const QStringList& texts)
{
    return Composer().textOf<QList<QString>>(texts);
}

QByteArray jsonText(const QList<QStringList>& rows)
{
    return Composer().textOf(rows);
}

QByteArray jsonText(const QJsonArray& array)
{
    return array.isEmpty() ? QByteArray() : QJsonDocument(array).toJson(QJsonDocument::Compact);
}

QMap<QString, QVariant> objectIn(const QString& json)
{
    constexpr unsigned Exactly = rapidjson::kParseFullPrecisionFlag;
    constexpr unsigned HoweverDeep = rapidjson::kParseIterativeFlag;
    rapidjson::GenericStringStream<Encoding> characters(reinterpret_cast<const char16_t*>(json.utf16()));
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
