#pragma once

#include "desk/runner/CommandLine.h"

#include <QJsonDocument>
#include <QString>

namespace runner {

/// How a subcommand ended.
struct Outcome {
    int status = 0;
    QJsonDocument json; ///< for standard output; null: nothing
    QString error;      ///< one line for standard error; empty: nothing
};

Outcome refuse(const QString& error);

Outcome importFile(const CommandLine& line);
Outcome checkFile(const CommandLine& line);
Outcome readRows(const CommandLine& line);
Outcome listStrategies(const CommandLine& line);
Outcome listAccounts(const CommandLine& line);
Outcome listSecurities(const CommandLine& line);
Outcome writeTemplate(const CommandLine& line);
Outcome listBatches(const CommandLine& line);
Outcome listInstances(const CommandLine& line);
Outcome undoBatch(const CommandLine& line);
Outcome diffBatch(const CommandLine& line);

} // namespace runner
