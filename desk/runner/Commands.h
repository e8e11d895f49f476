#pragma once

#include "desk/runner/CommandLine.h"
#include "table/Outcome.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include <functional>

namespace runner {

/// Takes the elements of an array one by one; false: no more are wanted.
using TakeElement = std::function<bool(const QJsonObject& element)>;
/// Hands out the elements of an array as they are read.
using Elements = std::function<Outcome<void>(const TakeElement& take)>;

/// How a subcommand ended.
struct Result {
    int status = 0;
    QByteArray output;                    ///< for standard output
    QString error;                        ///< one line for standard error; empty: nothing
    std::function<void()> told = nullptr; ///< called once the output was taken
    Elements elements = nullptr;          ///< a JSON array for standard output, in place of `output`
};

/// Wrong usage, or something that the reference data does not know.
Result refuse(const QString& error);
/// JSON for standard output.
Result print(int status, const QJsonDocument& json);
/// A JSON array for standard output, printed while it is read.
Result printEach(Elements elements);

/// Whether a table can be written to a file of that name: its ending decides the kind.
bool isTableFile(const QString& path);

Result importFile(const CommandLine& line);
Result checkFile(const CommandLine& line);
Result readRows(const CommandLine& line);
Result listStrategies(const CommandLine& line);
Result listAccounts(const CommandLine& line);
Result listSecurities(const CommandLine& line);
Result writeTemplate(const CommandLine& line);
Result readBrokersFile(const CommandLine& line);
Result listBatches(const CommandLine& line);
Result listInstances(const CommandLine& line);
Result undoBatch(const CommandLine& line);
Result diffBatch(const CommandLine& line);
Result approveBatch(const CommandLine& line);
Result refuseBatch(const CommandLine& line);
Result startInstances(const CommandLine& line);
Result stopInstances(const CommandLine& line);
Result withdrawInstances(const CommandLine& line);
Result settleInstance(const CommandLine& line);
Result auditLedger(const CommandLine& line);
Result backupLedger(const CommandLine& line);
Result restoreBackup(const CommandLine& line);
Result vacuumLedger(const CommandLine& line);
Result initLedger(const CommandLine& line);
Result copyLedger(const CommandLine& line);
Result setLedgerLimits(const CommandLine& line);
Result haltTrading(const CommandLine& line);
Result resumeTrading(const CommandLine& line);
Result showStatus(const CommandLine& line);
Result reportDay(const CommandLine& line);

} // namespace runner
