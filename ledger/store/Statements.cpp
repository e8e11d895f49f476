#include "ledger/store/Statements.h"

#include <QSqlDriver>

namespace ledger {

namespace {

constexpr int RowsOfGo = 100;
/// More different statements than the ledger has hot ones.
constexpr int MostKept = 100;

/// (?,?),(?,?),…
QString marksOf(int rows, int cellsOfRow)
{
    const QString cells = QStringLiteral("?,").repeated(cellsOfRow);
    const QString row = QLatin1Char('(') + cells.leftRef(cells.size() - 1) + QLatin1String("),");
    QString marks = row.repeated(rows);
    marks.chop(1);
    return marks;
}

} // namespace

std::optional<QSqlQuery> PreparedStatements::idle(const QString& statement) const
{
    const auto found = mQueries.constFind(statement);
    return found != mQueries.constEnd() && !found->isActive() ? std::make_optional(*found) : std::nullopt;
}

void PreparedStatements::keep(const QString& statement, const QSqlQuery& query)
{
    if (mQueries.size() >= MostKept) {
        mQueries.clear();
    }
    mQueries.insert(statement, query);
}

Statements::Statements(const QSqlDatabase& database, PreparedStatements* prepared)
    : mDatabase(database), mPrepared(prepared)
{
}

Statements::~Statements()
{
    for (QSqlQuery& query : mKept) {
        query.finish();
    }
}

bool Statements::run(const QString& statement, const QVariantList& values)
{
    QSqlQuery query = prepare(statement);
    const bool isDone = runAgain(query, values);
    query.finish();
    return isDone;
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
    note(query.lastError());
    query.finish();
    return false;
}

QVariant Statements::single(const QString& statement, const QVariantList& values)
{
    QSqlQuery query = select(statement, values);
    const QVariant value = next(query) ? query.value(0) : QVariant();
    query.finish();
    return value;
}

void Statements::runForRows(const QString& statement, const QVector<QVariant>& cells, int cellsOfRow,
                            const QVariantList& values, const Take& take)
{
    const QString full = statement.arg(marksOf(RowsOfGo, cellsOfRow));
    for (int at = 0; at < cells.size() && !failed();) {
        const int count = qMin(RowsOfGo * cellsOfRow, cells.size() - at);
        const bool isFull = count == RowsOfGo * cellsOfRow;
        QSqlQuery query = prepare(isFull ? full : statement.arg(marksOf(count / cellsOfRow, cellsOfRow)));
        query.setForwardOnly(true);
        for (int i = 0; i < count; ++i) {
            query.bindValue(i, cells.at(at++));
        }
        for (int i = 0; i < values.size(); ++i) {
            query.bindValue(count + i, values.at(i));
        }
        if (execute(query) && take) {
            take(query);
        }
        query.finish();
    }
}

/// A server answers nothing more in a transaction that has failed, not even that it forgets a prepared
/// statement, of which its driver would complain. The transaction is over in any case.
void Statements::note(const QSqlError& error)
{
    mError = error;
    QSqlDriver* driver = mDatabase.driver();
    if (error.isValid() && driver->dbmsType() == QSqlDriver::PostgreSQL && driver->isOpen()) {
        driver->rollbackTransaction();
    }
}

void Statements::fail(const QSqlError& error)
{
    if (!failed() && error.isValid()) {
        note(error);
    }
}

void Statements::fail(const QString& reason)
{
    if (!failed()) {
        mError = QSqlError(QString(), reason, QSqlError::StatementError);
    }
}

QSqlQuery Statements::prepare(const QString& statement)
{
    std::optional<QSqlQuery> known = mPrepared ? mPrepared->idle(statement) : std::nullopt;
    QSqlQuery query = known ? *known : QSqlQuery(mDatabase);
    if (!known && !failed() && !query.prepare(statement)) {
        note(query.lastError());
    }
    if (mPrepared && !failed()) {
        if (!known) {
            mPrepared->keep(statement, query);
        }
        mKept.append(query);
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
    return execute(query);
}

bool Statements::execute(QSqlQuery& query)
{
    if (!failed() && !query.exec()) {
        note(query.lastError());
    }
    mChanged = failed() ? 0 : query.numRowsAffected();
    return !failed();
}

InAccounts::InAccounts(const QStringList& accounts)
{
    if (accounts.isEmpty() || accounts.contains(QStringLiteral("*"))) {
        return;
    }
    for (const QString& account : accounts) {
        values.append(column::text(account));
    }
    const QString marks = QStringLiteral("?,").repeated(accounts.size());
    condition = QStringLiteral(" AND account IN (%1)").arg(marks.left(marks.size() - 1));
}

namespace column {

QVariant text(const QString& value)
{
    return value.isNull() ? QStringLiteral("") : value;
}

QVariant time(const QDateTime& value)
{
    return value.toMSecsSinceEpoch();
}

QDateTime timeOf(const QVariant& value)
{
    return QDateTime::fromMSecsSinceEpoch(value.toLongLong(), Qt::UTC);
}

QVariant decimal(const Decimal& value)
{
    return value.text();
}

Decimal decimalOf(const QVariant& value)
{
    return value.type() == QVariant::Double ? Decimal::fromDouble(value.toDouble())
                                            : Decimal::fromText(value.toString());
}

} // namespace column

} // namespace ledger
