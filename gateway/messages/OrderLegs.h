#pragma once

#include "gateway/messages/Order.h"
#include "gateway/profile/Profile.h"

#include <QList>

/// What of an instance fits no strategy of its own: securities, sides, quantities and prices of its legs.
namespace gateway {

struct OrderLeg {
    QMap<QString, QVariant> own; ///< the leg's own parameters
    QString symbol;              ///< code without a suffix: 600000, IF2612
    QString exchange;            ///< 207 or 616
    QList<Constant> side;        ///< 54 and what else the profile gives the direction
    QString quantity;            ///< empty where the row names an amount
    QString limitPrice;          ///< empty where there is none above 0

    QString sideField(int tag) const; ///< empty where the direction has no such field
};

struct OrderHead {
    QString account;
    QString amount; ///< 委托金额; empty where the row names a quantity
    QList<OrderLeg> legs;
};

/// The error names what lacks.
Outcome<OrderHead> headOf(const Profile& profile, const Order& order);

/// What of an instance and its legs the program consumes by itself.
bool isConsumedOfInstance(const QString& paramId);
bool isConsumedOfLeg(const QString& paramId);

/// A leg's own value of a parameter, else the instance's.
QString valueIn(const Order& order, const OrderLeg& leg, const QString& paramId);

} // namespace gateway
