#include "embedded_host/table_reader/shared/NumberText.h"

#include <QDate>
#include <QDateTime>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace table_reader {
namespace {

constexpr qint64 DayMilliseconds = qint64(24) * 60 * 60 * 1000;
constexpr double LastSerial1900 = 2958466; // the day after 31 December 9999
constexpr qint64 LeapDay1900 = 60;

QString padded(qint64 value, int width)
{
    return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
}

QString clockText(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / 1000;
    return padded(seconds / 3600, 2) + QLatin1Char(':') + padded(seconds / 60 % 60, 2) + QLatin1Char(':') +
           padded(seconds % 60, 2);
}

/// For a time below a day that may have been rounded up to a whole one.
QString timeOfDayText(qint64 milliseconds)
{
    return clockText(std::min(milliseconds, DayMilliseconds - 1));
}

QString dateText(int year, int month, int day, qint64 milliseconds)
{
    return padded(year, 4) + QLatin1Char('-') + padded(month, 2) + QLatin1Char('-') + padded(day, 2) +
           QLatin1Char('T') + clockText(milliseconds) + QLatin1Char('.') + padded(milliseconds % 1000, 3);
}

QString serialText(qint64 days, qint64 milliseconds, DateSystem system)
{
    if (system == DateSystem::From1904) {
        const QDate date = QDate(1904, 1, 1).addDays(days);
        return dateText(date.year(), date.month(), date.day(), milliseconds);
    }
    if (days == LeapDay1900) {
        return dateText(1900, 2, 29, milliseconds);
    }
    const QDate date = QDate(1899, 12, days < LeapDay1900 ? 31 : 30).addDays(days);
    return dateText(date.year(), date.month(), date.day(), milliseconds);
}

bool isTimeAlone(double value, NumberFormat format, DateSystem system)
{
    return value < 1 && (format != NumberFormat::Date || system == DateSystem::From1900);
}

} // namespace

std::optional<double> parseNumber(const QStringRef& text)
{
    std::array<char, 400> ascii;
    int length = 0;
    const QStringRef trimmed = text.trimmed();
    if (trimmed.size() > static_cast<int>(ascii.size())) {
        return std::nullopt;
    }
    for (const QChar c : trimmed) {
        ascii[static_cast<size_t>(length++)] = c.unicode() < 0x80 ? static_cast<char>(c.unicode()) : '?';
    }
    const char* begin = ascii.data();
    const char* const end = begin + length;
    if (length > 1 && *begin == '+' && begin[1] != '-') {
        ++begin;
    }
    double value = 0;
    const std::from_chars_result result = std::from_chars(begin, end, value);
    if (result.ec == std::errc::result_out_of_range && result.ptr == end) {
        const bool isTiny = trimmed.contains(QLatin1String("e-"), Qt::CaseInsensitive);
        return isTiny ? std::optional<double>(0) : std::nullopt;
    }
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

bool isShortestNumber(const QStringRef& text)
{
    constexpr int SafeDigits = 15; // different decimals of so few digits are different doubles
    const int begin = text.startsWith(QLatin1Char('-')) ? 1 : 0;
    int point = -1;
    for (int i = begin; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('.') && point < 0) {
            point = i;
        } else if (c < QLatin1Char('0') || c > QLatin1Char('9')) {
            return false;
        }
    }
    const int whole = (point < 0 ? text.size() : point) - begin;
    const bool leadingZero = whole > 1 && text.at(begin) == QLatin1Char('0');
    const bool digitsBehind = point >= 0 && point + 1 < text.size() && !text.endsWith(QLatin1Char('0'));
    const bool digitsOnly = point < 0 && text.size() > begin && text.at(begin) != QLatin1Char('0');
    return text.size() <= SafeDigits && whole > 0 && !leadingZero && (digitsBehind || digitsOnly);
}

QString numberText(double value)
{
    if (value == 0) {
        return QStringLiteral("0"); // minus zero too
    }
    std::array<char, 512> text;
    const std::to_chars_result result =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return QString::fromLatin1(text.data(), static_cast<int>(result.ptr - text.data()));
}

QString boolText(bool value)
{
    return value ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
}

QString shownNumber(double value, NumberFormat format, DateSystem system)
{
    constexpr double Offset1904 = 1462;
    const double last = system == DateSystem::From1904 ? LastSerial1900 - Offset1904 : LastSerial1900;
    if (format == NumberFormat::Plain || !(value >= 0 && value < last)) {
        return numberText(value);
    }
    const qint64 total = std::llround(value * static_cast<double>(DayMilliseconds));
    if (format == NumberFormat::Elapsed) {
        return clockText(total);
    }
    if (isTimeAlone(value, format, system)) {
        return timeOfDayText(total);
    }
    const qint64 days = total / DayMilliseconds;
    return static_cast<double>(days) < last ? serialText(days, total % DayMilliseconds, system)
                                            : numberText(value);
}

QString isoDateText(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral(
        "^(?:(\\d{4})-(\\d{2})-(\\d{2}))?(?:(?:^|T| )(\\d{2}):(\\d{2})(?::(\\d{2}(?:[.,]\\d+)?))?)?"
        "(?:Z|[+-]\\d{2}:?\\d{2})?$"));
    constexpr int Longest = 40; // longer than any with a sensible fraction of a second
    const QString trimmed = text.trimmed();
    const QRegularExpressionMatch match = pattern.match(trimmed.left(Longest + 1));
    const bool hasDate = !match.capturedRef(1).isEmpty();
    const bool hasTime = !match.capturedRef(4).isEmpty();
    if (trimmed.size() > Longest || (!hasDate && !hasTime)) {
        return text;
    }
    const QString seconds = match.captured(6).replace(QLatin1Char(','), QLatin1Char('.'));
    const double clock =
        (match.capturedRef(4).toInt() * 60 + match.capturedRef(5).toInt()) * 60 + seconds.toDouble();
    if (!hasDate) {
        return timeText(clock);
    }
    QDate date(match.capturedRef(1).toInt(), match.capturedRef(2).toInt(), match.capturedRef(3).toInt());
    if (!date.isValid()) {
        return text;
    }
    const qint64 milliseconds = std::llround(clock * 1000);
    date = date.addDays(milliseconds / DayMilliseconds);
    return dateText(date.year(), date.month(), date.day(), milliseconds % DayMilliseconds);
}

QString timeText(double seconds)
{
    constexpr double DaySeconds = 24 * 60 * 60;
    const qint64 milliseconds = std::llround(seconds * 1000);
    return seconds < DaySeconds ? timeOfDayText(milliseconds) : clockText(milliseconds);
}

} // namespace table_reader
