#pragma once

#include "gateway/messages/Message.h"
#include "gateway/messages/Order.h"
#include "gateway/profile/Profile.h"

#include <QDateTime>
#include <QHash>

/// The four messages that go out, each from an instance and the profile alone.
namespace gateway {

/// NewOrderSingle of an instance of one leg, NewOrderMultileg of two; the error is a sentence for the trader
/// that names what lacks.
Outcome<Message> newOrder(const Profile& profile, const Order& order, const QDateTime& now);
/// The same order once more, marked as perhaps known (97=Y).
Message repeated(Message order);

/// OrderCancelRequest of an order; `cancelId` is its own identifier: the order's with -C1, -C2, …
Message cancelRequest(const Message& order, const QString& cancelId, const QDateTime& now);
/// OrderStatusRequest; `requestId` is 790, another one each time.
Message statusRequest(const Message& order, const QString& requestId);

/// Of the orders of one batch that cannot go out: row -> why. One refused refuses all of its 配对编号.
QHash<int, QString> refusalsOf(const Profile& profile, const QList<Order>& batch, const QDateTime& now);

} // namespace gateway
