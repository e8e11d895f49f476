#include "ledger/store/BatchQueries.h"

#include "ledger/store/JsonText.h"
#include "ledger/store/NewRows.h"

#include <QMap>

namespace ledger {

namespace {

/// Batches that a question about duplicates names at most.
constexpr int MostDuplicates = 20;
/// The night session goes on after midnight: what was created so long ago belongs to the same session.
constexpr int SessionHours = 8;
/// A clock that is a day ahead takes today's batches for yesterday's.
constexpr int LatelyHours = 36;

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
    batch.fileEdits = arrayIn(row.value(12).toString());
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

/// The batches of an account on one of the days that its session has: those from `first` on.
struct SessionDay {
    QString day;
    qint64 first = 0;
};

/// Mostly one day; two where the night session goes on, more where a clock was ahead.
QList<SessionDay> daysSince(Statements& statements, const QString& account, const QDateTime& since)
{
    QSqlQuery query = statements.select(
        QStringLiteral(
            "SELECT day, MIN(number) FROM batch WHERE account = ? AND created_at >= ? GROUP BY day"),
        {column::text(account), column::time(since)});
    QList<SessionDay> days;
    while (statements.next(query)) {
        days.append({query.value(0).toString(), query.value(1).toLongLong()});
    }
    return days;
}

QString sameRowsStatement(const Store& store)
{
    return QStringLiteral("WITH draft_row (row_no, row_key) AS (VALUES %1) SELECT r.row_no, (SELECT ") +
           store.listOf(QStringLiteral("n.batch_number")) +
           QStringLiteral(" FROM (SELECT i.batch_number FROM instance i WHERE i.account = ? AND i.day = ? "
                          "AND i.row_key = r.row_key AND i.batch_number >= ? AND i.state <> 'withdrawn' "
                          "ORDER BY i.batch_number DESC LIMIT %1) n) FROM draft_row r")
               .arg(MostDuplicates);
}

/// Of each batch, how often it holds the orders of a draft's rows.
using HeldRows = QMap<qint64, QMap<int, int>>;

/// Rows of the same orders on the draft's account, by batch. Of batches before the session nothing is looked
/// at, however many there are.
HeldRows selectSameRows(Statements& statements, const Store& store, const BatchDraft& draft,
                        const QDateTime& since)
{
    HeldRows rows;
    const QList<SessionDay> days = daysSince(statements, draft.account, since);
    if (days.isEmpty()) {
        return rows;
    }
    QVector<QVariant> cells;
    int row = 0;
    for (const InstanceDraft& instance : draft.instances) {
        cells << ++row << rowKey(draft.strategy, instance);
    }
    const auto take = [&](QSqlQuery& query) {
        while (statements.next(query)) {
            const QStringList batches = query.value(1).toString().split(QLatin1Char(','), Qt::SkipEmptyParts);
            for (const QString& batch : batches) {
                ++rows[batch.toLongLong()][query.value(0).toInt()];
            }
        }
    };
    for (const SessionDay& day : days) {
        statements.runForRows(sameRowsStatement(store), cells, 2,
                              {column::text(draft.account), day.day, day.first}, take);
    }
    return rows;
}

std::optional<Batch> firstOf(const QList<Batch>& batches)
{
    return batches.isEmpty() ? std::nullopt : std::make_optional(batches.first());
}

} // namespace

QList<Batch> selectBatches(Statements& statements, const QString& condition, const QVariantList& values)
{
    QSqlQuery query = statements.select(
        QStringLiteral("SELECT number, draft_id, file_name, file_sha256, account, strategy, row_count, "
                       "expected_buy, expected_sell, created_at, created_by, state, file_edits FROM batch ") +
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
    return firstOf(selectBatches(statements, QStringLiteral("WHERE number = ?"), {number}));
}

std::optional<Batch> selectBatch(Statements& statements, qint64 number, const QString& account)
{
    return firstOf(selectBatches(statements, QStringLiteral("WHERE number = ? AND account = ?"),
                                 {number, column::text(account)}));
}

std::optional<Batch> selectBatchOf(Statements& statements, const QUuid& draft, const QStringList& accounts)
{
    const InAccounts in(accounts);
    return firstOf(selectBatches(statements, QStringLiteral("WHERE draft_id = ?") + in.condition,
                                 QVariantList{draft.toString(QUuid::WithoutBraces)} + in.values));
}

std::optional<BatchTable> selectTable(Statements& statements, const Batch& batch)
{
    QSqlQuery query = statements.select(
        QStringLiteral(
            "SELECT column_names, row_texts FROM batch_table WHERE batch_number = ? AND account = ?"),
        {batch.number, column::text(batch.account)});
    if (!statements.next(query)) {
        return std::nullopt;
    }
    return BatchTable{textsIn(query.value(0).toString()), rowsIn(query.value(1).toString())};
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
            "expected_buy, expected_sell, created_at, day, created_by, state, file_edits) "
            "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        {batch.number, column::text(batch.account), batch.draftId.toString(QUuid::WithoutBraces),
         column::text(batch.fileName), column::text(batch.fileSha256), column::text(batch.strategy),
         batch.rowCount, column::decimal(batch.expectedBuy), column::decimal(batch.expectedSell),
         column::time(batch.createdAt), exchangeDay(batch.createdAt).toString(Qt::ISODate),
         column::text(batch.createdBy), nameOf(batch.state),
         column::text(QString::fromUtf8(jsonText(batch.fileEdits)))});
}

void insertTable(Statements& statements, Store& store, const Batch& batch, const BatchTable& table)
{
    NewRows rows(QStringLiteral("batch_table"),
                 {QStringLiteral("batch_number"), QStringLiteral("account"), QStringLiteral("column_names"),
                  QStringLiteral("row_texts")});
    rows << batch.number << batch.account << jsonText(table.columns) << jsonText(table.rows);
    insertRows(statements, store, rows);
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

QList<Duplicate> selectDuplicates(Statements& statements, const Store& store, const BatchDraft& draft,
                                  const QDateTime& now)
{
    const QDateTime since = sessionStart(now);
    QMap<qint64, Duplicate> found;
    for (const Batch& batch : selectSameFile(statements, draft, since)) {
        found[batch.number] = duplicateOf(batch);
        found[batch.number].isSameFile = true;
    }
    const HeldRows rows = selectSameRows(statements, store, draft, since);
    for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
        const std::optional<Batch> batch = selectBatch(statements, row.key(), draft.account);
        if (batch && batch->createdAt >= since) {
            if (!found.contains(batch->number)) {
                found[batch->number] = duplicateOf(*batch);
            }
            const QList<int> same = row->keys();
            found[batch->number].rows = QSet<int>(same.begin(), same.end());
            found[batch->number].held = *row;
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
