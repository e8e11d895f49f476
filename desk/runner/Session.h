#pragma once

#include "desk/runner/CommandLine.h"
#include "embedded_host/EmbeddedHost.h"

#include <QString>

#include <memory>

namespace runner {

/// Folder of the reference data that ships with the program: beside the installed program, else in the source
/// tree.
QString shippedReferenceData();
/// Folder of settings and ledger where none was named.
QString defaultHome();

/// A host on the named (or the shipped) reference data whose quotes stand still; null and a line in `error`
/// where the data is bad.
std::unique_ptr<EmbeddedHost> openHost(const CommandLine& line, QString& error);

} // namespace runner
