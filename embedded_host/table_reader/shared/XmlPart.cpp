#include "embedded_host/table_reader/shared/XmlPart.h"

#include "embedded_host/table_reader/shared/Messages.h"

#include <expat.h>

#include <algorithm>

namespace table_reader {
namespace {

/// Between a namespace and a name, as the parser gives them; no character of XML.
constexpr char Separator = '\x01';

/// Bytes that the parser gets at a time. Where they end nothing, as within a long attribute, it gets twice as
/// many the next time, since it begins anew at what is not ended.
constexpr int UsualPiece = 1 << 14;
constexpr int LargestPiece = 1 << 20;

} // namespace

QStringRef XmlAttributes::value(QLatin1String space, QLatin1String name) const
{
    for (const Attribute& attribute : mAll) {
        if (attribute.name == name && attribute.space == space) {
            return QStringRef(&attribute.value);
        }
    }
    return {};
}

/// The parser's side: what it tells becomes events in the order of the part.
struct XmlPart::Handlers {
    static XmlPart& partOf(void* data) { return *static_cast<XmlPart*>(data); }

    static void begin(void* data, const XML_Char* name, const XML_Char** attributes)
    {
        XmlPart& part = partOf(data);
        Event event;
        event.kind = Event::Kind::Begin;
        const std::string_view full(name);
        const std::size_t separator = full.rfind(Separator);
        const bool hasSpace = separator != std::string_view::npos;
        event.space = part.keep(hasSpace ? full.substr(0, separator) : std::string_view());
        event.name = part.keep(hasSpace ? full.substr(separator + 1) : full);
        event.firstAttribute = static_cast<int>(part.mAttributes.size());
        for (; *attributes != nullptr; attributes += 2) {
            part.mAttributes.push_back({part.keep(attributes[0]), part.keep(attributes[1])});
        }
        event.attributes = static_cast<int>(part.mAttributes.size()) - event.firstAttribute;
        event.namespaces = part.mDeclared;
        part.mDeclared = 0;
        if (event.attributes + event.namespaces > limits::TagAttributes) {
            part.refuse(message::tooManyAttributes(part.partName()));
            return;
        }
        part.mEvents.push_back(event);
    }

    static void end(void* data, const XML_Char*)
    {
        Event event;
        event.kind = Event::Kind::End;
        partOf(data).mEvents.push_back(event);
    }

    /// The parser gives a text line by line and reference by reference.
    static void characters(void* data, const XML_Char* text, int length)
    {
        XmlPart& part = partOf(data);
        const Piece piece = part.keep({text, static_cast<std::size_t>(length)});
        if (!part.mEvents.empty() && part.mEvents.back().kind == Event::Kind::Text) {
            part.mEvents.back().name.size += piece.size;
            return;
        }
        Event event;
        event.kind = Event::Kind::Text;
        event.name = piece;
        part.mEvents.push_back(event);
    }

    static void declaresNamespace(void* data, const XML_Char*, const XML_Char*) { ++partOf(data).mDeclared; }

    static void doctype(void* data, const XML_Char*, const XML_Char*, const XML_Char*, int)
    {
        partOf(data).refuse(message::documentType(partOf(data).partName()));
    }
};

void XmlPart::Freer::operator()(XML_ParserStruct* parser) const
{
    XML_ParserFree(parser);
}

XmlPart::XmlPart(ZipArchive& archive, const QString& name) : mStream(archive, name), mPieceBytes(UsualPiece)
{
}

bool XmlPart::begin(const XmlNamespace& space, QLatin1String root)
{
    mError = mStream.begin();
    if (hasError()) {
        return false;
    }
    // The stream gives UTF-8, whatever a declaration says of the bytes that it has read.
    mParser.reset(XML_ParserCreateNS("UTF-8", Separator));
    XML_SetUserData(mParser.get(), this);
    XML_SetElementHandler(mParser.get(), Handlers::begin, Handlers::end);
    XML_SetCharacterDataHandler(mParser.get(), Handlers::characters);
    XML_SetStartNamespaceDeclHandler(mParser.get(), Handlers::declaresNamespace);
    XML_SetStartDoctypeDeclHandler(mParser.get(), Handlers::doctype);
    if (nextChild() && !is(space, root)) {
        fail(message::unexpectedXml(partName()));
    }
    return !hasError();
}

XmlPart::Piece XmlPart::keep(std::string_view text)
{
    const Piece piece{static_cast<int>(mTexts.size()), static_cast<int>(text.size())};
    mTexts.append(text);
    return piece;
}

void XmlPart::refuse(const QString& refusal)
{
    if (mFault.isEmpty()) {
        mFault = refusal;
    }
    XML_StopParser(mParser.get(), XML_FALSE);
}

/// Lets the parser read on until there is an event. False at the end, and where it cannot go on.
bool XmlPart::parseMore()
{
    mTexts.clear();
    mAttributes.clear();
    mEvents.clear();
    mNext = 0;
    while (mEvents.empty() && !mHasEnded) {
        void* const buffer = XML_GetBuffer(mParser.get(), mPieceBytes);
        const auto got = buffer == nullptr ? -1 : mStream.read(static_cast<char*>(buffer), mPieceBytes);
        mHasEnded = got <= 0;
        if (!mStream.failure().isEmpty()) {
            mFault = mStream.failure();
        } else if (XML_ParseBuffer(mParser.get(), static_cast<int>(std::max<qint64>(got, 0)),
                                   mHasEnded ? XML_TRUE : XML_FALSE) != XML_STATUS_OK) {
            mHasEnded = true;
            noteParserError();
        }
        mPieceBytes = mEvents.empty() ? std::min(2 * mPieceBytes, LargestPiece) : UsualPiece;
    }
    if (!mEvents.empty()) {
        mStream.beginToken();
    }
    return !mEvents.empty();
}

void XmlPart::noteParserError()
{
    if (mFault.isEmpty()) {
        mFault = message::damagedXml(partName(), qint64(XML_GetCurrentLineNumber(mParser.get())),
                                     qint64(XML_GetCurrentColumnNumber(mParser.get())) + 1);
    }
}

XmlPart::Event::Kind XmlPart::advance()
{
    if (mNext == mEvents.size() && !parseMore()) {
        mNow = Event();
        fail(mFault);
        return mNow.kind;
    }
    mNow = mEvents[mNext++];
    if (mNow.kind == Event::Kind::Begin) {
        enterElement();
    } else if (mNow.kind == Event::Kind::End) {
        --mDepth;
    }
    return hasError() ? Event::Kind::None : mNow.kind;
}

void XmlPart::enterElement()
{
    if (++mDepth > limits::NestingDepth) {
        fail(message::nestedTooDeep(partName()));
        return;
    }
    const auto depth = static_cast<std::size_t>(mDepth);
    mNamespaces[depth] = mNamespaces[depth - 1] + mNow.namespaces;
    if (mNamespaces[depth] > limits::Namespaces) {
        fail(message::tooManyNamespaces(partName()));
    }
}

bool XmlPart::nextChild()
{
    while (nextContent()) {
        if (!isText()) {
            return true;
        }
    }
    return false;
}

bool XmlPart::nextContent()
{
    if (hasError()) {
        return false;
    }
    const Event::Kind kind = advance();
    return kind == Event::Kind::Begin || kind == Event::Kind::Text;
}

void XmlPart::skip()
{
    const int outside = mDepth - 1;
    while (!hasError() && mDepth > outside) {
        if (advance() == Event::Kind::None) {
            return;
        }
    }
}

QString XmlPart::readText()
{
    QString text;
    while (nextContent()) {
        if (!isText()) {
            skip();
        } else if (text.isEmpty()) {
            text = this->text();
        } else if (text.size() + mNow.name.size <= limits::TokenBytes) {
            text += this->text();
        } else {
            fail(message::partTooLarge(partName()));
        }
    }
    return text;
}

XmlAttributes XmlPart::attributes() const
{
    XmlAttributes attributes;
    attributes.mAll.reserve(attributeCount());
    for (int number = 0; number < attributeCount(); ++number) {
        const std::string_view full = attributeName(number);
        const auto separator = static_cast<int>(full.rfind(Separator)); // -1: no namespace
        const QString name = textOf(attributeAt(number).name);
        attributes.mAll.append(
            {name.left(std::max(separator, 0)), name.mid(separator + 1), textOf(attributeAt(number).value)});
    }
    return attributes;
}

void XmlPart::fail(const QString& error)
{
    if (mError.isEmpty()) {
        mError = error;
    }
}

QString XmlPart::finish()
{
    if (!hasError()) {
        mError = mStream.finish();
    }
    return mError;
}

int intValue(std::string_view utf8, int fallback)
{
    constexpr std::size_t SafeDigits = 9;
    int plain = utf8.empty() || utf8.size() > SafeDigits ? -1 : 0;
    for (const char c : utf8.substr(0, SafeDigits)) {
        plain = plain >= 0 && c >= '0' && c <= '9' ? plain * 10 + (c - '0') : -1;
    }
    if (plain >= 0) { // the usual case, which every cell of a sheet has twice
        return plain;
    }
    bool isNumber = false;
    const QString text = QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
    const int value = text.trimmed().toInt(&isNumber);
    return isNumber && value >= 0 ? value : fallback;
}

int intValue(const QStringRef& text, int fallback)
{
    const QByteArray utf8 = text.toUtf8();
    return intValue(std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())), fallback);
}

bool boolValue(const QStringRef& text)
{
    const QStringRef value = text.trimmed();
    return value == QLatin1String("1") || value.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 ||
           value == QLatin1String("on");
}

} // namespace table_reader
