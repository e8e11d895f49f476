#pragma once

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/ZipArchive.h"

#include <QLatin1String>
#include <QXmlStreamReader>

#include <array>

namespace table_reader {

/// A latin text known when compiling, for constants.
template <std::size_t Size> constexpr QLatin1String latin1(const char (&text)[Size])
{
    return QLatin1String(text, static_cast<int>(Size) - 1);
}

/// Equality for what is compared at every element: inline, without a way out in the middle, so that the
/// compiler compares many letters at a time.
inline bool same(const QStringRef& text, QLatin1String latin)
{
    if (text.size() != latin.size()) {
        return false;
    }
    unsigned difference = 0;
    for (int i = 0; i < latin.size(); ++i) {
        difference |= unsigned(text.unicode()[i].unicode()) ^ static_cast<unsigned char>(latin.data()[i]);
    }
    return difference == 0;
}

/// A namespace in its usual spelling and the one of the strict ISO edition, if it has one; both mean the
/// same.
struct XmlNamespace {
    QLatin1String usual;
    QLatin1String strict;
    bool is(const QStringRef& uri) const { return !uri.isEmpty() && (same(uri, usual) || same(uri, strict)); }
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
class XmlPart {
public:
    XmlPart(ZipArchive& archive, const QString& name);

    /// Opens the part and enters its root element, which must be this one. False: error() says why.
    bool begin(const XmlNamespace& space, QLatin1String root);

    /// Enters the next child of the current element; false at the element's end (which is then left) or on an
    /// error.
    bool nextChild();
    /// Moves to the next text or child within the current element: see isText(). False as with nextChild().
    bool nextContent();
    bool isText() const { return mXml.isCharacters(); }
    QStringRef text() const { return mXml.text(); }
    /// Leaves the current element without looking at what it holds.
    void skip();
    /// The texts directly within the current element, which is left; child elements are passed over.
    QString readText();

    bool is(const XmlNamespace& space, QLatin1String name) const
    {
        return same(mXml.name(), name) && space.is(mXml.namespaceUri());
    }
    QStringRef name() const { return mXml.name(); }
    QStringRef space() const { return mXml.namespaceUri(); }
    QXmlStreamAttributes attributes() const { return mXml.attributes(); }

    /// A reader of this part found that it cannot go on; the first complaint stays.
    void fail(const QString& error);
    bool hasError() const { return !mError.isEmpty(); }
    const QString& error() const { return mError; }
    const QString& partName() const { return mStream.name(); }
    /// Checks length and checksum of the part, whether it was read to its end or not. Empty, or the first
    /// complaint.
    QString finish();

private:
    QXmlStreamReader::TokenType advance();
    void enterElement();
    void noteXmlError();

    PartStream mStream;
    QXmlStreamReader mXml;
    QString mError;
    int mDepth = 0;
    std::array<int, limits::NestingDepth + 1> mNamespaces = {}; ///< declared down to this depth
};

/// The value of an attribute as an unsigned number below 2^31; otherwise the fallback.
int intValue(const QStringRef& text, int fallback);
/// "1", "true" or "on".
bool boolValue(const QStringRef& text);

} // namespace table_reader
