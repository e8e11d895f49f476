#pragma once

#include "desk/runner/CommandLine.h"
#include "embedded_host/EmbeddedHost.h"

#include <QString>

#include <memory>

namespace runner {

/// The reference data folder that the arguments name, else the one that ships: beside the installed program
/// or in the source tree.
QString referenceDataFolder(const CommandLine& line);
/// The folder of settings and ledger that the arguments name, else the user's own.
QString homeFolder(const CommandLine& line);

/// A host without a display: its quotes stand still. Null and a line in `error` where the reference data is
/// bad.
std::unique_ptr<EmbeddedHost> openHost(const CommandLine& line, QString& error);

/// The desk's host: reference data kept in SQLite in the home and quotes that move, unless a data folder was
/// named.
std::unique_ptr<EmbeddedHost> openDeskHost(const CommandLine& line, QString& error);

/// A line where an import could not choose that strategy; empty where it can.
QString unknownStrategy(const ReferenceData& data, const QString& name);

} // namespace runner
