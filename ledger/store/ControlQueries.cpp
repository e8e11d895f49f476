#include "ledger/store/ControlQueries.h"

#include "ledger/store/BatchQueries.h"

namespace ledger {

namespace {

const QString All = QStringLiteral("*");

} // namespace

QList<Halt> selectHalts(Statements& statements, const QString& account)
{
    const QString condition = account.isEmpty() ? QString() : QStringLiteral("WHERE account IN (?, '*') ");
    QSqlQuery query =
        statements.select(QStringLiteral("SELECT account, reason, halted_by, halted_at FROM halt ") +
                              condition + QLatin1String("ORDER BY account"),
                          account.isEmpty() ? QVariantList() : QVariantList{account});
    QList<Halt> halts;
    while (statements.next(query)) {
        halts.append({query.value(0).toString(), query.value(1).toString(), query.value(2).toString(),
                      column::timeOf(query.value(3))});
    }
    return halts;
}

void insertHalt(Statements& statements, const Halt& halt)
{
    statements.run(
        QStringLiteral("INSERT INTO halt (account, reason, halted_by, halted_at) VALUES (?, ?, ?, ?)"),
        {halt.account, column::text(halt.reason), column::text(halt.by), column::time(halt.at)});
}

bool deleteHalt(Statements& statements, const QString& account)
{
    statements.run(QStringLiteral("DELETE FROM halt WHERE account = ?"), {account});
    return statements.changed() > 0;
}

QList<Gateway> selectGateways(Statements& statements)
{
    QSqlQuery query = statements.select(QStringLiteral(
        "SELECT session, account, host, pid, state, since FROM gateway ORDER BY session, account"));
    QList<Gateway> gateways;
    while (statements.next(query)) {
        if (gateways.isEmpty() || gateways.last().session != query.value(0).toString()) {
            gateways.append({query.value(0).toString(),
                             {},
                             query.value(2).toString(),
                             query.value(3).toLongLong(),
                             query.value(4).toString(),
                             column::timeOf(query.value(5))});
        }
        gateways.last().accounts.append(query.value(1).toString());
    }
    return gateways;
}

bool hasGateway(Statements& statements, const QString& account)
{
    return statements
               .single(QStringLiteral("SELECT COUNT(*) FROM gateway WHERE account IN (?, '*')"), {account})
               .toInt() > 0;
}

/// What it registers replaces what stood for its accounts before: they are its own by the lock.
void saveGateway(Statements& statements, const Gateway& gateway)
{
    const QStringList accounts = gateway.accounts.isEmpty() ? QStringList{All} : gateway.accounts;
    for (const QString& account : accounts) {
        statements.run(QStringLiteral("DELETE FROM gateway WHERE account = ?"), {account});
        statements.run(QStringLiteral("INSERT INTO gateway (account, session, host, pid, state, since) "
                                      "VALUES (?, ?, ?, ?, ?, ?)"),
                       {account, column::text(gateway.session), column::text(gateway.host), gateway.pid,
                        column::text(gateway.state), column::time(gateway.since)});
    }
}

void updateSession(Statements& statements, const Gateway& gateway)
{
    const QStringList accounts = gateway.accounts.isEmpty() ? QStringList{All} : gateway.accounts;
    for (const QString& account : accounts) {
        statements.run(QStringLiteral("UPDATE gateway SET state = ?, since = ?, pid = ? WHERE account = ?"),
                       {column::text(gateway.state), column::time(gateway.since), gateway.pid, account});
    }
}

void deleteGateway(Statements& statements, const QStringList& accounts)
{
    for (const QString& account : accounts.isEmpty() ? QStringList{All} : accounts) {
        statements.run(QStringLiteral("DELETE FROM gateway WHERE account = ?"), {account});
    }
}

std::optional<Approval> selectApproval(Statements& statements, const Batch& batch)
{
    QSqlQuery query = statements.select(
        QStringLiteral("SELECT digest, verdict, asked_by, asked_at, decided_by, decided_at, reason "
                       "FROM approval WHERE batch_number = ? AND account = ?"),
        {batch.number, column::text(batch.account)});
    if (!statements.next(query)) {
        return std::nullopt;
    }
    return Approval{batch.number,
                    query.value(0).toString(),
                    query.value(1).toString(),
                    query.value(2).toString(),
                    column::timeOf(query.value(3)),
                    query.value(4).toString(),
                    column::timeOf(query.value(5)),
                    query.value(6).toString()};
}

void insertApproval(Statements& statements, const Batch& batch, const Approval& approval)
{
    statements.run(
        QStringLiteral("INSERT INTO approval (batch_number, account, digest, verdict, asked_by, asked_at, "
                       "decided_by, decided_at, reason) VALUES (?, ?, ?, ?, ?, ?, '', 0, '')"),
        {batch.number, column::text(batch.account), approval.digest, column::text(approval.verdict),
         column::text(approval.askedBy), column::time(approval.askedAt)});
}

void decideApproval(Statements& statements, const Batch& batch, const Approval& approval)
{
    statements.run(QStringLiteral("UPDATE approval SET decided_by = ?, decided_at = ?, reason = ? "
                                  "WHERE batch_number = ? AND account = ?"),
                   {column::text(approval.decidedBy), column::time(approval.decidedAt),
                    column::text(approval.reason), batch.number, column::text(batch.account)});
}

bool insertExecution(Statements& statements, const Instance& instance, const QString& execId,
                     const QDateTime& at)
{
    const QVariantList key{instance.clOrdId, execId, column::text(instance.account)};
    const bool isKnown =
        statements
            .single(QStringLiteral("SELECT 1 FROM execution WHERE cl_ord_id = ? AND exec_id = ? "
                                   "AND account = ?"),
                    key)
            .isValid();
    if (!isKnown) {
        statements.run(QStringLiteral("INSERT INTO execution (cl_ord_id, exec_id, account, recorded_at) "
                                      "VALUES (?, ?, ?, ?)"),
                       key + QVariantList{column::time(at)});
    }
    return !isKnown;
}

bool insertStray(Statements& statements, const Execution& execution, const QDateTime& at)
{
    const bool isKnown =
        !execution.execId.isEmpty() &&
        statements
            .single(QStringLiteral("SELECT 1 FROM stray_report WHERE cl_ord_id = ? AND exec_id = ?"),
                    {column::text(execution.clOrdId), execution.execId})
            .isValid();
    if (isKnown) {
        return false;
    }
    const qint64 number = takeNumber(statements, QStringLiteral("last_stray"));
    statements.run(
        QStringLiteral("INSERT INTO stray_report (number, recorded_at, cl_ord_id, exec_id, message) "
                       "VALUES (?, ?, ?, ?, ?)"),
        {number, column::time(at), column::text(execution.clOrdId), column::text(execution.execId),
         column::text(execution.text)});
    return true;
}

QList<StrayReport> selectStrays(Statements& statements, int most)
{
    QSqlQuery query = statements.select(
        QStringLiteral("SELECT number, recorded_at, cl_ord_id, exec_id, message FROM stray_report "
                       "ORDER BY number DESC LIMIT %1")
            .arg(most));
    QList<StrayReport> strays;
    while (statements.next(query)) {
        strays.append({query.value(0).toLongLong(), column::timeOf(query.value(1)), query.value(2).toString(),
                       query.value(3).toString(), query.value(4).toString()});
    }
    return strays;
}

} // namespace ledger
