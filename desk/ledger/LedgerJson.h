#pragma once

#include "desk/ledger/BatchCreation.h"
#include "desk/ledger/BatchDiff.h"

#include <QJsonArray>
#include <QJsonObject>

/// What the runner prints; docs/schema/ describes each shape.
namespace ledger {

QJsonObject toJson(const Batch& batch);
QJsonObject toJson(const Instance& instance);
QJsonObject toJson(const Verdict& verdict);
QJsonObject toJson(const UndoReport& report);
/// `batch` is the number of the batch compared with, `fileName` the edited file.
QJsonObject toJson(const BatchDiff& diff, qint64 batch, const QString& fileName);
QJsonArray toJson(const QList<Batch>& batches);
QJsonArray toJson(const QList<Instance>& instances);
/// The verdict and the batch that came of it, or the error.
QJsonObject creationToJson(const Verdict& verdict, const Outcome<Batch>& created);
/// The same where it did not come to a verdict.
QJsonObject noCreationToJson(const QString& error);

/// Parameters as JSON and back: texts, numbers, booleans, lists and maps.
QByteArray parametersToText(const QMap<QString, QVariant>& parameters);
QMap<QString, QVariant> parametersFromText(const QByteArray& text);

} // namespace ledger
