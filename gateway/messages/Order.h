#pragma once

#include <QMap>
#include <QString>
#include <QUuid>
#include <QVariant>

/// An instance as far as its messages depend on it.
namespace gateway {

struct Order {
    QUuid draftId; ///< of the batch's draft
    int row = 0;   ///< 1-based row of the batch's table
    QString strategy;
    QMap<QString, QVariant> parameters; ///< the parameter map, as the dialog handed it over
};

/// ClOrdID (11): the draft's 16 bytes in base 32 (RFC 4648, no padding), a hyphen and the row. The same
/// instance always has the same, and no other ever has it: "NW66TGW5HBELBA4MNSSDJLTPKQ-7".
QString clOrdIdOf(const QUuid& draftId, int row);
QString clOrdIdOf(const Order& order);
/// The order that an identifier belongs to: a cancel's without its ending, another as it stands.
QString orderIdIn(const QString& identifier);

/// 配对编号: rows of a batch that go out together or not at all; empty: none.
QString pairNumberOf(const Order& order);

} // namespace gateway
