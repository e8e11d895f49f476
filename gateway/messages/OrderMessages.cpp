#include "gateway/messages/OrderMessages.h"

#include "gateway/messages/FieldValue.h"
#include "gateway/messages/OrderParameters.h"
#include "gateway/messages/RefusalTexts.h"

#include <algorithm>
#include <set>

namespace gateway {

namespace {

const int SideTag = 54;
const int PositionEffectTag = 77;

std::string wire(const QString& text)
{
    return text.toStdString();
}

void put(Fields& fields, int tag, const QString& value)
{
    fields.push_back({tag, wire(value)});
}

void putAll(Fields& fields, const QList<Constant>& constants)
{
    for (const Constant& one : constants) {
        put(fields, one.tag, one.value);
    }
}

/// HandlInst or TimeInForce, unless the strategy says otherwise.
void putUnlessReplaced(Fields& fields, const StrategyRule& rule, int tag, const char* value)
{
    const bool isReplaced = std::any_of(rule.fields.begin(), rule.fields.end(),
                                        [tag](const Constant& one) { return one.tag == tag; });
    if (!isReplaced) {
        fields.push_back({tag, value});
    }
}

Group groupOf(const QList<StrategyEntry>& entries)
{
    Group group;
    group.countTag = 957;
    for (const StrategyEntry& entry : entries) {
        group.entries.push_back({{958, wire(entry.name)},
                                 {959, std::to_string(static_cast<int>(entry.type))},
                                 {960, wire(entry.value)}});
    }
    return group;
}

Fields fieldsOfLeg(const OrderLeg& leg, int number, const QList<Constant>& parameters)
{
    Fields fields;
    put(fields, 600, leg.symbol);
    put(fields, 616, leg.exchange);
    put(fields, 624, leg.sideField(SideTag));
    put(fields, 687, leg.quantity);
    if (!leg.limitPrice.isEmpty()) {
        put(fields, 566, leg.limitPrice);
    }
    fields.push_back({654, std::to_string(number)});
    const QString positionEffect = leg.sideField(PositionEffectTag);
    if (!positionEffect.isEmpty()) {
        put(fields, 564, positionEffect);
    }
    putAll(fields, parameters);
    return fields;
}

Group legsOf(const OrderHead& head, const StrategyFields& strategy)
{
    Group group;
    group.countTag = 555;
    for (int i = 0; i < head.legs.size(); ++i) {
        group.entries.push_back(fieldsOfLeg(head.legs.at(i), i + 1, strategy.ofLegs.at(i)));
    }
    return group;
}

/// What a direction says beside side and position effect stands once, where the legs agree; the tag on which
/// they do not, or 0.
int putCommonSide(Fields& fields, const OrderHead& head)
{
    for (const OrderLeg& leg : head.legs) {
        for (const Constant& one : leg.side) {
            const bool isOfLeg = one.tag == SideTag || one.tag == PositionEffectTag;
            const bool agree = std::all_of(head.legs.begin(), head.legs.end(), [&](const OrderLeg& other) {
                return other.sideField(one.tag) == one.value;
            });
            if (!isOfLeg && !agree) {
                return one.tag;
            }
            if (!isOfLeg && &leg == &head.legs.first()) {
                put(fields, one.tag, one.value);
            }
        }
    }
    return 0;
}

bool hasLimit(const OrderHead& head)
{
    return std::any_of(head.legs.begin(), head.legs.end(),
                       [](const OrderLeg& leg) { return !leg.limitPrice.isEmpty(); });
}

void putSizeAndPrice(Fields& fields, const OrderHead& head)
{
    const OrderLeg& leg = head.legs.first();
    if (head.legs.size() == 1 && leg.quantity.isEmpty()) {
        put(fields, 152, head.amount);
    } else if (head.legs.size() == 1) {
        put(fields, 38, leg.quantity);
    }
    fields.push_back({40, hasLimit(head) ? "2" : "1"});
    if (head.legs.size() == 1 && !leg.limitPrice.isEmpty()) {
        put(fields, 44, leg.limitPrice);
    }
}

/// The tag that stands twice; 0: none.
int doubledTag(const Fields& fields)
{
    std::set<int> seen;
    for (const Field& field : fields) {
        if (!seen.insert(field.tag).second) {
            return field.tag;
        }
    }
    return 0;
}

/// The body of an order; the tag on which its two sides do not agree, or 0.
int putBody(Fields& body, const StrategyRule& rule, const Order& order, const OrderHead& head,
            const QDateTime& now)
{
    put(body, 11, clOrdIdOf(order));
    put(body, 1, head.account);
    putUnlessReplaced(body, rule, 21, "1");
    put(body, 55, head.legs.first().symbol);
    put(body, 207, head.legs.first().exchange);
    int disagreed = 0;
    if (head.legs.size() == 1) {
        putAll(body, head.legs.first().side);
    } else {
        body.push_back({SideTag, "B"});
        disagreed = putCommonSide(body, head);
    }
    putSizeAndPrice(body, head);
    putUnlessReplaced(body, rule, 59, "0");
    put(body, 60, utcTimestamp(now));
    putAll(body, rule.fields);
    return disagreed;
}

QString faultOf(const Message& message, int disagreed)
{
    if (disagreed != 0) {
        return texts::sidesDisagree(disagreed);
    }
    int doubled = doubledTag(message.body);
    for (const Group& group : message.groups) {
        for (const Fields& entry : group.entries) {
            doubled = doubled == 0 ? doubledTag(entry) : doubled;
        }
    }
    return doubled == 0 ? QString() : texts::twice(doubled);
}

Outcome<Message> orderOf(const StrategyRule& rule, const Order& order, const OrderHead& head,
                         const StrategyFields& strategy, const QDateTime& now)
{
    Message message;
    message.type = head.legs.size() == 1 ? "D" : "AB";
    const int disagreed = putBody(message.body, rule, order, head, now);
    putAll(message.body, strategy.fields);
    if (head.legs.size() > 1) {
        message.groups.push_back(legsOf(head, strategy));
    }
    if (!strategy.entries.isEmpty()) {
        message.groups.push_back(groupOf(strategy.entries));
    }
    const QString fault = faultOf(message, disagreed);
    return fault.isEmpty() ? Outcome<Message>{message, QString()} : Outcome<Message>{{}, fault};
}

void copy(const Message& from, Message& to, int tag)
{
    if (const std::string* value = from.find(tag)) {
        to.put(tag, *value);
    }
}

} // namespace

Outcome<Message> newOrder(const Profile& profile, const Order& order, const QDateTime& now)
{
    const auto rule = profile.strategies.find(order.strategy);
    if (rule == profile.strategies.end()) {
        return {{}, texts::unknownStrategy(order.strategy)};
    }
    const Outcome<OrderHead> head = headOf(profile, order);
    if (!head.ok()) {
        return {{}, head.error};
    }
    const Outcome<StrategyFields> strategy = strategyFieldsOf(*rule, order, head.value);
    return strategy.ok() ? orderOf(*rule, order, head.value, strategy.value, now)
                         : Outcome<Message>{{}, strategy.error};
}

Message repeated(Message order)
{
    order.header.push_back({97, "Y"});
    return order;
}

Message cancelRequest(const Message& order, const QString& cancelId, const QDateTime& now)
{
    Message message;
    message.type = "F";
    message.put(11, wire(cancelId));
    message.put(41, order.text(11));
    for (const int tag : {1, 55, 207, SideTag, 38, 152}) {
        copy(order, message, tag);
    }
    message.put(60, wire(utcTimestamp(now)));
    return message;
}

Message statusRequest(const Message& order, const QString& requestId)
{
    Message message;
    message.type = "H";
    message.put(11, order.text(11));
    message.put(790, wire(requestId));
    copy(order, message, 55);
    copy(order, message, SideTag);
    return message;
}

QHash<int, QString> refusalsOf(const Profile& profile, const QList<Order>& batch, const QDateTime& now)
{
    QHash<int, QString> refusals;
    QHash<QString, QString> refusedPairs;
    for (const Order& order : batch) {
        const QString error = newOrder(profile, order, now).error;
        if (!error.isEmpty()) {
            refusals.insert(order.row, error);
            refusedPairs.insert(pairNumberOf(order), error);
        }
    }
    refusedPairs.remove(QString());
    for (const Order& order : batch) {
        const QString pair = pairNumberOf(order);
        if (refusedPairs.contains(pair) && !refusals.contains(order.row)) {
            refusals.insert(order.row, texts::pairRefused(pair, refusedPairs.value(pair)));
        }
    }
    return refusals;
}

} // namespace gateway
