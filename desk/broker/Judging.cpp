#include "desk/broker/Judging.h"

#include "gateway/messages/FieldValue.h"
#include "gateway/messages/WireNumber.h"
#include "host/AlgoConstants.h"
#include "table/FaultCatalogue.h"
#include "table/GuardRules.h"
#include "words/Words.h"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>

namespace broker {

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace rule = table::rule;
using gateway::wire_number::isInteger;
using gateway::wire_number::isNumber;
using gateway::wire_number::valueOf;

constexpr int ShanghaiOffset = 8 * 3600;
const QString Layout = QStringLiteral("yyyy-MM-dd HH:mm:ss");

/// The values of one order, as they go out: an instance's own, else its first leg's.
class Values {
public:
    explicit Values(const QMap<QString, QVariant>& parameters) : mParameters(parameters)
    {
        mLegs = parameters.value(Algo_Values::AlgoParamId::AlgoSecurityList).toList();
    }

    /// A limit price that is none counts as absent.
    QString of(const QString& paramId) const
    {
        QString text = gateway::textOf(mParameters.value(paramId));
        for (const QVariant& leg : mLegs) {
            text = text.isEmpty() ? gateway::textOf(leg.toMap().value(paramId)) : text;
        }
        const bool isNoLimit = paramId == Info::PriceLimits && isNumber(text) && valueOf(text) <= 0;
        return isNoLimit ? QString() : text;
    }

    QStringList exchanges() const
    {
        QStringList all;
        for (const QVariant& leg : mLegs) {
            all.append(leg.toMap().value(Info::Exchange).toString());
        }
        return all;
    }

private:
    const QMap<QString, QVariant>& mParameters;
    QVariantList mLegs;
};

table::Fault faultAt(const QString& name, const QString& column, const QStringList& arguments)
{
    table::Fault fault = table::fault(name, arguments);
    fault.column = column;
    return fault;
}

// ---- bounds

int decimalsOf(const QString& number)
{
    QString fraction = number.section(QLatin1Char('.'), 1, 1);
    while (fraction.endsWith(QLatin1Char('0'))) {
        fraction.chop(1);
    }
    return fraction.size();
}

/// What of the order and its bound is compared, in the bound's own terms; empty where it is neither time nor
/// day, which the import has told already.
QString localText(const Bounds& bounds, const QString& value)
{
    QDateTime time = QDateTime::fromString(value, Layout);
    if (!time.isValid()) {
        return QString();
    }
    time = QDateTime(time.date(), time.time(), Qt::OffsetFromUTC, ShanghaiOffset);
    if (bounds.kind == Bounds::Kind::Day) {
        return time.date().toString(Qt::ISODate);
    }
    return time.toTimeZone(QTimeZone(bounds.timeZone.toUtf8())).toString(QStringLiteral("HH:mm:ss"));
}

void checkRange(const Bounds& bounds, const QString& compared, int (*order)(const QString&, const QString&),
                table::Faults& faults)
{
    const QString zone = bounds.kind == Bounds::Kind::Time ? bounds.timeZone + QLatin1Char(' ') : QString();
    if (!bounds.min.isEmpty() && order(compared, bounds.min) < 0) {
        faults.append(faultAt(rule::BelowBroker, bounds.title, {bounds.title, zone + compared, bounds.min}));
    }
    if (!bounds.max.isEmpty() && order(compared, bounds.max) > 0) {
        faults.append(faultAt(rule::AboveBroker, bounds.title, {bounds.title, zone + compared, bounds.max}));
    }
}

int orderOfNumbers(const QString& left, const QString& right)
{
    const ledger::Decimal difference = valueOf(left) - valueOf(right);
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

int orderOfTexts(const QString& left, const QString& right)
{
    return QString::compare(left, right);
}

void checkNumber(const Bounds& bounds, const QString& value, table::Faults& faults)
{
    const bool isWhole = bounds.kind == Bounds::Kind::Integer;
    if (!(isWhole ? isInteger(value) : isNumber(value))) {
        const QString wanted = isWhole ? Words::tr("整数") : Words::tr("数字");
        faults.append(faultAt(rule::NoBrokerValue, bounds.title, {bounds.title, value, wanted}));
        return;
    }
    checkRange(bounds, value, orderOfNumbers, faults);
    if (bounds.decimals >= 0 && decimalsOf(value) > bounds.decimals) {
        faults.append(faultAt(rule::BrokerDecimals, bounds.title,
                              {bounds.title, value, QString::number(bounds.decimals)}));
    }
}

void checkTime(const Bounds& bounds, const QString& value, table::Faults& faults)
{
    const QString local = localText(bounds, value);
    if (!local.isEmpty()) {
        checkRange(bounds, local, orderOfTexts, faults);
    }
}

void checkText(const Bounds& bounds, const QString& value, table::Faults& faults)
{
    const bool isShort = bounds.minLength >= 0 && value.size() < bounds.minLength;
    if (isShort || (bounds.maxLength >= 0 && value.size() > bounds.maxLength)) {
        const int limit = isShort ? bounds.minLength : bounds.maxLength;
        faults.append(faultAt(isShort ? rule::BrokerTextShort : rule::BrokerTextLong, bounds.title,
                              {bounds.title, value, QString::number(limit)}));
    }
}

void checkSeveral(const Bounds& bounds, const QString& value, table::Faults& faults)
{
    for (const QString& word : value.split(QLatin1Char(' '))) {
        if (!bounds.values.contains(word)) {
            faults.append(faultAt(rule::NoBrokerValue, bounds.title,
                                  {bounds.title, word, bounds.values.join(Words::tr("、"))}));
            return;
        }
    }
}

void check(const Bounds& bounds, const QString& value, table::Faults& faults)
{
    switch (bounds.kind) {
    case Bounds::Kind::Integer:
    case Bounds::Kind::Number:
        return checkNumber(bounds, value, faults);
    case Bounds::Kind::Time:
    case Bounds::Kind::Day:
        return checkTime(bounds, value, faults);
    case Bounds::Kind::Text:
        return checkText(bounds, value, faults);
    case Bounds::Kind::Several:
        return checkSeveral(bounds, value, faults);
    }
}

// ---- conditions

using Truth = std::optional<bool>;

Truth truthOf(const Node& node, const Values& values);

bool isMet(const QString& operation, int order)
{
    if (operation == QLatin1String("EQ") || operation == QLatin1String("NE")) {
        return (order == 0) == (operation == QLatin1String("EQ"));
    }
    const bool orEqual = operation.endsWith(QLatin1Char('E'));
    return (orEqual && order == 0) || (operation.startsWith(QLatin1Char('L')) ? order < 0 : order > 0);
}

Truth compared(const Node& node, const Values& values)
{
    const QString left = values.of(node.field);
    const QString right = node.field2.isEmpty() ? node.value : values.of(node.field2);
    const bool areNumbers = isNumber(left) && isNumber(right);
    if (left.isEmpty() || right.isEmpty() || (node.asNumbers && !areNumbers)) {
        return std::nullopt;
    }
    return isMet(node.operation, node.asNumbers ? orderOfNumbers(left, right) : orderOfTexts(left, right));
}

/// True where one is; else, where one is not known, neither.
Truth anyOf(const Node& node, const Values& values, bool wanted)
{
    bool areAllKnown = true;
    for (const Node& one : node.of) {
        const Truth truth = truthOf(one, values);
        if (truth == wanted) {
            return wanted;
        }
        areAllKnown = areAllKnown && truth.has_value();
    }
    return areAllKnown ? Truth(!wanted) : std::nullopt;
}

Truth exactlyOne(const Node& node, const Values& values)
{
    int count = 0;
    for (const Node& one : node.of) {
        const Truth truth = truthOf(one, values);
        if (!truth) {
            return std::nullopt;
        }
        count += *truth ? 1 : 0;
    }
    return count == 1;
}

Truth opposite(Truth truth)
{
    return truth ? Truth(!*truth) : truth;
}

Truth truthOf(const Node& node, const Values& values)
{
    switch (node.kind) {
    case Node::Kind::Always:
        return true;
    case Node::Kind::Never:
        return false;
    case Node::Kind::And:
        return anyOf(node, values, false);
    case Node::Kind::Or:
        return anyOf(node, values, true);
    case Node::Kind::Xor:
        return exactlyOne(node, values);
    case Node::Kind::Not:
        return opposite(truthOf(node.of.first(), values));
    case Node::Kind::Exists:
        return !values.of(node.field).isEmpty();
    case Node::Kind::Lacks:
        return values.of(node.field).isEmpty();
    case Node::Kind::Compare:
        break;
    }
    return compared(node, values);
}

} // namespace

table::Faults faultsOf(const Rules& rules, const QMap<QString, QVariant>& parameters)
{
    const Values values(parameters);
    table::Faults faults;
    for (const QString& exchange : values.exchanges()) {
        if (rules.exchanges && !rules.exchanges->contains(exchange)) {
            faults.append(faultAt(rule::NoBrokerMarket, Info::Exchange, {exchange}));
        }
    }
    for (const Bounds& bounds : rules.parameters) {
        const QString value = values.of(bounds.paramId);
        if (!value.isEmpty()) {
            check(bounds, value, faults);
        }
    }
    for (const Condition& condition : rules.conditions) {
        if (truthOf(condition.holds, values) == false) {
            faults.append(faultAt(rule::BrokerCondition, QString(), {condition.message}));
        }
    }
    return faults;
}

} // namespace broker
