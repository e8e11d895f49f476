#pragma once

#include "ledger/Outbox.h"
#include "ledger/store/Statements.h"

/// The statements about halts, gateways, approvals and what the counterparty said.
namespace ledger {

/// Those that hold for an account; of an empty one: all.
QList<Halt> selectHalts(Statements& statements, const QString& account = QString());
void insertHalt(Statements& statements, const Halt& halt);
/// False where there was none.
bool deleteHalt(Statements& statements, const QString& account);

QList<Gateway> selectGateways(Statements& statements);
bool hasGateway(Statements& statements, const QString& account);
void saveGateway(Statements& statements, const Gateway& gateway);
void updateSession(Statements& statements, const Gateway& gateway);
void deleteGateway(Statements& statements, const QStringList& accounts);

std::optional<Approval> selectApproval(Statements& statements, const Batch& batch);
void insertApproval(Statements& statements, const Batch& batch, const Approval& approval);
void decideApproval(Statements& statements, const Batch& batch, const Approval& approval);

/// False where that execution was counted before.
bool insertExecution(Statements& statements, const Instance& instance, const QString& execId,
                     const QDateTime& at);
/// The same report is kept once: false where it was.
bool insertStray(Statements& statements, const Execution& execution, const QDateTime& at);
QList<StrayReport> selectStrays(Statements& statements, int most);

} // namespace ledger
