#pragma once

#include "host/RecordDataList.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// Lock strategies trade one security on two legs: a row's direction, entrust property and limit price each
/// hold two values, the first leg's before the slash.
namespace validation {

constexpr int LegCount = 2;

/// Identifiers of what a row writes once for both legs.
const QStringList& pairedFields();

/// The first paired field that does not hold exactly two parts; empty where all do.
QString unpairedField(const QVariantMap& imported);

/// Two legs out of a row's one; empty where a paired field does not hold exactly two parts.
///
///     {交易方向: "Buy/Sell", 委托属性: "0/0", 委托限价: "10.50/10.60", …}
///     → {Buy, 0, 10.50, …} and {Sell, 0, 10.60, …}
QVariantList splitLegs(const QVariantMap& imported);

/// Gives every instance of one leg its two, and drops those that cannot be split, in both lists, of which the
/// n-th belong together. Returns their former indexes, ascending.
QList<int> splitInstances(QList<QMap<QString, QVariant>>& instances, RecordDataList& records);

enum class LegFault {
    None,
    Property,  ///< the direction does not take it
    Direction, ///< neither a purchase nor a sale
};

/// Which entrust properties suit a leg's direction.
LegFault faultOfLeg(const QString& direction, const QString& entrustProp);

} // namespace validation
