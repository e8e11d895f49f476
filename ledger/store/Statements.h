#pragma once

#include "ledger/values/Decimal.h"

#include <QDateTime>
#include <QHash>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QVariantList>
#include <QVector>

#include <functional>
#include <optional>

/// Statements on whichever store is open. Standard SQL; values are bound, never written into a statement.
namespace ledger {

/// What a connection has prepared and keeps, since the same few statements run again and again. It goes with
/// the connection, which must be gone before it.
class PreparedStatements {
public:
    /// Nothing where it was not prepared, or is under way.
    std::optional<QSqlQuery> idle(const QString& statement) const;
    void keep(const QString& statement, const QSqlQuery& query);
    void clear() { mQueries.clear(); }

private:
    QHash<QString, QSqlQuery> mQueries;
};

/// A run of statements on one database, of which the first error stays.
class Statements {
public:
    /// Prepares what it runs, and forgets it, unless `prepared` keeps it.
    explicit Statements(const QSqlDatabase& database, PreparedStatements* prepared = nullptr);
    /// Nothing that was read goes on being read: it would keep the state of the ledger that it began with.
    ~Statements();
    Statements(const Statements&) = delete;
    Statements& operator=(const Statements&) = delete;

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
    /// Notes an error of a statement that ran elsewhere; of several the first stays.
    void fail(const QSqlError& error);
    /// Notes an error that is none of the database: what it holds cannot be.
    void fail(const QString& reason);
    /// Prepares a statement that runs many times with runAgain().
    QSqlQuery prepare(const QString& statement);
    bool runAgain(QSqlQuery& query, const QVariantList& values);

    /// Runs a statement for many rows in few goes: a server answers each one over the network. `%1` in it
    /// stands for the rows, each of so many cells, and comes before every other value. `take` sees what each
    /// go reads.
    using Take = std::function<void(QSqlQuery& query)>;
    void runForRows(const QString& statement, const QVector<QVariant>& cells, int cellsOfRow,
                    const QVariantList& values = {}, const Take& take = nullptr);

    bool failed() const { return mError.isValid(); }
    const QSqlError& error() const { return mError; }

private:
    void note(const QSqlError& error);
    bool execute(QSqlQuery& query);

    QSqlDatabase mDatabase;
    PreparedStatements* mPrepared;
    QList<QSqlQuery> mKept; ///< those of `mPrepared` that were run
    QSqlError mError;
    int mChanged = 0;
};

/// Narrows a condition to accounts: " AND account IN (?,…)" and its values. Nothing where all are meant: an
/// empty list, or one with "*" in it.
struct InAccounts {
    explicit InAccounts(const QStringList& accounts);

    QString condition;
    QVariantList values;
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
