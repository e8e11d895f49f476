#pragma once

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/ZipArchive.h"

#include <QLatin1String>
#include <QVector>

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct XML_ParserStruct;

namespace table_reader {

/// A latin text known when compiling, for constants.
template <std::size_t Size> constexpr QLatin1String latin1(const char (&text)[Size])
{
    return QLatin1String(text, static_cast<int>(Size) - 1);
}

/// Equality of a name in UTF-8 and one in ASCII.
inline bool same(std::string_view text, QLatin1String ascii)
{
    return text == std::string_view(ascii.data(), static_cast<std::size_t>(ascii.size()));
}

/// A namespace in its usual spelling and the one of the strict ISO edition, if it has one; both mean the
/// same.
struct XmlNamespace {
    QLatin1String usual;
    QLatin1String strict;
    bool is(std::string_view uri) const { return !uri.empty() && (same(uri, usual) || same(uri, strict)); }
};

/// The attributes of an element, to be kept and asked for by name. Null where there is no such attribute.
/// What is answered lives as long as they do, or a copy of them.
class XmlAttributes {
public:
    QStringRef value(QLatin1String name) const { return value(QLatin1String(), name); }
    QStringRef value(QLatin1String space, QLatin1String name) const;

private:
    friend class XmlPart;
    struct Attribute {
        QString space;
        QString name;
        QString value;
    };
    QVector<Attribute> mAll;
};

/// Walks the XML of a part from element to element, within the limits. Refuses document type declarations,
/// and encodings in which markup is not ASCII.
///
///     XmlPart part(archive, name);
///     if (!part.begin(…)) return part.error();
///     while (part.nextChild()) {          // each child of the current element …
///         if (part.is(Main, "row")) …     // … is read whole by whoever recognises it,
///         else part.skip();               // … or skipped
///     }
///     return part.finish();
///
/// What is said of the current element or text holds until the next step.
class XmlPart {
public:
    XmlPart(ZipArchive& archive, const QString& name);

    /// Opens the part and enters its root element, which must be this one. False: error() says why.
    bool begin(const XmlNamespace& space, QLatin1String root);

    /// Enters the next child of the current element; false at the element's end (which is then left) or on an
    /// error.
    bool nextChild();
    /// Moves to the next text or child within the current element: see isText(). False as with nextChild().
    /// One text may come in several pieces.
    bool nextContent();
    bool isText() const { return mNow.kind == Event::Kind::Text; }
    QString text() const { return textOf(mNow.name); }
    /// Leaves the current element without looking at what it holds.
    void skip();
    /// The texts directly within the current element, which is left; child elements are passed over.
    QString readText();

    bool is(const XmlNamespace& space, QLatin1String name) const
    {
        return same(viewOf(mNow.name), name) && space.is(viewOf(mNow.space));
    }
    std::string_view name() const { return viewOf(mNow.name); } ///< without its prefix
    std::string_view space() const { return viewOf(mNow.space); }
    XmlAttributes attributes() const;
    /// The same one by one, as they stand there, for what is asked of every cell. One with a prefix is named
    /// by its namespace too, and is none that has no prefix.
    int attributeCount() const { return mNow.attributes; }
    std::string_view attributeName(int number) const { return viewOf(attributeAt(number).name); }
    std::string_view attributeValue(int number) const { return viewOf(attributeAt(number).value); }

    /// A reader of this part found that it cannot go on; the first complaint stays.
    void fail(const QString& error);
    bool hasError() const { return !mError.isEmpty(); }
    const QString& error() const { return mError; }
    const QString& partName() const { return mStream.name(); }
    /// Checks length and checksum of the part, whether it was read to its end or not. Empty, or the first
    /// complaint.
    QString finish();

private:
    /// A piece of mTexts.
    struct Piece {
        int at = 0;
        int size = 0;
    };
    struct Attribute {
        Piece name; ///< as the parser gives it
        Piece value;
    };
    struct Event {
        enum class Kind { Begin, End, Text, None };
        Kind kind = Kind::None;
        Piece name; ///< of an element; of a text all of it
        Piece space;
        int firstAttribute = 0;
        int attributes = 0;
        int namespaces = 0; ///< that it declares
    };
    struct Handlers;
    struct Freer {
        void operator()(XML_ParserStruct* parser) const;
    };

    Event::Kind advance();
    void enterElement();
    bool parseMore();
    void noteParserError();
    void refuse(const QString& refusal);
    Piece keep(std::string_view text);
    std::string_view viewOf(Piece piece) const
    {
        return {mTexts.data() + piece.at, static_cast<std::size_t>(piece.size)};
    }
    QString textOf(Piece piece) const { return QString::fromUtf8(mTexts.data() + piece.at, piece.size); }
    const Attribute& attributeAt(int number) const
    {
        return mAttributes[static_cast<std::size_t>(mNow.firstAttribute + number)];
    }

    PartStream mStream;
    std::unique_ptr<XML_ParserStruct, Freer> mParser;
    QString mError;
    QString mFault; ///< of the bytes behind the events at hand
    bool mHasEnded = false;
    int mPieceBytes; ///< given to the parser at a time

    // What the parser said of the last piece.
    std::string mTexts;
    std::vector<Attribute> mAttributes;
    std::vector<Event> mEvents;
    std::size_t mNext = 0;
    int mDeclared = 0; ///< namespaces of the element to come

    Event mNow;
    int mDepth = 0;
    std::array<int, limits::NestingDepth + 1> mNamespaces = {}; ///< declared down to this depth
};

/// The value of an attribute as an unsigned number below 2^31; otherwise the fallback.
int intValue(const QStringRef& text, int fallback);
int intValue(std::string_view utf8, int fallback);
/// "1", "true" or "on".
bool boolValue(const QStringRef& text);

} // namespace table_reader
