#pragma once

#include "gateway/messages/OrderLegs.h"

#include <QList>

/// A strategy's parameters as fields, by the profile.
namespace gateway {

struct StrategyEntry {
    QString name;
    ValueType type = ValueType::String;
    QString value;
};

struct StrategyFields {
    QList<Constant> fields;        ///< those with a tag
    QList<StrategyEntry> entries;  ///< those of the strategy parameters group
    QList<QList<Constant>> ofLegs; ///< of each leg, where the legs do not agree
};

/// All that has a value is mapped, ignored or consumed, or the error names what is not.
Outcome<StrategyFields> strategyFieldsOf(const StrategyRule& rule, const Order& order, const OrderHead& head);

} // namespace gateway
