#include "gateway/messages/OrderParameters.h"

#include "gateway/messages/FieldValue.h"
#include "gateway/messages/RefusalTexts.h"

#include <algorithm>

namespace gateway {

namespace {

bool hasValue(const QVariant& value)
{
    return !value.toString().isEmpty() || !value.toList().isEmpty() || !value.toMap().isEmpty();
}

bool isNamed(const StrategyRule& rule, const QString& paramId)
{
    return rule.ignored.contains(paramId) ||
           std::any_of(rule.parameters.begin(), rule.parameters.end(),
                       [&](const ParameterRule& one) { return one.paramId == paramId; });
}

/// The first parameter with a value that nobody takes care of.
QString forgotten(const StrategyRule& rule, const QMap<QString, QVariant>& parameters,
                  bool (*isConsumed)(const QString&))
{
    for (auto it = parameters.begin(); it != parameters.end(); ++it) {
        if (hasValue(it.value()) && !isConsumed(it.key()) && !isNamed(rule, it.key())) {
            return it.key();
        }
    }
    return QString();
}

QString forgotten(const StrategyRule& rule, const Order& order, const OrderHead& head)
{
    QString name = forgotten(rule, order.parameters, isConsumedOfInstance);
    for (const OrderLeg& leg : head.legs) {
        name = name.isEmpty() ? forgotten(rule, leg.own, isConsumedOfLeg) : name;
    }
    return name;
}

/// Puts parameters into their places, one after the other; `error` is the first that found none.
class Mapper {
public:
    Mapper(const Order& order, const OrderHead& head) : mOrder(order), mHead(head)
    {
        for (int i = 0; i < head.legs.size(); ++i) {
            mResult.ofLegs.append(QList<Constant>());
        }
    }

    void map(const ParameterRule& rule)
    {
        if (!rule.constant.isEmpty()) {
            return put(rule, rule.constant);
        }
        QStringList values;
        for (const OrderLeg& leg : mHead.legs) {
            values.append(valueIn(mOrder, leg, rule.paramId));
        }
        if (values.count(values.first()) == values.size()) {
            putOnce(rule, values.first());
        } else if (rule.legTag == 0) {
            mError = texts::legsDisagree(rule.paramId);
        } else {
            putIntoLegs(rule, values);
        }
    }

    const QString& error() const { return mError; }
    const StrategyFields& result() const { return mResult; }

private:
    QString wire(const ParameterRule& rule, const QString& value)
    {
        const Outcome<QString> outcome = wireValue(rule, value);
        mError = mError.isEmpty() ? outcome.error : mError;
        return outcome.value;
    }

    void putOnce(const ParameterRule& rule, const QString& value)
    {
        if (!value.isEmpty()) {
            put(rule, wire(rule, value));
        }
    }

    void put(const ParameterRule& rule, const QString& onWire)
    {
        if (rule.tag != 0) {
            mResult.fields.append({rule.tag, onWire});
        } else {
            mResult.entries.append({rule.name, rule.type, onWire});
        }
    }

    void putIntoLegs(const ParameterRule& rule, const QStringList& values)
    {
        for (int leg = 0; leg < values.size(); ++leg) {
            if (!values.at(leg).isEmpty()) {
                mResult.ofLegs[leg].append({rule.legTag, wire(rule, values.at(leg))});
            }
        }
    }

    const Order& mOrder;
    const OrderHead& mHead;
    StrategyFields mResult;
    QString mError;
};

} // namespace

Outcome<StrategyFields> strategyFieldsOf(const StrategyRule& rule, const Order& order, const OrderHead& head)
{
    const QString name = forgotten(rule, order, head);
    if (!name.isEmpty()) {
        return {{}, texts::unmapped(name)};
    }
    Mapper mapper(order, head);
    for (const ParameterRule& parameter : rule.parameters) {
        mapper.map(parameter);
        if (!mapper.error().isEmpty()) {
            return {{}, mapper.error()};
        }
    }
    return {mapper.result(), QString()};
}

} // namespace gateway
