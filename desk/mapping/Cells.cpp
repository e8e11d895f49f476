#include "desk/mapping/Cells.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

namespace mapping {

namespace {

const QChar LegSeparator = QLatin1Char('/');
const QString Written = QStringLiteral("yyyy-MM-dd HH:mm:ss");

QString narrow(const QString& text)
{
    return text.normalized(QString::NormalizationForm_KC).trimmed();
}

/// Digits in groups of three, and what stands behind a point.
struct Grouped {
    QString whole; ///< without the separators, with its sign
    QString fraction;
    int groups = 0; ///< behind the first
};

std::optional<Grouped> grouped(const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^([+-]?)(\\d{1,3}(?:[, ]\\d{3})+|\\d+)(?:\\.(\\d+))?$"));
    const QRegularExpressionMatch match = pattern.match(narrow(text));
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    QString digits = match.captured(2);
    const int groups = digits.count(QLatin1Char(',')) + digits.count(QLatin1Char(' '));
    const bool isMixed = digits.contains(QLatin1Char(',')) && digits.contains(QLatin1Char(' '));
    if (isMixed || (groups > 0 && digits.startsWith(QLatin1Char('0')))) {
        return std::nullopt;
    }
    digits.remove(QLatin1Char(',')).remove(QLatin1Char(' '));
    const QString sign = match.captured(1) == QLatin1String("-") ? QStringLiteral("-") : QString();
    return Grouped{sign + digits, match.captured(3), groups};
}

bool isZero(const QString& fraction)
{
    return fraction.count(QLatin1Char('0')) == fraction.size();
}

QString withFraction(const Grouped& number)
{
    return number.fraction.isEmpty() ? number.whole : number.whole + QLatin1Char('.') + number.fraction;
}

QDate dateOf(const QRegularExpressionMatch& match, DateOrder order)
{
    const QString compact = match.captured(QStringLiteral("compact"));
    if (!compact.isEmpty()) {
        return QDate::fromString(compact, QStringLiteral("yyyyMMdd"));
    }
    const QString year = match.captured(QStringLiteral("year"));
    if (!year.isEmpty()) {
        return {year.toInt(), match.captured(QStringLiteral("month")).toInt(),
                match.captured(QStringLiteral("day")).toInt()};
    }
    const int first = match.captured(QStringLiteral("first")).toInt();
    const int second = match.captured(QStringLiteral("second")).toInt();
    const int last = match.captured(QStringLiteral("last")).toInt();
    switch (order) {
    case DateOrder::DayFirst:
        return {last, second, first};
    case DateOrder::MonthFirst:
        return {last, first, second};
    case DateOrder::YearFirst:
        break;
    }
    return {};
}

QTime timeOf(const QRegularExpressionMatch& match)
{
    const QString compact = match.captured(QStringLiteral("clock"));
    if (!compact.isEmpty()) {
        return QTime::fromString(compact.leftJustified(6, QLatin1Char('0')), QStringLiteral("HHmmss"));
    }
    int hour = match.captured(QStringLiteral("hour")).toInt();
    const QString half = match.captured(QStringLiteral("half")).toUpper();
    if (!half.isEmpty() && (hour < 1 || hour > 12)) {
        return {};
    }
    if (!half.isEmpty()) {
        hour = hour % 12 + (half == QLatin1String("PM") ? 12 : 0);
    }
    return {hour, match.captured(QStringLiteral("minute")).toInt(),
            match.captured(QStringLiteral("seconds")).toInt()};
}

QStringList exchangesOf(const QString& spelling, const Surroundings& surroundings)
{
    const QString key = spelling.toUpper();
    return surroundings.postfixes.value(key, surroundings.markets.value(key));
}

QString told(const Column& column, const QString& text, const Surroundings& surroundings)
{
    switch (column.form) {
    case Form::Code:
        return codeOf(text, surroundings).code;
    case Form::Quantity:
        return quantityOf(text).value_or(text);
    case Form::Amount:
        return amountOf(text).value_or(text);
    case Form::Decimal:
        return decimalOf(text).value_or(text);
    case Form::DateTime:
        return dateTimeOf(text, column.order, surroundings.today).value_or(text);
    case Form::AsIs:
        break;
    }
    return text;
}

std::optional<QString> byValues(const Column& column, const QString& text)
{
    for (auto value = column.values.cbegin(); value != column.values.cend(); ++value) {
        if (folded(value.key()) == folded(text)) {
            return *value;
        }
    }
    return std::nullopt;
}

} // namespace

QString folded(const QString& text)
{
    return narrow(text).toCaseFolded();
}

CodeAndMarket codeOf(const QString& text, const Surroundings& surroundings)
{
    static const QRegularExpression behind(QStringLiteral("^(\\S+)[. :@-]([A-Za-z]{2,4})$"));
    static const QRegularExpression before(QStringLiteral("^([A-Za-z]{2,4})[. :-]?(\\d{4,6})$"));
    const QString plain = narrow(text);
    const QRegularExpressionMatch suffix = behind.match(plain);
    const QRegularExpressionMatch prefix = before.match(plain);
    const QStringList named = suffix.hasMatch()   ? exchangesOf(suffix.captured(2), surroundings)
                              : prefix.hasMatch() ? exchangesOf(prefix.captured(1), surroundings)
                                                  : QStringList();
    if (named.isEmpty()) {
        return {text, {}};
    }
    return {suffix.hasMatch() ? suffix.captured(1) : prefix.captured(2), named};
}

std::optional<QString> quantityOf(const QString& text)
{
    const std::optional<Grouped> number = grouped(text);
    const bool mayBeGroup = number && number->groups == 0 && number->fraction.size() == 3; // 1.000
    if (!number || mayBeGroup || !isZero(number->fraction)) {
        return std::nullopt;
    }
    return number->whole;
}

std::optional<QString> amountOf(const QString& text)
{
    const std::optional<Grouped> number = grouped(text);
    return number && number->fraction.size() <= 2 ? std::optional(withFraction(*number)) : std::nullopt;
}

// Without a point, one group of three may be the fraction of a land that writes it behind a comma.
std::optional<QString> decimalOf(const QString& text)
{
    const std::optional<Grouped> number = grouped(text);
    if (!number || (number->groups == 1 && number->fraction.isEmpty())) {
        return std::nullopt;
    }
    return withFraction(*number);
}

std::optional<QString> dateTimeOf(const QString& text, DateOrder order, const QDate& today)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(?:(?:(?<compact>\\d{8})"
                       "|(?<year>\\d{4})(?:[-/.]|年 ?)(?<month>\\d{1,2})(?:[-/.]|月 ?)(?<day>\\d{1,2})日?"
                       "|(?<first>\\d{1,2})[-/.](?<second>\\d{1,2})[-/.](?<last>\\d{4}))(?: +|T|(?<=日)))?"
                       "(?:(?<clock>\\d{4}|\\d{6})"
                       "|(?<hour>\\d{1,2}):(?<minute>\\d{2})(?::(?<seconds>\\d{2})(?:\\.0+)?)?(?: "
                       "?(?<half>[AaPp][Mm]))?)$"));
    const QRegularExpressionMatch match = pattern.match(narrow(text));
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const bool hasDate = !match.captured(QStringLiteral("compact")).isEmpty() ||
                         !match.captured(QStringLiteral("year")).isEmpty() ||
                         !match.captured(QStringLiteral("first")).isEmpty();
    const bool isBareNumber = !hasDate && !match.captured(QStringLiteral("clock")).isEmpty();
    const QDateTime moment(hasDate ? dateOf(match, order) : today, timeOf(match), Qt::UTC);
    if (isBareNumber || !moment.isValid() || !moment.date().isValid() || !timeOf(match).isValid()) {
        return std::nullopt;
    }
    return QLocale::c().toString(moment, Written);
}

QString toldAnew(const Column& column, const QString& text, const Surroundings& surroundings)
{
    const QString bare = text.trimmed();
    if (bare.isEmpty()) {
        return QString();
    }
    if (const std::optional<QString> whole = byValues(column, bare)) {
        return *whole;
    }
    if (column.values.isEmpty() || bare.count(LegSeparator) != 1) {
        return told(column, text, surroundings);
    }
    const std::optional<QString> first = byValues(column, bare.section(LegSeparator, 0, 0));
    const std::optional<QString> second = byValues(column, bare.section(LegSeparator, 1));
    return first && second ? *first + LegSeparator + *second : told(column, text, surroundings);
}

} // namespace mapping
