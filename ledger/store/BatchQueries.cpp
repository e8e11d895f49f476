#include "ledger/store/BatchQueries.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>

namespace ledger {

namespace {

/// Batches that a question about duplicates names at most.
constexpr int MostDuplicates = 20;
/// The night session goes on after midnight: what was created so long ago belongs to the same session.
constexpr int SessionHours = 8;
/// A clock that is a day ahead takes today's batches for yesterday's.
constexpr int LatelyHours = 36;

QString jsonText(const QJsonArray& array)
{
    return QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

QJsonArray jsonArray(const QVariant& value)
{
    return QJsonDocument::fromJson(value.toString().toUtf8()).array();
}

QStringList textsOf(const QJsonArray& array)
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
    batch.expectedBuy = column::decimalOf(row.value(7));
    batch.expectedSell = column::decimalOf(row.value(8));
    batch.createdAt = column::timeOf(row.value(9));
    batch.createdBy = row.value(10).toString();
    batch.state = batchStateNamed(row.value(11).toString());
    return batch;
}

AccountDay dayOf(const QSqlQuery& row)
{
    AccountDay day;
    day.account = row.value(0).toString();
    day.day = QDate::fromString(row.value(1).toString(), Qt::ISODate);
    day.buy = column::decimalOf(row.value(2));
    day.sell = column::decimalOf(row.value(3));
    day.batches = row.value(4).toLongLong();
    day.instances = row.value(5).toLongLong();
    return day;
}

const QString SelectDay =
    QStringLiteral("SELECT account, day, buy, sell, batches, instances FROM account_day WHERE ");
/// A batch that stands: something of it was or may be sent.
const QString Stands = QStringLiteral("state IN ('created', 'waiting', 'partly_reversed')");

Duplicate duplicateOf(const Batch& batch)
{
    Duplicate duplicate;
    duplicate.batch = batch.number;
    duplicate.account = batch.account;
    duplicate.createdAt = batch.createdAt;
    duplicate.createdBy = batch.createdBy;
    return duplicate;
}

/// From when on a batch is of the same session. One from before the clock was set back lies in the future,
/// and counts.
QDateTime sessionStart(const QDateTime& now)
{
    return qMin(startOfExchangeDay(now), now.addSecs(-SessionHours * 3600));
}

QList<Batch> selectSameFile(Statements& statements, const BatchDraft& draft, const QDateTime& since)
{
    if (draft.fileSha256.isEmpty()) {
        return {};
    }
    return selectBatches(statements,
                         QStringLiteral("WHERE file_sha256 = ? AND created_at >= ? AND ") + Stands +
                             QStringLiteral(" ORDER BY created_at DESC LIMIT %1").arg(MostDuplicates),
                         {draft.fileSha256, column::time(since)});
}

/// Rows of the same orders on the draft's account, by batch.
QMap<qint64, QSet<int>> selectSameRows(Statements& statements, const BatchDraft& draft)
{
    QMap<qint64, QSet<int>> rows;
    QSqlQuery query = statements.prepare(
        QStringLiteral("SELECT batch_number FROM instance WHERE account = ? AND row_key = ? "
                       "AND state <> 'withdrawn' ORDER BY batch_number DESC LIMIT %1")
            .arg(MostDuplicates));
    query.setForwardOnly(true);
    for (int i = 0; i < draft.instances.size(); ++i) {
        statements.runAgain(query, {draft.account, rowKey(draft.strategy, draft.instances.at(i))});
        while (statements.next(query)) {
            rows[query.value(0).toLongLong()].insert(i + 1);
        }
    }
    return rows;
}

} // namespace

QList<Batch> selectBatches(Statements& statements, const QString& condition, const QVariantList& values)
{
    QSqlQuery query = statements.select(
        QStringLiteral("SELECT number, draft_id, file_name, file_sha256, account, strategy, row_count, "
                       "expected_buy, expected_sell, created_at, created_by, state FROM batch ") +
            condition,
        values);
    QList<Batch> batches;
    while (statements.next(query)) {
        batches.append(batchOf(query));
    }
    return batches;
}

std::optional<Batch> selectBatch(Statements& statements, qint64 number)
{
    const QList<Batch> found = selectBatches(statements, QStringLiteral("WHERE number = ?"), {number});
    return found.isEmpty() ? std::nullopt : std::make_optional(found.first());
}

std::optional<BatchTable> selectTable(Statements& statements, qint64 batch)
{
    QSqlQuery query = statements.select(
        QStringLiteral("SELECT column_names, row_texts FROM batch_table WHERE batch_number = ?"), {batch});
    if (!statements.next(query)) {
        return std::nullopt;
    }
    BatchTable table;
    table.columns = textsOf(jsonArray(query.value(0)));
    const QJsonArray rows = jsonArray(query.value(1));
    for (const QJsonValue& row : rows) {
        table.rows.append(textsOf(row.toArray()));
    }
    return table;
}

qint64 takeNumber(Statements& statements, const QString& name)
{
    statements.run(QStringLiteral("UPDATE ledger_number SET value = value + 1 WHERE name = ?"), {name});
    const QVariant value =
        statements.single(QStringLiteral("SELECT value FROM ledger_number WHERE name = ?"), {name});
    if (!value.isValid()) {
        statements.fail(QStringLiteral("ledger_number lacks ") + name);
    }
    return value.toLongLong();
}

void insertBatch(Statements& statements, const Batch& batch)
{
    statements.run(
        QStringLiteral(
            "INSERT INTO batch (number, account, draft_id, file_name, file_sha256, strategy, row_count, "
            "expected_buy, expected_sell, created_at, day, created_by, state) "
            "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        {batch.number, column::text(batch.account), batch.draftId.toString(QUuid::WithoutBraces),
         column::text(batch.fileName), column::text(batch.fileSha256), column::text(batch.strategy),
         batch.rowCount, column::decimal(batch.expectedBuy), column::decimal(batch.expectedSell),
         column::time(batch.createdAt), exchangeDay(batch.createdAt).toString(Qt::ISODate),
         column::text(batch.createdBy), nameOf(batch.state)});
}

void insertTable(Statements& statements, const Batch& batch, const BatchTable& table)
{
    QJsonArray rows;
    for (const QStringList& row : table.rows) {
        rows.append(QJsonArray::fromStringList(row));
    }
    statements.run(QStringLiteral("INSERT INTO batch_table (batch_number, account, column_names, row_texts) "
                                  "VALUES (?, ?, ?, ?)"),
                   {batch.number, column::text(batch.account),
                    jsonText(QJsonArray::fromStringList(table.columns)), jsonText(rows)});
}

void updateBatchState(Statements& statements, const Batch& batch, BatchState state)
{
    statements.run(QStringLiteral("UPDATE batch SET state = ? WHERE number = ? AND account = ?"),
                   {nameOf(state), batch.number, column::text(batch.account)});
}

AccountDay selectDay(Statements& statements, const QString& account, const QDate& day,
                     const QString& forUpdate)
{
    QSqlQuery query = statements.select(SelectDay + QStringLiteral("account = ? AND day = ?") + forUpdate,
                                        {column::text(account), day.toString(Qt::ISODate)});
    AccountDay found;
    found.account = account;
    found.day = day;
    return statements.next(query) ? dayOf(query) : found;
}

QList<AccountDay> selectDays(Statements& statements, const QDate& day)
{
    QSqlQuery query = statements.select(SelectDay + QStringLiteral("day = ? ORDER BY account"),
                                        {day.toString(Qt::ISODate)});
    QList<AccountDay> days;
    while (statements.next(query)) {
        days.append(dayOf(query));
    }
    return days;
}

void saveDay(Statements& statements, const AccountDay& day)
{
    const QVariantList key{column::text(day.account), day.day.toString(Qt::ISODate)};
    const QVariantList values{column::decimal(day.buy), column::decimal(day.sell), day.batches,
                              day.instances};
    statements.run(QStringLiteral("UPDATE account_day SET buy = ?, sell = ?, batches = ?, instances = ? "
                                  "WHERE account = ? AND day = ?"),
                   values + key);
    if (!statements.failed() && statements.changed() == 0) {
        statements.run(QStringLiteral("INSERT INTO account_day (buy, sell, batches, instances, account, day) "
                                      "VALUES (?, ?, ?, ?, ?, ?)"),
                       values + key);
    }
}

QList<Duplicate> selectDuplicates(Statements& statements, const BatchDraft& draft, const QDateTime& now)
{
    const QDateTime since = sessionStart(now);
    QMap<qint64, Duplicate> found;
    for (const Batch& batch : selectSameFile(statements, draft, since)) {
        found[batch.number] = duplicateOf(batch);
        found[batch.number].isSameFile = true;
    }
    const QMap<qint64, QSet<int>> rows = selectSameRows(statements, draft);
    for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
        const std::optional<Batch> batch = selectBatch(statements, row.key());
        if (batch && batch->createdAt >= since) {
            if (!found.contains(batch->number)) {
                found[batch->number] = duplicateOf(*batch);
            }
            found[batch->number].rows = *row;
        }
    }
    QList<Duplicate> newestFirst = found.values();
    std::reverse(newestFirst.begin(), newestFirst.end());
    return newestFirst;
}

QList<Duplicate> selectLately(Statements& statements, const BatchDraft& draft, const QDateTime& now)
{
    const QDateTime since = sessionStart(now);
    QList<Duplicate> lately;
    for (const Batch& batch : selectSameFile(statements, draft, now.addSecs(-LatelyHours * 3600))) {
        if (batch.createdAt < since) {
            lately.append(duplicateOf(batch));
            lately.last().isSameFile = true;
        }
    }
    return lately;
}

} // namespace ledger
