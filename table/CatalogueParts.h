#pragma once

#include "table/FaultCatalogue.h"

/// The catalogue's files, one a subject. For the catalogue alone.
namespace table {

const QList<RuleEntry>& importRules(); ///< rows and headers, as the dialog says them: exact texts
const QList<RuleEntry>&
validationRules(); ///< 确定 and a change of account, as the dialog says them: exact texts
const QList<RuleEntry>& checkRules(); ///< of the file check
const QList<RuleEntry>& guardRules(); ///< of the guard, before a batch is created

} // namespace table
