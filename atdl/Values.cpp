#include "atdl/Values.h"

#include <QDateTime>
#include <QTimeZone>

namespace atdl {

namespace {

constexpr int ShanghaiOffset = 8 * 3600;
constexpr int SecondsOfDay = 24 * 3600;

/// Seconds east of UTC, where they are the same all year.
bool hasOneOffset(const QTimeZone& zone, int& seconds)
{
    const int year = QDate::currentDate().year();
    const auto offset = [&](int month) {
        return zone.offsetFromUtc(QDateTime(QDate(year, month, 1), QTime(12, 0), Qt::UTC));
    };
    seconds = offset(1);
    return offset(4) == seconds && offset(7) == seconds && offset(10) == seconds;
}

} // namespace

QString hundredfold(const QString& number)
{
    const bool isNegative = number.startsWith(QLatin1Char('-'));
    const QString plain = isNegative ? number.mid(1) : number;
    QString whole = plain.section(QLatin1Char('.'), 0, 0);
    QString fraction = plain.section(QLatin1Char('.'), 1, 1).leftJustified(2, QLatin1Char('0'));
    whole += fraction.left(2);
    fraction = fraction.mid(2);
    while (fraction.endsWith(QLatin1Char('0'))) {
        fraction.chop(1);
    }
    while (whole.size() > 1 && whole.startsWith(QLatin1Char('0'))) {
        whole.remove(0, 1);
    }
    const QString text = fraction.isEmpty() ? whole : whole + QLatin1Char('.') + fraction;
    return isNegative ? QLatin1Char('-') + text : text;
}

QTime timeOf(const QString& text, bool& isUtc)
{
    isUtc = text.endsWith(QLatin1Char('Z'));
    const QString plain = isUtc ? text.left(text.size() - 1) : text;
    const QTime time = QTime::fromString(plain, QStringLiteral("HH:mm:ss"));
    return time.isValid() ? time : QTime::fromString(plain, QStringLiteral("HH:mm:ss.zzz"));
}

QDate dateOf(const QString& text)
{
    const QDate date = QDate::fromString(text, QStringLiteral("yyyyMMdd"));
    return date.isValid() ? date : QDate::fromString(text, Qt::ISODate);
}

bool isKnownZone(const QString& zone)
{
    return QTimeZone(zone.toUtf8()).isValid();
}

QTime inShanghai(const QTime& time, const QString& zone)
{
    const QTimeZone known(zone.toUtf8());
    int seconds = 0;
    if (!known.isValid() || !hasOneOffset(known, seconds)) {
        return QTime();
    }
    return time.addSecs((ShanghaiOffset - seconds) % SecondsOfDay);
}

bool isTrue(const QString& text)
{
    return text == QLatin1String("true") || text == QLatin1String("1") || text == QLatin1String("Y");
}

} // namespace atdl
