#include "embedded_host/table_reader/ods/OdsText.h"

#include "embedded_host/table_reader/ods/OdsNames.h"
#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"

#include <algorithm>

namespace table_reader {
namespace {

class Paragraph {
public:
    explicit Paragraph(XmlPart& part) : mPart(part) {}

    QString read()
    {
        readContent();
        return mText;
    }

private:
    void readContent();
    void readElement();
    void appendCollapsed(const QString& text);
    void append(const QString& text);

    XmlPart& mPart;
    QString mText;
    bool mAfterBlank = true; ///< a blank that comes now adds nothing
};

void Paragraph::readContent()
{
    while (mPart.nextContent()) {
        if (mPart.isText()) {
            appendCollapsed(mPart.text());
        } else {
            readElement();
        }
    }
}

void Paragraph::readElement()
{
    using namespace ods;
    const bool isText = mPart.space().rfind("urn:oasis:names:tc:opendocument:xmlns:text:", 0) == 0;
    const bool isAside = mPart.name() == "note" || mPart.name() == "ruby-text";
    if (!isText || isAside) { // no text: a remark, a drawing
        mPart.skip();
    } else if (mPart.name() == "s") {
        const int count = intValue(value(mPart.attributes(), Text, "c"), 1);
        append(QString(static_cast<int>(std::min<qint64>(count, limits::CellCharacters)), QLatin1Char(' ')));
        mPart.skip();
    } else if (mPart.name() == "tab") {
        append(QStringLiteral("\t"));
        mPart.skip();
    } else if (mPart.name() == "line-break") {
        append(QStringLiteral("\n"));
        mPart.skip();
    } else {
        readContent(); // a span, a link, a field; as deep as limits::NestingDepth lets it be
    }
}

void Paragraph::appendCollapsed(const QString& text)
{
    for (const QChar c : text) {
        const bool isBlank = c == QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\t') ||
                             c == QLatin1Char('\r');
        if (!isBlank) {
            mText.append(c);
        } else if (!mAfterBlank) {
            mText.append(QLatin1Char(' '));
        }
        mAfterBlank = isBlank;
    }
    append(QString());
}

void Paragraph::append(const QString& text)
{
    mText.append(text);
    mAfterBlank = mAfterBlank && text.isEmpty();
    if (mText.size() > limits::TokenBytes) {
        mPart.fail(message::tooMuchText());
    }
}

} // namespace

QString readOdsParagraph(XmlPart& part)
{
    return Paragraph(part).read();
}

} // namespace table_reader
