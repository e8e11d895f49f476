#include "desk/check/OrderPlaces.h"

#include "host/AesStrategy.h"
#include "import/TableReading.h"

#include <algorithm>

namespace {

strategy::Strategy schemaOf(const AesStrategy& offered)
{
    const Outcome<strategy::Strategy> parsed =
        strategy::Strategy::parse(offered.name(), offered.alias(), offered.paramFormats());
    return parsed.ok() ? parsed.value
                       : strategy::Strategy::withoutParameters(offered.name(), offered.alias());
}

} // namespace

OrderPlaces::OrderPlaces(const AesStrategy& offered, const import::Account& account,
                         const table::Table& table, const QString& path)
    : mStrategy(schemaOf(offered)), mTable(table)
{
    const import::Reading reading =
        import::readRows(mStrategy, table, account, import::dateTimeFormatOf(path));
    mLines = reading.lines;
    mRefused = reading.faults;
    std::stable_sort(mRefused.begin(), mRefused.end(),
                     [](const table::Fault& a, const table::Fault& b) { return a.line < b.line; });
    if (reading.end) {
        mRefused.append(*reading.end);
    }
    mHeader = import::matchHeader(import::completedHeader(table.rows.value(0), mStrategy.traits),
                                  import::wantedColumns(mStrategy));
    for (int row = 0; row < table.rows.size(); ++row) {
        mRowOfLine.insert(table.lineOf(row), row);
    }
}

QList<int> OrderPlaces::linesOf(int orders) const
{
    return mLines.size() == orders ? mLines : QList<int>();
}

QStringList OrderPlaces::cellsOf(int row, int orders) const
{
    const int line = linesOf(orders).value(row - 1);
    const int at = line > 0 ? mRowOfLine.value(line, -1) : -1;
    return at < 0 ? QStringList() : import::completedRow(mTable.rows.at(at), mStrategy.traits);
}

int OrderPlaces::fileColumnOf(const QString& name) const
{
    for (const strategy::Column& column : mStrategy.columns) {
        if (column.title == name || column.id == name) {
            return mHeader.columnOf(column.title);
        }
    }
    return mHeader.fileTitles.indexOf(name);
}

void OrderPlaces::place(table::Fault& fault, int orders) const
{
    const QStringList cells = fault.row > 0 ? cellsOf(fault.row, orders) : QStringList();
    if (cells.isEmpty()) {
        return;
    }
    fault.line = linesOf(orders).at(fault.row - 1);
    const int column = fault.column.isEmpty() ? -1 : fileColumnOf(fault.column);
    if (column >= 0) {
        fault.column = mHeader.fileTitles.value(column);
        fault.cell = cells.value(column);
    }
}

QString OrderPlaces::typed(int row, const QString& name, int orders) const
{
    const int column = fileColumnOf(name);
    if (column < 0) {
        return QString();
    }
    const QStringList cells = cellsOf(row, orders);
    return cells.isEmpty() ? name : cells.value(column);
}
