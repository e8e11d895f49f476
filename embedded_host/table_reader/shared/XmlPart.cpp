#include "embedded_host/table_reader/shared/XmlPart.h"

#include "embedded_host/table_reader/shared/Messages.h"

#include <QRegularExpression>

#include <algorithm>

namespace table_reader {
namespace {

/// Whether markup is the same bytes in this encoding as in ASCII, which PartStream counts on. Empty: UTF-8.
bool keepsAscii(const QString& encoding)
{
    static const QRegularExpression known(
        QStringLiteral("^(UTF-?8|(US-)?ASCII|ISO-8859-\\d+|windows-\\d+|GB2312|GBK|GB18030)?$"),
        QRegularExpression::CaseInsensitiveOption);
    return known.match(encoding).hasMatch();
}

} // namespace

XmlPart::XmlPart(ZipArchive& archive, const QString& name) : mStream(archive, name) {}

bool XmlPart::begin(const XmlNamespace& space, QLatin1String root)
{
    mError = mStream.begin();
    if (hasError()) {
        return false;
    }
    mXml.setDevice(&mStream);
    if (nextChild() && !is(space, root)) {
        fail(message::unexpectedXml(partName()));
    }
    return !hasError();
}

QXmlStreamReader::TokenType XmlPart::advance()
{
    mStream.beginToken();
    const QXmlStreamReader::TokenType token = mXml.readNext();
    switch (token) {
    case QXmlStreamReader::StartDocument:
        if (!keepsAscii(mXml.documentEncoding().toString())) {
            fail(message::foreignEncoding(partName()));
        }
        break;
    case QXmlStreamReader::StartElement:
        enterElement();
        break;
    case QXmlStreamReader::EndElement:
        --mDepth;
        break;
    case QXmlStreamReader::DTD:
        fail(message::documentType(partName()));
        break;
    case QXmlStreamReader::Invalid:
        noteXmlError();
        break;
    default:
        break;
    }
    return hasError() ? QXmlStreamReader::Invalid : token;
}

void XmlPart::enterElement()
{
    if (++mDepth > limits::NestingDepth) {
        fail(message::nestedTooDeep(partName()));
        return;
    }
    const auto depth = static_cast<std::size_t>(mDepth);
    mNamespaces[depth] = mNamespaces[depth - 1] + mXml.namespaceDeclarations().size();
    if (mNamespaces[depth] > limits::Namespaces) {
        fail(message::tooManyNamespaces(partName()));
    }
}

void XmlPart::noteXmlError()
{
    fail(mStream.failure().isEmpty() ? message::damagedXml(partName(), mXml.lineNumber(), mXml.columnNumber())
                                     : mStream.failure());
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
    while (!hasError()) {
        switch (advance()) {
        case QXmlStreamReader::StartElement:
        case QXmlStreamReader::Characters:
            return true;
        case QXmlStreamReader::EndElement:
        case QXmlStreamReader::EndDocument:
        case QXmlStreamReader::Invalid:
            return false;
        default:
            break;
        }
    }
    return false;
}

void XmlPart::skip()
{
    const int outside = mDepth - 1;
    while (!hasError() && mDepth > outside) {
        if (advance() == QXmlStreamReader::EndDocument) {
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
            // toString() might share the parser's buffer, which it would then have to allocate anew.
            text = QString(mXml.text().data(), mXml.text().size());
        } else if (text.size() + mXml.text().size() <= limits::TokenBytes) {
            text += mXml.text();
        } else {
            fail(message::partTooLarge(partName()));
        }
    }
    return text;
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

int intValue(const QStringRef& text, int fallback)
{
    constexpr int SafeDigits = 9;
    int plain = 0; // the usual case, which every cell of a sheet has twice
    const auto isDigit = [&](QChar c) {
        plain = plain * 10 + (c.unicode() - u'0');
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    };
    if (text.size() > 0 && text.size() <= SafeDigits && std::all_of(text.begin(), text.end(), isDigit)) {
        return plain;
    }
    bool isNumber = false;
    const int value = text.trimmed().toInt(&isNumber);
    return isNumber && value >= 0 ? value : fallback;
}

bool boolValue(const QStringRef& text)
{
    const QStringRef value = text.trimmed();
    return value == QLatin1String("1") || value.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 ||
           value == QLatin1String("on");
}

} // namespace table_reader
