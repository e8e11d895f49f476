#include "gateway/messages/FieldValue.h"

#include "gateway/messages/RefusalTexts.h"
#include "gateway/messages/WireNumber.h"
#include "words/Words.h"

#include <QLocale>
#include <QTime>

#include <algorithm>

namespace gateway {

namespace {

const int ShanghaiOffset = 8 * 60 * 60;
const int DateLength = 10;

Outcome<QString> found(const QString& text)
{
    return {text, QString()};
}

Outcome<QString> refused(const ParameterRule& rule, const QString& value, const QString& wanted)
{
    return {QString(), texts::wrongValue(rule.paramId, value, wanted)};
}

/// A moment in Shanghai, with or without a fraction; invalid where the text is none.
QDateTime shanghaiTime(const QString& text)
{
    const QString format = text.contains(QLatin1Char('.')) ? QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz")
                                                           : QStringLiteral("yyyy-MM-dd HH:mm:ss");
    const QDateTime parsed = QDateTime::fromString(text, format);
    return QDateTime(parsed.date(), parsed.time(), Qt::OffsetFromUTC, ShanghaiOffset);
}

QTime shanghaiClock(const QString& text)
{
    const QString clock = text.size() > DateLength ? text.mid(DateLength + 1) : text;
    return QTime::fromString(clock, clock.contains(QLatin1Char('.')) ? QStringLiteral("HH:mm:ss.zzz")
                                                                     : QStringLiteral("HH:mm:ss"));
}

/// Seconds, and milliseconds where there are some.
QString clockFormat(const QTime& time)
{
    return time.msec() == 0 ? QStringLiteral("HH:mm:ss") : QStringLiteral("HH:mm:ss.zzz");
}

Outcome<QString> timestampOf(const ParameterRule& rule, const QString& value)
{
    const QDateTime utc = shanghaiTime(value).toUTC();
    return utc.isValid() ? found(utc.toString(QStringLiteral("yyyyMMdd-") + clockFormat(utc.time())))
                         : refused(rule, value, Words::tr("日期时间"));
}

Outcome<QString> timeOf(const ParameterRule& rule, const QString& value)
{
    const bool hasDate = value.size() > DateLength && value.at(4) == QLatin1Char('-');
    const QTime local = hasDate && !shanghaiTime(value).isValid() ? QTime() : shanghaiClock(value);
    if (!local.isValid()) {
        return refused(rule, value, Words::tr("时间"));
    }
    const QTime utc = local.addSecs(-ShanghaiOffset);
    return found(utc.toString(clockFormat(utc)));
}

Outcome<QString> dateOf(const ParameterRule& rule, const QString& value)
{
    const bool hasTime = value.size() > DateLength;
    const QDate date =
        hasTime ? shanghaiTime(value).date() : QDate::fromString(value, QStringLiteral("yyyy-MM-dd"));
    return date.isValid() ? found(date.toString(QStringLiteral("yyyyMMdd")))
                          : refused(rule, value, Words::tr("日期"));
}

Outcome<QString> booleanOf(const ParameterRule& rule, const QString& value)
{
    if (value == QLatin1String("1") || value == QLatin1String("Y")) {
        return found(QStringLiteral("Y"));
    }
    if (value == QLatin1String("0") || value == QLatin1String("N")) {
        return found(QStringLiteral("N"));
    }
    return refused(rule, value, Words::tr("1 或 0"));
}

/// What a field can hold.
bool isPlain(const QString& value)
{
    return std::none_of(value.begin(), value.end(), [](QChar one) { return one.unicode() < 0x20; });
}

Outcome<QString> typed(const ParameterRule& rule, const QString& value)
{
    switch (rule.type) {
    case ValueType::Int:
    case ValueType::Length:
    case ValueType::NumInGroup:
    case ValueType::SeqNum:
    case ValueType::TagNum:
        return wire_number::isInteger(value) ? found(value) : refused(rule, value, Words::tr("整数"));
    case ValueType::Float:
    case ValueType::Qty:
    case ValueType::Price:
    case ValueType::PriceOffset:
    case ValueType::Amt:
        return wire_number::isNumber(value) ? found(value) : refused(rule, value, Words::tr("数字"));
    case ValueType::Percentage:
        return wire_number::isNumber(value) ? found(wire_number::hundredth(value))
                                            : refused(rule, value, Words::tr("数字"));
    case ValueType::Char:
        return value.size() == 1 && value.at(0).unicode() < 0x7f
                   ? found(value)
                   : refused(rule, value, Words::tr("单个字符"));
    case ValueType::Boolean:
        return booleanOf(rule, value);
    case ValueType::UtcTimestamp:
        return timestampOf(rule, value);
    case ValueType::UtcTimeOnly:
        return timeOf(rule, value);
    case ValueType::LocalMktDate:
        return dateOf(rule, value);
    case ValueType::String:
    case ValueType::MultipleCharValue:
    case ValueType::MultipleStringValue:
    case ValueType::Currency:
    case ValueType::Exchange:
    case ValueType::MonthYear:
    case ValueType::Country:
    case ValueType::Language:
    case ValueType::Tenor:
        break;
    }
    return found(value);
}

} // namespace

QString textOf(const QVariant& value)
{
    if (value.type() == QVariant::Double) {
        return QLocale::c()
            .toString(value.toDouble(), 'f', QLocale::FloatingPointShortest)
            .remove(QLatin1Char(','));
    }
    return value.toString();
}

Outcome<QString> wireValue(const ParameterRule& rule, const QString& value)
{
    if (!isPlain(value)) {
        return refused(rule, value, Words::tr("不含控制字符的文本"));
    }
    if (!rule.values.isEmpty() && !rule.values.contains(value)) {
        return {QString(), texts::unknownValue(rule.paramId, value)};
    }
    return typed(rule, rule.values.value(value, value));
}

QString utcTimestamp(const QDateTime& time)
{
    return time.toUTC().toString(QStringLiteral("yyyyMMdd-HH:mm:ss.zzz"));
}

} // namespace gateway
