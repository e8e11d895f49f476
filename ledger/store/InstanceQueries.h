#pragma once

#include "ledger/records/Records.h"
#include "ledger/store/Statements.h"
#include "ledger/store/Store.h"

/// The statements about instances and their legs.
namespace ledger {

/// `condition` is what follows WHERE, up to the order; of the legs of the same instances nothing else may be
/// asked than batch_number, row_no and account.
struct InstanceChoice {
    QString condition;
    QVariantList values;
    bool isNewestFirst = false;
    int most = 0;         ///< 0: all
    bool isBrief = false; ///< without their parameters, which cost more than all else of them
};

/// Those of a batch to which a further condition applies.
InstanceChoice choiceOf(const Batch& batch, const QString& condition = {}, const QVariantList& values = {});

/// Legs are read by the keys of the instances found.
QList<Instance> selectInstances(Statements& statements, const InstanceChoice& choice);
std::optional<Instance> selectInstance(Statements& statements, const InstanceId& id, const QString& account);
/// Of one batch, or of all.
QMap<InstanceState, qint64> countStates(Statements& statements, const std::optional<Batch>& batch);
QMap<qint64, QMap<InstanceState, qint64>> countStatesOf(Statements& statements, const QList<qint64>& batches);

/// All rows of a batch that was inserted.
void insertInstances(Statements& statements, Store& store, const Batch& batch,
                     const QList<InstanceDraft>& instances, InstanceState ofStarted);
/// Writes down whatever may have changed: state, order identifier, fills, reason, wishes; of `changed` all.
void updateInstances(Statements& statements, const QList<Instance>& changed, const QDateTime& now);
/// Writes down what a person or the desk makes of instances, state and wishes: rows in a row that became
/// alike by one statement.
void moveInstances(Statements& statements, const QList<Instance>& moved, const QDateTime& now);

} // namespace ledger
