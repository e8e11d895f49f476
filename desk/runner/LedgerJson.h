#pragma once

#include "ledger/BatchCreation.h"
#include "ledger/draft/BatchDiff.h"

#include <QJsonArray>
#include <QJsonObject>

/// What the runner prints; docs/schema/ describes each shape.
namespace runner {

QJsonObject toJson(const ledger::Batch& batch);
QJsonObject toJson(const ledger::Instance& instance);
QJsonObject toJson(const ledger::Verdict& verdict);
QJsonObject toJson(const ledger::UndoReport& report);
QJsonObject toJson(const ledger::ChangedInstance& changed);
QJsonArray toJson(const QList<ledger::ChangedInstance>& changed);
QJsonObject toJson(const ledger::AuditEntry& entry);
QJsonObject toJson(const ledger::AuditVerdict& verdict);
/// `batch` is the number of the batch compared with, `fileName` the edited file.
QJsonObject toJson(const ledger::BatchDiff& diff, qint64 batch, const QString& fileName);
/// The verdict and the batch that came of it, or the error.
QJsonObject creationToJson(const ledger::Verdict& verdict, const Outcome<ledger::Batch>& created);
/// A batch that an earlier attempt at the same draft made.
QJsonObject repeatedToJson(const ledger::Batch& batch);
/// The same where it did not come to a verdict.
QJsonObject noCreationToJson(const QString& error);

} // namespace runner
