#pragma once

#include "ledger/values/Decimal.h"

#include <QDateTime>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariantList>

/// Statements on whichever store is open. Standard SQL; values are bound, never written into a statement.
namespace ledger {

/// A run of statements on one database, of which the first error stays.
class Statements {
public:
    explicit Statements(const QSqlDatabase& database) : mDatabase(database) {}

    /// Runs a statement for its effect; nothing happens after an error. False on an error.
    bool run(const QString& statement, const QVariantList& values = {});
    /// Runs a statement for its rows.
    QSqlQuery select(const QString& statement, const QVariantList& values = {});
    /// The next row of a select; false behind the last one, and on an error.
    bool next(QSqlQuery& query);
    /// The first value of the first row; invalid where there is no row, and on an error.
    QVariant single(const QString& statement, const QVariantList& values = {});
    /// Rows that the last run() or runAgain() changed.
    int changed() const { return mChanged; }
    /// Notes an error that is none of the database: what it holds cannot be.
    void fail(const QString& reason);
    /// Prepares a statement that runs many times with runAgain().
    QSqlQuery prepare(const QString& statement);
    bool runAgain(QSqlQuery& query, const QVariantList& values);

    /// Many rows in few statements: a server answers each one over the network.
    void insertRows(const QString& table, const QStringList& columns, const QList<QVariantList>& rows);

    bool failed() const { return mError.isValid(); }
    const QSqlError& error() const { return mError; }

private:
    QSqlDatabase mDatabase;
    QSqlError mError;
    int mChanged = 0;
};

/// What columns hold, and back.
namespace column {

/// A null text would be stored as NULL, which no column of texts takes.
QVariant text(const QString& value);
/// Milliseconds since 1970 in UTC.
QVariant time(const QDateTime& value);
QDateTime timeOf(const QVariant& value);
/// Decimal texts; a ledger of an older program has binary numbers.
QVariant decimal(const Decimal& value);
Decimal decimalOf(const QVariant& value);

} // namespace column

} // namespace ledger
