#include "ledger/store/LedgerQueries.h"

#include "ledger/store/ParameterText.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace ledger {

namespace {

/// The state with that name; an unknown one, of a newer program, reads as the last state there is.
template <typename State> State stateNamed(const QString& name, State last)
{
    for (int i = 0; i < static_cast<int>(last); ++i) {
        if (nameOf(static_cast<State>(i)) == name) {
            return static_cast<State>(i);
        }
    }
    return last;
}

QDateTime timeOf(const QVariant& value)
{
    return QDateTime::fromMSecsSinceEpoch(value.toLongLong(), Qt::UTC);
}

Decimal decimalOf(const QVariant& value)
{
    return value.type() == QVariant::Double ? Decimal::fromDouble(value.toDouble())
                                            : Decimal::fromText(value.toString());
}

/// A null text would be stored as NULL, which no column of texts takes.
QString text(const QString& value)
{
    return value.isNull() ? QStringLiteral("") : value;
}

QString jsonText(const QJsonArray& array)
{
    return QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

QJsonArray jsonArray(const QVariant& value)
{
    return QJsonDocument::fromJson(value.toString().toUtf8()).array();
}

QStringList texts(const QJsonArray& array)
{
    QStringList list;
    for (const QJsonValue& value : array) {
        list.append(value.toString());
    }
    return list;
}

Batch batchOf(const QSqlQuery& row)
{
    Batch batch;
    batch.number = row.value(0).toLongLong();
    batch.draftId = QUuid::fromString(row.value(1).toString());
    batch.fileName = row.value(2).toString();
    batch.fileSha256 = row.value(3).toString();
    batch.account = row.value(4).toString();
    batch.strategy = row.value(5).toString();
    batch.rowCount = row.value(6).toInt();
    batch.expectedBuy = decimalOf(row.value(7));
    batch.expectedSell = decimalOf(row.value(8));
    batch.createdAt = timeOf(row.value(9));
    batch.createdBy = row.value(10).toString();
    batch.state = stateNamed(row.value(11).toString(), BatchState::PartlyReversed);
    return batch;
}

Instance instanceOf(const QSqlQuery& row)
{
    Instance instance;
    instance.id = {row.value(0).toLongLong(), row.value(1).toInt()};
    instance.account = row.value(2).toString();
    instance.strategy = row.value(3).toString();
    instance.state = stateNamed(row.value(4).toString(), InstanceState::Withdrawn);
    instance.changedAt = timeOf(row.value(5));
    instance.parameters = parametersFromText(row.value(6).toString().toUtf8());
    return instance;
}

Leg legOf(const QSqlQuery& row)
{
    Leg leg;
    leg.symbol = row.value(2).toString();
    leg.direction = row.value(3).toString();
    leg.quantity = decimalOf(row.value(4));
    leg.limitPrice = decimalOf(row.value(5));
    leg.amount = decimalOf(row.value(6));
    return leg;
}

/// Legs come in the order of their instances, so that one walk hands them out.
void addLegs(Statements& statements, QSqlQuery legs, QList<Instance>& instances)
{
    int at = 0;
    while (statements.next(legs)) {
        const qint64 batch = legs.value(0).toLongLong();
        const int row = legs.value(1).toInt();
        while (at < instances.size() && (instances[at].id.batch != batch || instances[at].id.row != row)) {
            ++at;
        }
        if (at == instances.size()) {
            return;
        }
        instances[at].legs.append(legOf(legs));
    }
}

} // namespace

bool Statements::run(const QString& statement, const QVariantList& values)
{
    QSqlQuery query = prepare(statement);
    return runAgain(query, values);
}

QSqlQuery Statements::select(const QString& statement, const QVariantList& values)
{
    QSqlQuery query = prepare(statement);
    query.setForwardOnly(true);
    runAgain(query, values);
    return query;
}

bool Statements::next(QSqlQuery& query)
{
    if (failed() || query.next()) {
        return !failed();
    }
    mError = query.lastError();
    return false;
}

void Statements::fail(const QString& reason)
{
    if (!failed()) {
        mError = QSqlError(QString(), reason, QSqlError::StatementError);
    }
}

QSqlQuery Statements::prepare(const QString& statement)
{
    QSqlQuery query(mDatabase);
    if (!failed() && !query.prepare(statement)) {
        mError = query.lastError();
    }
    return query;
}

bool Statements::runAgain(QSqlQuery& query, const QVariantList& values)
{
    if (failed()) {
        return false;
    }
    for (int i = 0; i < values.size(); ++i) {
        query.bindValue(i, values.at(i));
    }
    if (!query.exec()) {
        mError = query.lastError();
    }
    return !failed();
}

QList<Batch> selectBatches(Statements& statements, const QString& condition, const QVariantList& values)
{
    QSqlQuery query = statements.select(
        QStringLiteral(
            "SELECT number, draft_id, file_name, file_sha256, account, strategy, row_count, "
            "expected_buy, expected_sell, created_at, created_by, state FROM batch %1 ORDER BY number")
            .arg(condition),
        values);
    QList<Batch> batches;
    while (statements.next(query)) {
        batches.append(batchOf(query));
    }
    return batches;
}

QList<Instance> selectInstances(Statements& statements, const QString& condition, const QVariantList& values)
{
    const QString order = QStringLiteral("ORDER BY batch_number, row_no");
    QSqlQuery query = statements.select(
        QStringLiteral("SELECT batch_number, row_no, account, strategy, state, changed_at, parameters "
                       "FROM instance %1 %2")
            .arg(condition, order),
        values);
    QList<Instance> instances;
    while (statements.next(query)) {
        instances.append(instanceOf(query));
    }
    addLegs(
        statements,
        statements.select(
            QStringLiteral("SELECT batch_number, row_no, symbol, direction, quantity, limit_price, amount "
                           "FROM instance_leg %1 %2, leg_no")
                .arg(condition, order),
            values),
        instances);
    return instances;
}

std::optional<BatchTable> selectTable(Statements& statements, qint64 batch)
{
    QSqlQuery query = statements.select(
        QStringLiteral("SELECT column_names, row_texts FROM batch_table WHERE batch_number = ?"), {batch});
    if (!statements.next(query)) {
        return std::nullopt;
    }
    BatchTable table;
    table.columns = texts(jsonArray(query.value(0)));
    const QJsonArray rows = jsonArray(query.value(1));
    for (const QJsonValue& row : rows) {
        table.rows.append(texts(row.toArray()));
    }
    return table;
}

QList<EarlierBatch> selectEarlier(Statements& statements, const QString& account, const QDateTime& since)
{
    // A batch from before the clock was set back lies in the future: it counts as of today.
    const QVariantList values{account, since.toMSecsSinceEpoch()};
    const QString standing = QStringLiteral("account = ? AND created_at >= ? AND state <> 'withdrawn'");
    QList<EarlierBatch> earlier;
    for (const Batch& batch : selectBatches(statements, QLatin1String("WHERE ") + standing, values)) {
        earlier.append({batch.number, batch.fileSha256, {}});
    }
    QSqlQuery query = statements.select(
        QStringLiteral(
            "SELECT i.batch_number, i.row_key FROM instance i "
            "JOIN batch b ON b.number = i.batch_number "
            "WHERE b.account = ? AND b.created_at >= ? AND i.row_key <> '' AND b.state <> 'withdrawn' "
            "AND i.state <> 'withdrawn' ORDER BY i.batch_number"),
        values);
    int at = 0;
    while (statements.next(query)) {
        while (at < earlier.size() && earlier[at].number != query.value(0).toLongLong()) {
            ++at;
        }
        if (at < earlier.size()) {
            earlier[at].rowKeys.insert(query.value(1).toString());
        }
    }
    return earlier;
}

qint64 takeNumber(Statements& statements)
{
    statements.run(QStringLiteral("UPDATE ledger_number SET value = value + 1 WHERE name = 'last_batch'"));
    QSqlQuery query =
        statements.select(QStringLiteral("SELECT value FROM ledger_number WHERE name = 'last_batch'"));
    if (!statements.next(query)) {
        statements.fail(QStringLiteral("ledger_number lacks last_batch"));
        return 0;
    }
    return query.value(0).toLongLong();
}

void insertBatch(Statements& statements, const Batch& batch)
{
    statements.run(
        QStringLiteral(
            "INSERT INTO batch (number, draft_id, file_name, file_sha256, account, strategy, row_count, "
            "expected_buy, expected_sell, created_at, created_by, state) "
            "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        {batch.number, batch.draftId.toString(QUuid::WithoutBraces), text(batch.fileName),
         text(batch.fileSha256), text(batch.account), text(batch.strategy), batch.rowCount,
         batch.expectedBuy.text(), batch.expectedSell.text(), batch.createdAt.toMSecsSinceEpoch(),
         text(batch.createdBy), nameOf(batch.state)});
}

void insertInstances(Statements& statements, const Batch& batch, const QList<InstanceDraft>& instances)
{
    QSqlQuery insertInstance = statements.prepare(
        QStringLiteral("INSERT INTO instance (batch_number, row_no, account, strategy, state, changed_at, "
                       "parameters, row_key) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"));
    QSqlQuery insertLeg = statements.prepare(
        QStringLiteral("INSERT INTO instance_leg (batch_number, row_no, leg_no, symbol, direction, quantity, "
                       "limit_price, amount) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"));
    int row = 0;
    for (const InstanceDraft& instance : instances) {
        ++row;
        const InstanceState state = instance.startsNow ? InstanceState::Running : InstanceState::Created;
        statements.runAgain(insertInstance, {batch.number, row, text(batch.account), text(batch.strategy),
                                             nameOf(state), batch.createdAt.toMSecsSinceEpoch(),
                                             QString::fromUtf8(parametersToText(instance.parameters)),
                                             rowKey(batch.strategy, instance)});
        int legNumber = 0;
        for (const Leg& leg : instance.legs) {
            statements.runAgain(insertLeg,
                                {batch.number, row, ++legNumber, text(leg.symbol), text(leg.direction),
                                 leg.quantity.text(), leg.limitPrice.text(), leg.amount.text()});
        }
    }
}

void insertTable(Statements& statements, qint64 batch, const BatchTable& table)
{
    QJsonArray rows;
    for (const QStringList& row : table.rows) {
        rows.append(QJsonArray::fromStringList(row));
    }
    statements.run(
        QStringLiteral("INSERT INTO batch_table (batch_number, column_names, row_texts) VALUES (?, ?, ?)"),
        {batch, jsonText(QJsonArray::fromStringList(table.columns)), jsonText(rows)});
}

void updateBatchState(Statements& statements, qint64 batch, BatchState state)
{
    statements.run(QStringLiteral("UPDATE batch SET state = ? WHERE number = ?"), {nameOf(state), batch});
}

void updateInstanceStates(Statements& statements, qint64 batch, InstanceState before, InstanceState after,
                          const QDateTime& now)
{
    statements.run(
        QStringLiteral("UPDATE instance SET state = ?, changed_at = ? WHERE batch_number = ? AND state = ?"),
        {nameOf(after), now.toMSecsSinceEpoch(), batch, nameOf(before)});
}

void updateInstanceState(Statements& statements, const InstanceId& instance, InstanceState state,
                         const QDateTime& now)
{
    statements.run(
        QStringLiteral("UPDATE instance SET state = ?, changed_at = ? WHERE batch_number = ? AND row_no = ?"),
        {nameOf(state), now.toMSecsSinceEpoch(), instance.batch, instance.row});
}

} // namespace ledger
