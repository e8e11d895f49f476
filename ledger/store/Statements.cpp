#include "ledger/store/Statements.h"

namespace ledger {

namespace {

constexpr int RowsOfStatement = 50;

QString insertStatement(const QString& table, const QStringList& columns, int rows)
{
    QStringList marks;
    for (int i = 0; i < columns.size(); ++i) {
        marks.append(QStringLiteral("?"));
    }
    const QString row = QLatin1Char('(') + marks.join(QLatin1Char(',')) + QLatin1Char(')');
    QStringList values;
    for (int i = 0; i < rows; ++i) {
        values.append(row);
    }
    return QStringLiteral("INSERT INTO ") + table + QLatin1String(" (") + columns.join(QLatin1Char(',')) +
           QLatin1String(") VALUES ") + values.join(QLatin1Char(','));
}

QVariantList joined(const QList<QVariantList>& rows, int first, int count)
{
    QVariantList values;
    for (int i = first; i < first + count; ++i) {
        values += rows.at(i);
    }
    return values;
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

QVariant Statements::single(const QString& statement, const QVariantList& values)
{
    QSqlQuery query = select(statement, values);
    return next(query) ? query.value(0) : QVariant();
}

void Statements::insertRows(const QString& table, const QStringList& columns, const QList<QVariantList>& rows)
{
    int at = 0;
    if (rows.size() >= RowsOfStatement) {
        QSqlQuery full = prepare(insertStatement(table, columns, RowsOfStatement));
        for (; at + RowsOfStatement <= rows.size(); at += RowsOfStatement) {
            runAgain(full, joined(rows, at, RowsOfStatement));
        }
    }
    if (at < rows.size()) {
        run(insertStatement(table, columns, rows.size() - at), joined(rows, at, rows.size() - at));
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
    mChanged = failed() ? 0 : query.numRowsAffected();
    return !failed();
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
