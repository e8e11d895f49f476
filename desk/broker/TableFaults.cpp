#include "desk/broker/TableFaults.h"

#include "import/TableReading.h"
#include "strategy/Strategy.h"

namespace broker {

namespace {

/// Line, and the cell under the column where the file has it.
void place(table::Fault& fault, const table::Table& table, int line)
{
    fault.line = line;
    const int column = table.rows.value(0).indexOf(fault.column);
    for (int row = 0; row < table.rows.size() && column >= 0; ++row) {
        if (table.lineOf(row) == line) {
            fault.cell = table.rows.at(row).value(column);
        }
    }
}

} // namespace

table::Faults faultsOfTable(const BrokerRules& rules, const AesStrategy& offered,
                            const import::Account& account, const table::Table& table, const QString& path)
{
    table::Faults faults;
    const Outcome<strategy::Strategy> schema =
        strategy::Strategy::parse(offered.name(), offered.alias(), offered.paramFormats());
    if (rules.isEmpty() || !schema.ok()) {
        return faults;
    }
    const import::Reading reading =
        import::readRows(schema.value, table, account, import::dateTimeFormatOf(path));
    for (int i = 0; i < reading.instances.size() && !reading.end; ++i) {
        for (table::Fault fault : rules.faultsOf(offered.name(), reading.instances.at(i))) {
            fault.row = i + 1;
            place(fault, table, reading.lines.value(i));
            faults.append(fault);
        }
    }
    return faults;
}

} // namespace broker
