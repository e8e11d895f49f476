#pragma once

#include "desk/broker/BrokerRules.h"
#include "host/AesStrategy.h"
#include "import/RowReader.h"
#include "table/Table.h"

namespace broker {

/// What the orders of an imported file break, each with its line, column and cell. The dialog must have been
/// given the table before, since it subscribes to the quotes. `path` as it was given.
table::Faults faultsOfTable(const BrokerRules& rules, const AesStrategy& offered,
                            const import::Account& account, const table::Table& table, const QString& path);

} // namespace broker
