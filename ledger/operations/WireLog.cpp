#include "ledger/operations/WireLog.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace ledger::audit {

namespace {

const QString Messages = QStringLiteral("messages");
const QString At = QStringLiteral("at");
const QString IsOutgoing = QStringLiteral("out");
const QString Text = QStringLiteral("text");

/// Of one lot, newest first.
QList<WireMessage> messagesOf(const QSqlQuery& row)
{
    const QJsonArray lot =
        QJsonDocument::fromJson(row.value(2).toString().toUtf8()).object().value(Messages).toArray();
    QList<WireMessage> messages;
    for (const QJsonValue& one : lot) {
        const QDateTime at = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(one[At].toDouble()), Qt::UTC);
        messages.prepend({row.value(0).toLongLong(), at, row.value(1).toString(), one[IsOutgoing].toBool(),
                          one[Text].toString()});
    }
    return messages;
}

} // namespace

QJsonObject detailOf(const QList<WireMessage>& messages)
{
    QJsonArray lot;
    for (const WireMessage& message : messages) {
        lot.append(QJsonObject{{At, static_cast<double>(message.at.toMSecsSinceEpoch())},
                               {IsOutgoing, message.isOutgoing},
                               {Text, message.text}});
    }
    return {{Messages, lot}};
}

QList<WireMessage> selectWire(Statements& statements, qint64 behind, int mostLots)
{
    QSqlQuery query = statements.select(QStringLiteral("SELECT number, subject, detail FROM audit_entry "
                                                       "WHERE what = ? AND number > ? ORDER BY number DESC "
                                                       "LIMIT %1")
                                            .arg(mostLots),
                                        {Wire, behind});
    QList<WireMessage> messages;
    while (statements.next(query)) {
        messages += messagesOf(query);
    }
    std::reverse(messages.begin(), messages.end());
    return messages;
}

} // namespace ledger::audit
