#pragma once

#include "ledger/guard/Guard.h"
#include "ledger/records/Records.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariantList>

/// The statements of the ledger. Standard SQL; values are bound, never written into a statement.
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
    /// Notes an error that is none of the database: what it holds cannot be.
    void fail(const QString& reason);
    /// Prepares a statement that runs many times with runAgain().
    QSqlQuery prepare(const QString& statement);
    bool runAgain(QSqlQuery& query, const QVariantList& values);

    bool failed() const { return mError.isValid(); }
    const QSqlError& error() const { return mError; }

private:
    QSqlDatabase mDatabase;
    QSqlError mError;
};

QList<Batch> selectBatches(Statements& statements, const QString& condition = QString(),
                           const QVariantList& values = {});
QList<Instance> selectInstances(Statements& statements, const QString& condition = QString(),
                                const QVariantList& values = {});
/// Nothing where the batch has no table.
std::optional<BatchTable> selectTable(Statements& statements, qint64 batch);
QList<EarlierBatch> selectEarlier(Statements& statements, const QString& account, const QDateTime& since);

/// The next batch number.
qint64 takeNumber(Statements& statements);
void insertBatch(Statements& statements, const Batch& batch);
void insertInstances(Statements& statements, const Batch& batch, const QList<InstanceDraft>& instances);
void insertTable(Statements& statements, qint64 batch, const BatchTable& table);
void updateBatchState(Statements& statements, qint64 batch, BatchState state);
/// Every instance of the batch that is in state `before`.
void updateInstanceStates(Statements& statements, qint64 batch, InstanceState before, InstanceState after,
                          const QDateTime& now);
void updateInstanceState(Statements& statements, const InstanceId& instance, InstanceState state,
                         const QDateTime& now);

} // namespace ledger
