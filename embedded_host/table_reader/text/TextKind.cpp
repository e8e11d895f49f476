#include "embedded_host/table_reader/text/TextKind.h"

#include "embedded_host/table_reader/shared/Messages.h"

#include <QRegularExpression>

namespace table_reader {
namespace {

struct Signature {
    const char* bytes;
    int length;
    QString (*sentence)();
};

constexpr Signature Signatures[] = {
    {"\x89PNG", 4, message::image},
    {"\xFF\xD8\xFF", 3, message::image},
    {"GIF8", 4, message::image},
    {"\x1F\x8B\x08", 3, message::compressed},
    {"7z\xBC\xAF\x27\x1C", 6, message::compressed},
    {"Rar!\x1A\x07", 6, message::compressed},
    {"BZh9", 4, message::compressed},
    {"\xFD"
     "7zXZ",
     5, message::compressed},
};

QString xmlKind(const QString& head)
{
    if (head.contains(QLatin1String("urn:schemas-microsoft-com:office:spreadsheet"))) {
        return message::xmlSpreadsheet();
    }
    if (head.contains(QLatin1String("urn:oasis:names:tc:opendocument"))) {
        return message::flatOpenDocument();
    }
    return head.contains(QLatin1String("<html"), Qt::CaseInsensitive) ? message::html() : message::xml();
}

bool beginsWithTag(const QString& text)
{
    static const QRegularExpression tag(QStringLiteral("^<[A-Za-z_][\\w.:-]*(\\s[^<>]*)?/?>(?!\\s*[,;\t])"));
    return tag.match(text).hasMatch();
}

/// A web page saved as one file: headers as of a mail, of which this one need not be the first.
bool isWebArchive(const QString& text)
{
    static const QRegularExpression header(
        QStringLiteral("^(?:(?:[\\w-]+:|[ \t])[^\r\n]*\\R){0,20}MIME-Version:"),
        QRegularExpression::CaseInsensitiveOption);
    return header.match(text).hasMatch();
}

QString withoutLeadingComments(QString text)
{
    const QString closing = QStringLiteral("-->");
    while (text.startsWith(QLatin1String("<!--")) && text.contains(closing)) {
        text = text.mid(text.indexOf(closing) + closing.size()).trimmed();
    }
    return text;
}

} // namespace

QString refuseTextOfAnotherKind(const QString& head)
{
    const QString text = withoutLeadingComments(head.left(4096).trimmed());
    static const QRegularExpression html(QStringLiteral("^<(!doctype\\s+html|html|head|body|"
                                                        "table|meta|style|script|div|center|form|title|tr|"
                                                        "td)\\b[^,]*>(?!\\s*[,;\t])"),
                                         QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::DotMatchesEverythingOption);
    if (text.startsWith(QLatin1String("<?xml")) || text.startsWith(QLatin1String("<!DOCTYPE")) ||
        text.startsWith(QLatin1String("<?mso"))) {
        return html.match(text).hasMatch() ? message::html() : xmlKind(head);
    }
    if (html.match(text).hasMatch()) {
        return message::html();
    }
    // A header such as <TICKER>,<DATE> begins with something like a tag, but nothing ever closes it.
    if (beginsWithTag(text) && head.contains(QLatin1String("</"))) {
        return xmlKind(head);
    }
    if (text.startsWith(QLatin1String("{\\rtf"))) {
        return message::richText();
    }
    if (text.startsWith(QLatin1String("%PDF-"))) {
        return message::pdf();
    }
    return isWebArchive(text) ? message::webArchive() : QString();
}

QString refuseBinaryOfAnotherKind(const QByteArray& head)
{
    for (const Signature& signature : Signatures) {
        if (head.startsWith(QByteArray::fromRawData(signature.bytes, signature.length))) {
            return signature.sentence();
        }
    }
    return QString();
}

} // namespace table_reader
