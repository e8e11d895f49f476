#include "embedded_host/table_check/NumberLint.h"

#include "table/CheckRules.h"

#include <QLocale>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

namespace table_lint {

namespace rule = table::rule;

namespace {

/// Nobody orders for less; ten thousands were meant.
constexpr double SmallAmount = 10000;
constexpr double TenThousand = 1e4;
constexpr double HundredMillion = 1e8;
/// In per cent a year: above it no rate was ever traded, below it none is worth an order.
constexpr double HighestRate = 60;
constexpr double LowestRate = 0.1;
constexpr double Noise = 1e-6; ///< that a spreadsheet's rounding leaves behind

/// In the digits that a person would type.
QString printed(double number)
{
    constexpr int Digits = 15;
    const QString text = QString::number(number, 'g', Digits);
    return text.contains(QLatin1Char('e')) ? QString::number(number, 'f', 0) : text;
}

/// Whole numbers have 32 bits; an infinity and "nan" are numbers as well.
bool fits(double number, NumberKind kind)
{
    constexpr double Least = std::numeric_limits<qint32>::min();
    constexpr double Greatest = std::numeric_limits<qint32>::max();
    return std::isfinite(number) && (kind != NumberKind::Whole || (number >= Least && number <= Greatest));
}

bool hasFraction(double number)
{
    return std::fabs(number - std::round(number)) > Noise;
}

/// 1.000 and 12.500.000: a point where others write a comma.
bool hasPointsForGroups(const QString& text)
{
    static const QRegularExpression groups(QStringLiteral("^\\s*[1-9]\\d{0,2}(\\.\\d{3})+\\s*$"));
    return text.contains(QLatin1Char('.')) && groups.match(text).hasMatch();
}

QString invalidRule(NumberKind kind)
{
    switch (kind) {
    case NumberKind::Price:
        return rule::NoPrice;
    case NumberKind::Whole:
    case NumberKind::Amount:
        return rule::NoNumber;
    case NumberKind::Percent:
    case NumberKind::Share:
    case NumberKind::Free:
    case NumberKind::Positive:
    case NumberKind::Signed:
        break;
    }
    return rule::NoFreeNumber;
}

std::optional<NumberFault> faultOfPercent(double number, bool ofMarket)
{
    if (number < 0.0 || number > 100.0) {
        return NumberFault{rule::NoPercent, QString()};
    }
    const bool isSmall = ofMarket && number > 0.0 && number < 1.0;
    return isSmall ? std::optional(NumberFault{rule::SmallShare, printed(number * 100)}) : std::nullopt;
}

std::optional<NumberFault> faultOfFinite(const QString& text, double number, NumberKind kind)
{
    if (kind == NumberKind::Percent || kind == NumberKind::Share) {
        return faultOfPercent(number, kind == NumberKind::Share);
    }
    if (number < 0.0 && kind != NumberKind::Signed) {
        const bool isHandedOn = kind == NumberKind::Free || kind == NumberKind::Positive;
        return NumberFault{isHandedOn ? rule::BelowZero : rule::NegativeNumber, QString()};
    }
    if (number == 0.0 && kind == NumberKind::Positive) {
        return NumberFault{rule::ZeroNumber, QString()};
    }
    if (kind == NumberKind::Whole && hasPointsForGroups(text)) {
        return NumberFault{rule::PointForGroups, plausibleNumber(text, kind)};
    }
    if (kind == NumberKind::Whole && hasFraction(number)) {
        return NumberFault{rule::LostFraction, QString()};
    }
    if (kind == NumberKind::Amount && number > 0.0 && number < SmallAmount) {
        return NumberFault{rule::SmallAmount, printed(number * TenThousand)};
    }
    return std::nullopt;
}

/// Behind a number: a unit's factor; 0 where it is no unit.
double factorOf(const QString& unit)
{
    static const QMap<QString, double> factors = {{QString(), 1},
                                                  {QStringLiteral("%"), 1},
                                                  {QStringLiteral("万"), TenThousand},
                                                  {QStringLiteral("w"), TenThousand},
                                                  {QStringLiteral("亿"), HundredMillion},
                                                  {QStringLiteral("千"), 1e3},
                                                  {QStringLiteral("百"), 1e2},
                                                  {QStringLiteral("k"), 1e3}};
    QString word = unit.toLower();
    for (const char* counted : {"元", "股", "手", "张", "份", "rmb", "cny", "秒", "s"}) {
        const QString name = QString::fromUtf8(counted);
        if (word.endsWith(name)) {
            word.chop(name.size());
            break;
        }
    }
    return factors.value(word, 0);
}

} // namespace

QString plausibleNumber(const QString& text, NumberKind kind)
{
    static const QRegularExpression pattern(
        QStringLiteral("^([(+-]?)(?:cny|rmb)?([0-9][0-9.]*)([^0-9.()]*)\\)?$"),
        QRegularExpression::CaseInsensitiveOption);
    QString plain;
    for (const QChar c : text.normalized(QString::NormalizationForm_KC)) {
        const bool isDecoration = c.isSpace() || c == QLatin1Char(',') || c == QLatin1Char('\'') ||
                                  c.category() == QChar::Symbol_Currency ||
                                  c.category() == QChar::Other_Format;
        if (!isDecoration) {
            plain.append(c);
        }
    }
    const QRegularExpressionMatch match = pattern.match(plain);
    const double factor = match.hasMatch() ? factorOf(match.captured(3)) : 0;
    QString digits = match.captured(2);
    if (kind == NumberKind::Whole && hasPointsForGroups(digits)) {
        digits.remove(QLatin1Char('.'));
    }
    bool isNumber = false;
    const double number = digits.toDouble(&isNumber);
    if (!(factor > 0) || !isNumber) {
        return QString();
    }
    const bool isNegative =
        match.captured(1) == QLatin1String("-") || match.captured(1) == QLatin1String("(");
    return printed(isNegative ? -number * factor : number * factor);
}

std::optional<NumberFault> faultOfNumber(const QString& text, NumberKind kind)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber); // as the import reads it
    if (!isNumber) {
        return NumberFault{invalidRule(kind), plausibleNumber(text, kind)};
    }
    return fits(number, kind) ? faultOfFinite(text, number, kind) : NumberFault{rule::OutOfRange, QString()};
}

std::optional<NumberFault> faultOfRate(const QString& text)
{
    const double rate = text.toDouble(); // 0 is no limit, and others say so
    if (rate > HighestRate) {
        return NumberFault{rule::OddRate, printed(rate / 100)};
    }
    return rate > 0.0 && rate < LowestRate ? std::optional(NumberFault{rule::OddRate, printed(rate * 100)})
                                           : std::nullopt;
}

std::optional<NumberFault> faultOfDecimals(const QString& text, int precision)
{
    bool isNumber = false;
    const double price = text.toDouble(&isNumber);
    const QString taken = QString::number(price, 'f', precision);
    const bool isRounded = isNumber && std::isfinite(price) && std::fabs(taken.toDouble() - price) > Noise;
    return isRounded ? std::optional(NumberFault{rule::RoundedPrice, taken}) : std::nullopt;
}

std::optional<NumberFault> faultOfLot(const QString& text, const KnownSecurity& security, bool sells)
{
    const double number = text.toDouble();
    if (!(number > 0.0) || security.quantityStep <= 0 || hasFraction(number) ||
        number > std::numeric_limits<qint32>::max()) {
        return std::nullopt; // others say so
    }
    const qint64 quantity = qRound64(number);
    const bool isWhole = quantity >= security.leastQuantity && quantity % security.quantityStep == 0;
    if (isWhole) {
        return std::nullopt;
    }
    const qint64 step = security.quantityStep;
    const qint64 below = std::max(qint64(security.leastQuantity), quantity / step * step);
    return NumberFault{sells && security.hasOddLots ? rule::OddLotSold : rule::NoWholeLot,
                       QString::number(below)};
}

bool showsAnother(const QString& shown, const QString& text, NumberKind kind, int precision)
{
    bool isNumber = false;
    double taken = text.toDouble(&isNumber);
    if (kind == NumberKind::Price) {
        const double scale = std::pow(10.0, precision);
        taken = std::round(taken * scale) / scale;
    } else if (kind == NumberKind::Whole) {
        taken = std::trunc(taken + std::copysign(Noise, taken));
    }
    QString plain = shown;
    plain.remove(QLatin1Char(','));
    bool isPlain = false;
    const double told = plain.trimmed().toDouble(&isPlain);
    return !isNumber || !isPlain || std::fabs(told - taken) > 1e-9 * std::max(1.0, std::fabs(taken));
}

} // namespace table_lint
