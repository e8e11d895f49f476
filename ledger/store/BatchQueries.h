#pragma once

#include "ledger/guard/Standing.h"
#include "ledger/store/Statements.h"
#include "ledger/store/Store.h"
#include "ledger/values/ExchangeTime.h"

#include <optional>

/// The statements about batches, their tables and what an account did in a day.
namespace ledger {

/// `condition` is the rest of the statement from WHERE on.
QList<Batch> selectBatches(Statements& statements, const QString& condition, const QVariantList& values = {});
/// By the number alone, for whoever names a batch by it; all further statements carry its account.
std::optional<Batch> selectBatch(Statements& statements, qint64 number);
std::optional<Batch> selectBatch(Statements& statements, qint64 number, const QString& account);
/// What a draft made; `accounts` as of InAccounts.
std::optional<Batch> selectBatchOf(Statements& statements, const QUuid& draft, const QStringList& accounts);
/// Nothing where the batch has no table.
std::optional<BatchTable> selectTable(Statements& statements, const Batch& batch);

/// The next value of a counter of the ledger; from here to the end of the transaction nobody else gets one.
qint64 takeNumber(Statements& statements, const QString& name);
void insertBatch(Statements& statements, const Batch& batch);
void insertTable(Statements& statements, Store& store, const Batch& batch, const BatchTable& table);
void updateBatchState(Statements& statements, const Batch& batch, BatchState state);

/// Of that account and day; without a row nothing was done.
AccountDay selectDay(Statements& statements, const QString& account, const QDate& day,
                     const QString& forUpdate);
QList<AccountDay> selectDays(Statements& statements, const QDate& day);
void saveDay(Statements& statements, const AccountDay& day);

/// What the draft would create again; see Standing. The same file is looked for on every account.
QList<Duplicate> selectDuplicates(Statements& statements, const Store& store, const BatchDraft& draft,
                                  const QDateTime& now);
QList<Duplicate> selectLately(Statements& statements, const BatchDraft& draft, const QDateTime& now);

} // namespace ledger
