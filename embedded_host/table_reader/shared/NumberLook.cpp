#include "embedded_host/table_reader/shared/NumberLook.h"

#include "embedded_host/table_reader/shared/NumberLookParser.h"
#include "embedded_host/table_reader/shared/NumberText.h"

#include <algorithm>
#include <cmath>

namespace table_reader {
namespace {

constexpr int MostDecimals = 30; // that a spreadsheet lets one ask for
constexpr int MostScaling = 8;   // of per cent signs and commas; more is no format of a person's

struct BuiltInLook {
    int number;
    const char* code;
};

constexpr BuiltInLook BuiltInLooks[] = {
    {1, "0"},
    {2, "0.00"},
    {3, "#,##0"},
    {4, "#,##0.00"},
    {5, "#,##0;-#,##0"},
    {6, "#,##0;-#,##0"},
    {7, "#,##0.00;-#,##0.00"},
    {8, "#,##0.00;-#,##0.00"},
    {9, "0%"},
    {10, "0.00%"},
    {11, "0.00E+00"},
    {37, "#,##0;-#,##0"},
    {38, "#,##0;-#,##0"},
    {39, "#,##0.00;-#,##0.00"},
    {40, "#,##0.00;-#,##0.00"},
    {41, "#,##0;-#,##0;\"-\""},
    {42, "#,##0;-#,##0;\"-\""},
    {43, "#,##0.00;-#,##0.00;\"-\""},
    {44, "#,##0.00;-#,##0.00;\"-\""},
    {48, "0.0E+0"},
};

/// Group separators stand between digits; a comma alone may also be a point.
QString withoutDecoration(const QString& shown)
{
    QString plain;
    for (const QChar c : shown) {
        const bool isDecoration =
            c.isSpace() || c.category() == QChar::Symbol_Currency || c == QLatin1Char(',');
        if (!isDecoration) {
            plain.append(c);
        }
    }
    return plain;
}

bool isNearly(const QString& text, double value)
{
    constexpr double Noise = 1e-9;
    const std::optional<double> number = parseNumber(QStringRef(&text));
    return number && std::fabs(*number - value) <= Noise * std::fabs(value);
}

bool hasNonZeroDigit(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.digitValue() > 0; });
}

} // namespace

NumberLook::NumberLook(const QString& code)
{
    const bool isGeneral = code.isEmpty() || code == QLatin1String("@") ||
                           code.compare(QLatin1String("General"), Qt::CaseInsensitive) == 0 ||
                           code.compare(QLatin1String("Standard"), Qt::CaseInsensitive) == 0;
    if (!isGeneral) {
        mSections = Parser(code).parse();
    }
}

bool NumberLook::Section::accepts(double value) const
{
    if (orEqual && value == limit) {
        return true;
    }
    return (comparison == QLatin1Char('<') && value < limit) ||
           (comparison == QLatin1Char('>') && value > limit);
}

/// By conditions, or else: positive; negative; zero; text. A section for negative numbers alone says itself
/// how they are told.
const NumberLook::Section* NumberLook::sectionFor(double value, bool& showsSign) const
{
    const int count = std::min(mSections.size(), 3);
    const bool hasConditions = std::any_of(mSections.begin(), mSections.end(), [](const Section& section) {
        return !section.comparison.isNull();
    });
    showsSign = value < 0 && (hasConditions || count == 1);
    if (hasConditions) {
        for (int at = 0; at + 1 < count; ++at) {
            const Section& section = mSections.at(at);
            if (section.comparison.isNull() ? at == 1 && value < 0 : section.accepts(value)) {
                return &section;
            }
        }
        return &mSections.at(count - 1);
    }
    if (value < 0 && count > 1) {
        return &mSections.at(1);
    }
    return &mSections.at(value == 0 && count > 2 ? 2 : 0);
}

std::optional<QString> NumberLook::shown(double value) const
{
    if (mSections.isEmpty() || !std::isfinite(value)) {
        return std::nullopt;
    }
    bool showsSign = false;
    const Section* section = sectionFor(value, showsSign);
    if (!section->isKnown || section->decimals > MostDecimals ||
        section->hundreds + section->thousands > MostScaling) {
        return std::nullopt;
    }
    const QString text = section->shown(std::fabs(value));
    return showsSign && hasNonZeroDigit(text) ? QLatin1Char('-') + text : text;
}

QString NumberLook::Section::shown(double magnitude) const
{
    // Rounded by the digits that a spreadsheet keeps: 1.005 is not 1.00499999999999989.
    constexpr double HalfUp = 1 + 1e-15;
    const double scaled = magnitude * std::pow(100.0, hundreds) / std::pow(1000.0, thousands) * HalfUp;
    if (!hasExponent) {
        return fixed(scaled, magnitude);
    }
    QString text;
    for (const Token& token : tokens) {
        text += token.kind == Kind::Literal    ? token.text
                : token.kind == Kind::Exponent ? QString::number(scaled, 'E', decimals)
                                               : QString();
    }
    return text;
}

QString NumberLook::Section::fixed(double scaled, double magnitude) const
{
    const QString number = QString::number(scaled, 'f', decimals);
    const QString whole = number.section(QLatin1Char('.'), 0, 0);
    const auto isPoint = [](const Token& token) { return token.kind == Kind::Point; };
    const int point = static_cast<int>(std::find_if(tokens.begin(), tokens.end(), isPoint) - tokens.begin());
    return beforePoint(point, whole == QLatin1String("0") ? QString() : whole, magnitude) +
           fromPoint(point, number.section(QLatin1Char('.'), 1));
}

/// Digits fill their places from the point outwards; the first place takes what is left, and so does a point
/// without a place before it.
QString NumberLook::Section::beforePoint(int point, QString whole, double magnitude) const
{
    const auto isDigit = [](const Token& token) { return token.kind == Kind::Digit; };
    const int first = static_cast<int>(std::find_if(tokens.begin(), tokens.end(), isDigit) - tokens.begin());
    QString text;
    int placed = 0;
    const auto place = [&](QChar digit) {
        const bool endsGroup = isGrouped && placed > 0 && placed % 3 == 0;
        text.prepend(endsGroup ? QString(digit) + QLatin1Char(',') : QString(digit));
        ++placed;
    };
    for (int at = point - 1; at >= 0; --at) {
        const Token& token = tokens.at(at);
        if (token.kind != Kind::Digit) {
            text.prepend(token.kind == Kind::General ? numberText(magnitude) : token.text);
        } else if (!whole.isEmpty()) {
            do {
                place(whole.back());
                whole.chop(1);
            } while (at == first && !whole.isEmpty());
        } else if (token.text == QLatin1String("0")) {
            place(QLatin1Char('0'));
        }
    }
    return point < tokens.size() ? whole + text : text;
}

QString NumberLook::Section::fromPoint(int point, const QString& fraction) const
{
    QString text;
    int used = 0;
    for (int at = point; at < tokens.size(); ++at) {
        const Token& token = tokens.at(at);
        if (token.kind == Kind::Point) {
            text.append(QLatin1Char('.'));
        } else if (token.kind == Kind::Literal) {
            text.append(token.text);
        } else if (token.kind == Kind::Digit && used < fraction.size()) {
            const bool isNeeded = token.text == QLatin1String("0") || hasNonZeroDigit(fraction.mid(used));
            text.append(isNeeded ? QString(fraction.at(used)) : QString());
            ++used;
        }
    }
    return text;
}

QString builtInCode(int number)
{
    const auto* const found =
        std::find_if(std::begin(BuiltInLooks), std::end(BuiltInLooks),
                     [number](const BuiltInLook& entry) { return entry.number == number; });
    return found == std::end(BuiltInLooks) ? QString() : QString::fromLatin1(found->code);
}

bool saysOtherwise(const QString& shown, double value)
{
    if (value == 0) {
        return hasNonZeroDigit(shown);
    }
    QString withPoint = shown; // where the comma is one
    withPoint.replace(QLatin1Char(','), QLatin1Char('.'));
    return !isNearly(withoutDecoration(shown), value) && !isNearly(withoutDecoration(withPoint), value);
}

} // namespace table_reader
