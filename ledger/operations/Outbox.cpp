#include "ledger/Outbox.h"

#include "ledger/operations/Core.h"
#include "ledger/operations/Recording.h"
#include "ledger/operations/WireLog.h"
#include "ledger/store/BatchQueries.h"
#include "ledger/store/ControlQueries.h"
#include "ledger/store/InstanceQueries.h"

#include <QJsonObject>

namespace ledger {

namespace {

using OrderList = QList<Order>;

const QString All = QStringLiteral("*");

/// A condition on instances, narrowed to the accounts that a gateway serves.
InstanceChoice ofAccounts(const QString& condition, const QStringList& accounts)
{
    const InAccounts in(accounts);
    return {condition + in.condition, in.values};
}

const QString IsOpen =
    QStringLiteral("state IN ('sending', 'running', 'stopping', 'unknown') AND cl_ord_id <> ''");

/// Halted accounts may be many: they are left out by the database.
const QString IsNotHalted = QStringLiteral(
    " AND NOT EXISTS (SELECT 1 FROM halt h WHERE h.account = '*' OR h.account = instance.account)");

OrderList ordersOf(const QList<Instance>& instances)
{
    OrderList orders;
    for (const Instance& instance : instances) {
        orders.append({instance, instance.clOrdId, !instance.clOrdId.isEmpty()});
    }
    return orders;
}

/// Gives each its identifier, the same as ever, and moves it to `sending`.
OrderList beginSending(Change& change, QList<Instance>& instances)
{
    OrderList orders;
    QMap<qint64, QUuid> drafts;
    for (Instance& instance : instances) {
        if (!drafts.contains(instance.id.batch)) {
            drafts[instance.id.batch] =
                selectBatch(change.statements, instance.id.batch, instance.account).value_or(Batch()).draftId;
        }
        const bool wasSent = !instance.clOrdId.isEmpty();
        instance.state = InstanceState::Sending;
        instance.clOrdId = clOrdIdOf(drafts.value(instance.id.batch), instance.id.row);
        orders.append({instance, instance.clOrdId, wasSent});
    }
    updateInstances(change.statements, instances, change.at);
    if (!instances.isEmpty()) {
        change.note(QStringLiteral("send"), operations::namesOf(instances));
    }
    return orders;
}

void tellServed(bool* told, bool isServed)
{
    if (told != nullptr) {
        *told = isServed;
    }
}

} // namespace

struct Outbox::Claim {
    std::unique_ptr<AccountClaim> accounts;
};

Outbox::Outbox(std::shared_ptr<Ledger> ledger, Gateway gateway, std::unique_ptr<Claim> claim)
    : mLedger(std::move(ledger)), mGateway(std::move(gateway)), mClaim(std::move(claim))
{
}

Outbox::~Outbox() = default;

Outcome<std::unique_ptr<Outbox>> Outbox::claim(const std::shared_ptr<Ledger>& ledger, const Gateway& gateway,
                                               bool* isServed)
{
    QString holder;
    auto claim = std::make_unique<Claim>();
    claim->accounts = ledger->mCore->store->claim(gateway.accounts, holder);
    tellServed(isServed, !claim->accounts);
    if (!claim->accounts) {
        return {nullptr, texts::accountsServed(holder)};
    }
    Gateway registered = gateway;
    registered.since = ledger->mCore->now();
    const auto saved = ledger->mCore->change<bool>([&](Change& change) {
        saveGateway(change.statements, registered);
        change.note(QStringLiteral("gateway"), registered.session,
                    {{QStringLiteral("accounts"), registered.accounts.join(QLatin1Char(' '))}});
        return Outcome<bool>{true, QString()};
    });
    if (!saved.ok()) {
        return {nullptr, saved.error};
    }
    return {std::unique_ptr<Outbox>(new Outbox(ledger, registered, std::move(claim))), QString()};
}

Outcome<void> Outbox::forget(Ledger& ledger, const QStringList& accounts, bool* isServed)
{
    QString holder;
    const auto claimed = ledger.mCore->store->claim(accounts, holder);
    tellServed(isServed, !claimed);
    if (!claimed) {
        return {texts::accountsServed(holder)};
    }
    const auto forgotten = ledger.mCore->change<bool>([&](Change& change) {
        const QString busy = QStringLiteral("(state = 'queued' OR (%1))").arg(IsOpen);
        const int count = selectInstances(change.statements, ofAccounts(busy, accounts)).size();
        if (count > 0) {
            return Outcome<bool>{false, texts::gatewayNeeded(count)};
        }
        deleteGateway(change.statements, accounts);
        change.note(QStringLiteral("forget"), accounts.join(QLatin1Char(' ')));
        return Outcome<bool>{true, QString()};
    });
    return {forgotten.error};
}

Outcome<QList<Order>> Outbox::take(int most)
{
    return mLedger->mCore->change<OrderList>([&](Change& change) {
        InstanceChoice choice =
            ofAccounts(QStringLiteral("state = 'queued'") + IsNotHalted, mGateway.accounts);
        choice.most = most;
        QList<Instance> instances = selectInstances(change.statements, choice);
        return Outcome<OrderList>{beginSending(change, instances), QString()};
    });
}

Outcome<QList<Order>> Outbox::take(const QList<InstanceId>& ids)
{
    return mLedger->mCore->change<OrderList>([&](Change& change) {
        QMap<qint64, QStringList> rows;
        for (const InstanceId& id : ids) {
            rows[id.batch].append(QString::number(id.row));
        }
        QList<Instance> instances;
        for (auto it = rows.cbegin(); it != rows.cend(); ++it) {
            InstanceChoice choice =
                ofAccounts(QStringLiteral("state = 'queued'") + IsNotHalted, mGateway.accounts);
            choice.condition +=
                QStringLiteral(" AND batch_number = ? AND row_no IN (%1)").arg(it->join(QLatin1Char(',')));
            choice.values.append(it.key());
            instances.append(selectInstances(change.statements, choice));
        }
        return Outcome<OrderList>{beginSending(change, instances), QString()};
    });
}

Outcome<QList<Order>> Outbox::waiting(int most) const
{
    return mLedger->mCore->read<OrderList>([&](Statements& statements) {
        InstanceChoice choice =
            ofAccounts(QStringLiteral("state = 'queued'") + IsNotHalted, mGateway.accounts);
        choice.most = most;
        return Outcome<OrderList>{ordersOf(selectInstances(statements, choice)), QString()};
    });
}

Outcome<QList<Order>> Outbox::named(const QString& clOrdId) const
{
    return mLedger->mCore->read<OrderList>([&](Statements& statements) {
        const QPair<QUuid, int> order = orderNamed(clOrdId);
        const std::optional<Batch> batch = selectBatchOf(statements, order.first, mGateway.accounts);
        if (!batch) {
            return Outcome<OrderList>();
        }
        const QString named = QStringLiteral("row_no = ? AND cl_ord_id = ?");
        return Outcome<OrderList>{
            ordersOf(selectInstances(statements, choiceOf(*batch, named, {order.second, clOrdId}))),
            QString()};
    });
}

Outcome<qint64> Outbox::queued() const
{
    return mLedger->mCore->read<qint64>([&](Statements& statements) {
        const InstanceChoice choice = ofAccounts(QStringLiteral("state = 'queued'"), mGateway.accounts);
        return Outcome<qint64>{
            statements
                .single(QStringLiteral("SELECT COUNT(*) FROM instance WHERE ") + choice.condition,
                        choice.values)
                .toLongLong(),
            QString()};
    });
}

Outcome<QList<Order>> Outbox::open() const
{
    return mLedger->mCore->read<OrderList>([&](Statements& statements) {
        return Outcome<OrderList>{
            ordersOf(selectInstances(statements, ofAccounts(IsOpen, mGateway.accounts))), QString()};
    });
}

Outcome<QList<CancelRequest>> Outbox::takeCancels(int most)
{
    return mLedger->mCore->change<QList<CancelRequest>>([&](Change& change) {
        InstanceChoice choice =
            ofAccounts(QStringLiteral("state = 'stopping' AND cancel_due = 1"), mGateway.accounts);
        choice.most = most;
        QList<Instance> instances = selectInstances(change.statements, choice);
        QList<CancelRequest> requests;
        for (Instance& instance : instances) {
            instance.isCancelDue = false;
            ++instance.cancels;
            requests.append({{instance, instance.clOrdId, true},
                             QStringLiteral("%1-C%2").arg(instance.clOrdId).arg(instance.cancels)});
        }
        updateInstances(change.statements, instances, change.at);
        if (!instances.isEmpty()) {
            change.note(QStringLiteral("cancel"), operations::namesOf(instances));
        }
        return Outcome<QList<CancelRequest>>{requests, QString()};
    });
}

Outcome<QList<Recorded>> Outbox::record(const QList<Execution>& executions)
{
    return mLedger->mCore->change<QList<Recorded>>([&](Change& change) {
        Recording recording(change, mGateway.accounts);
        QList<Recorded> recorded;
        for (const Execution& execution : executions) {
            recorded.append(recording.take(execution));
        }
        recording.finish();
        return Outcome<QList<Recorded>>{recorded, QString()};
    });
}

Outcome<QList<Instance>> Outbox::decide(const QList<Decision>& decisions)
{
    return mLedger->mCore->change<QList<Instance>>([&](Change& change) {
        Recording recording(change, mGateway.accounts);
        QList<Instance> decided;
        for (const Decision& decision : decisions) {
            const Outcome<Instance> instance = recording.decide(decision);
            if (!instance.ok()) {
                return Outcome<QList<Instance>>{{}, instance.error};
            }
            decided.append(instance.value);
        }
        recording.finish();
        return Outcome<QList<Instance>>{decided, QString()};
    });
}

Outcome<void> Outbox::session(const QString& state, const QString& text)
{
    const auto changed = mLedger->mCore->change<bool>([&](Change& change) {
        mGateway.state = state;
        mGateway.since = change.at;
        updateSession(change.statements, mGateway);
        change.note(QStringLiteral("session"), mGateway.session,
                    {{QStringLiteral("state"), state}, {QStringLiteral("text"), text}});
        return Outcome<bool>{true, QString()};
    });
    return {changed.error};
}

Outcome<void> Outbox::keepMessages(const QList<WireMessage>& messages)
{
    return {mLedger->mCore
                ->change<bool>([&](Change& change) {
                    change.note(audit::Wire, mGateway.session, audit::detailOf(messages));
                    return Outcome<bool>{true, QString()};
                })
                .error};
}

Outcome<bool> Outbox::isHalted(const QString& account) const
{
    return mLedger->mCore->read<bool>([&](Statements& statements) {
        return Outcome<bool>{!selectHalts(statements, account).isEmpty(), QString()};
    });
}

} // namespace ledger
