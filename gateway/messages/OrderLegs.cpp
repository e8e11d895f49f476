#include "gateway/messages/OrderLegs.h"

#include "gateway/messages/FieldValue.h"
#include "gateway/messages/RefusalTexts.h"
#include "gateway/messages/WireNumber.h"
#include "words/Words.h"

#include <QSet>

#include <algorithm>

namespace gateway {

namespace {

const QString SecurityList = QStringLiteral("证券代码和委托数量");
const QString Symbol = QStringLiteral("证券代码");
const QString Exchange = QStringLiteral("市场");
const QString Account = QStringLiteral("交易账号");
const QString Direction = QStringLiteral("交易方向");
const QString Quantity = QStringLiteral("委托数量");
const QString Amount = QStringLiteral("委托金额");
const QString Limit = QStringLiteral("委托限价");
const QString ShortLimit = QStringLiteral("限价");

QString codeOf(const QString& symbol)
{
    const int point = symbol.lastIndexOf(QLatin1Char('.'));
    return point > 0 ? symbol.left(point) : symbol;
}

QString required(const QString& value, const QString& name)
{
    return value.isEmpty() ? texts::missing(name) : QString();
}

QString positive(const QString& value, const QString& name)
{
    return value.isEmpty() || wire_number::valueOf(value) > 0
               ? QString()
               : texts::wrongValue(name, value, Words::tr("大于零的数字"));
}

/// The first sentence that is none empty.
QString firstOf(const QStringList& sentences)
{
    const auto found = std::find_if(sentences.begin(), sentences.end(),
                                    [](const QString& sentence) { return !sentence.isEmpty(); });
    return found == sentences.end() ? QString() : *found;
}

/// The limit price of a leg as it stands, or none.
QString limitText(const Order& order, const OrderLeg& leg)
{
    const QString limit = valueIn(order, leg, Limit);
    return limit.isEmpty() ? valueIn(order, leg, ShortLimit) : limit;
}

/// Fills in the leg; what lacks, or nothing.
QString fillLeg(const Profile& profile, const Order& order, OrderLeg& leg)
{
    leg.symbol = codeOf(textOf(leg.own.value(Symbol)));
    const QString market = textOf(leg.own.value(Exchange));
    leg.exchange = profile.exchanges.value(market);
    const QString direction = valueIn(order, leg, Direction);
    leg.side = profile.sides.value(direction);
    leg.quantity = valueIn(order, leg, Quantity);
    const QString limit = limitText(order, leg);
    if (!limit.isEmpty() && !wire_number::isNumber(limit)) {
        return texts::wrongValue(Limit, limit, Words::tr("数字"));
    }
    leg.limitPrice = wire_number::valueOf(limit) > 0 ? limit : QString();
    return firstOf(
        {required(leg.symbol, Symbol), required(market, Exchange),
         leg.exchange.isEmpty() ? texts::unknownExchange(market) : QString(), required(direction, Direction),
         leg.side.isEmpty() ? texts::unknownSide(direction) : QString(), positive(leg.quantity, Quantity)});
}

/// Two legs are counted in quantities, one leg in either.
QString sizeFault(const OrderHead& head)
{
    const bool hasAll = std::none_of(head.legs.begin(), head.legs.end(),
                                     [](const OrderLeg& leg) { return leg.quantity.isEmpty(); });
    if (hasAll) {
        return QString();
    }
    return head.legs.size() > 1 || head.amount.isEmpty() ? texts::missing(Quantity)
                                                         : positive(head.amount, Amount);
}

} // namespace

QString OrderLeg::sideField(int tag) const
{
    const auto found =
        std::find_if(side.begin(), side.end(), [tag](const Constant& field) { return field.tag == tag; });
    return found == side.end() ? QString() : found->value;
}

QString valueIn(const Order& order, const OrderLeg& leg, const QString& paramId)
{
    const QString own = textOf(leg.own.value(paramId));
    return own.isEmpty() ? textOf(order.parameters.value(paramId)) : own;
}

bool isConsumedOfInstance(const QString& paramId)
{
    static const QSet<QString> consumed = {SecurityList,
                                           QStringLiteral("sysnodeid"),
                                           QStringLiteral("BatchCreate"),
                                           QStringLiteral("创建后是否立即启动"),
                                           Account,
                                           Direction,
                                           Quantity,
                                           Limit,
                                           ShortLimit,
                                           Amount};
    return consumed.contains(paramId);
}

bool isConsumedOfLeg(const QString& paramId)
{
    static const QSet<QString> consumed = {Symbol,
                                           Exchange,
                                           QStringLiteral("证券账号"),
                                           QStringLiteral("证券子类型"),
                                           QStringLiteral("涨停价"),
                                           QStringLiteral("昨收价")};
    return consumed.contains(paramId) || isConsumedOfInstance(paramId);
}

Outcome<OrderHead> headOf(const Profile& profile, const Order& order)
{
    OrderHead head;
    const QVariantList legs = order.parameters.value(SecurityList).toList();
    if (legs.size() != 1 && legs.size() != 2) {
        return {{}, texts::wrongLegCount(legs.size())};
    }
    for (const QVariant& own : legs) {
        OrderLeg leg;
        leg.own = own.toMap();
        const QString fault = fillLeg(profile, order, leg);
        if (!fault.isEmpty()) {
            return {{}, fault};
        }
        head.legs.append(leg);
    }
    head.account = valueIn(order, head.legs.first(), Account);
    head.amount = valueIn(order, head.legs.first(), Amount);
    const QString fault = firstOf({required(head.account, Account), sizeFault(head)});
    return fault.isEmpty() ? Outcome<OrderHead>{head, QString()} : Outcome<OrderHead>{{}, fault};
}

} // namespace gateway
