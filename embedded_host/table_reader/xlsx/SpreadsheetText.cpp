#include "embedded_host/table_reader/xlsx/SpreadsheetText.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/xlsx/SpreadsheetNames.h"

#include <algorithm>
#include <cctype>

namespace table_reader {
namespace {

constexpr int EscapeLength = 7; // _xHHHH_

/// The character that an escape at this place stands for, or -1.
int escapedAt(const QString& text, int at)
{
    if (at + EscapeLength > text.size() || text.at(at + 1) != QLatin1Char('x') ||
        text.at(at + EscapeLength - 1) != QLatin1Char('_')) {
        return -1;
    }
    const auto isHex = [](QChar c) { return c.unicode() < 0x80 && std::isxdigit(c.unicode()) != 0; };
    const QStringRef digits = text.midRef(at + 2, 4);
    return std::all_of(digits.begin(), digits.end(), isHex) ? digits.toInt(nullptr, 16) : -1;
}

/// What stands in `t` within the current element, and where it has runs, within its runs `r`.
QString readTexts(XmlPart& part, bool hasRuns)
{
    QString text;
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("t"))) {
            text += part.readText();
        } else if (hasRuns && part.is(Sheet, QLatin1String("r"))) {
            text += readTexts(part, false);
        } else {
            part.skip();
        }
        if (text.size() > limits::TokenBytes) {
            part.fail(message::tooMuchText());
        }
    }
    return text;
}

} // namespace

QString decodeEscapes(const QString& text)
{
    if (!text.contains(QLatin1String("_x"))) {
        return text;
    }
    QString decoded;
    decoded.reserve(text.size());
    for (int at = 0; at < text.size(); ++at) {
        const int value = text.at(at) == QLatin1Char('_') ? escapedAt(text, at) : -1;
        if (value < 0) {
            decoded.append(text.at(at));
        } else {
            decoded.append(QChar(value));
            at += EscapeLength - 1;
        }
    }
    return decoded;
}

QString guardEscapes(const QString& text)
{
    QString guarded;
    for (int at = 0; at < text.size(); ++at) {
        const bool isEscape = text.at(at) == QLatin1Char('_') && escapedAt(text, at) >= 0;
        guarded += isEscape ? QStringLiteral("_x005F_") : QString(text.at(at));
    }
    return guarded;
}

QString readRichText(XmlPart& part)
{
    return decodeEscapes(readTexts(part, true));
}

} // namespace table_reader
