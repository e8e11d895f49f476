#include "import/TableReading.h"

#include "host/AlgoConstants.h"
#include "schema/DateTimeFormat.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "table/Table.h"
#include "validation/LegSplitting.h"

#include <algorithm>

namespace import {

namespace {

namespace rule = table::rule;

DataRows dataRows(const table::Table& table)
{
    return {table.rows.mid(1, table::MostOrders), table.lines.mid(1, table::MostOrders)};
}

Reading ended(table::Fault fault, int line)
{
    fault.line = line;
    Reading reading;
    reading.end = std::move(fault);
    return reading;
}

/// The title of the column that writes a parameter; its identifier where no column does.
QString titleOf(const strategy::Strategy& strategy, const QString& id)
{
    const auto column = std::find_if(strategy.columns.begin(), strategy.columns.end(),
                                     [&](const strategy::Column& candidate) { return candidate.id == id; });
    return column == strategy.columns.end() ? id : column->title;
}

QString unpairedFieldOf(const QMap<QString, QVariant>& instance)
{
    const QVariantList legs = instance.value(Algo_Values::AlgoParamId::AlgoSecurityList).toList();
    return validation::unpairedField(legs.value(0).toMap());
}

/// Splits what was read; each row that cannot be becomes a fault.
class LegSplitter {
public:
    LegSplitter(const strategy::Strategy& strategy, const HeaderMatch& header, const DataRows& rows)
        : mStrategy(strategy), mHeader(header), mRows(rows)
    {
    }

    void split(RowsRead& read) const
    {
        const QList<QMap<QString, QVariant>> unsplit = read.instances;
        const QList<int> failed = validation::splitInstances(read.instances, read.records);
        for (const int index : failed) {
            read.faults.append(faultOf(index, read.rows.at(index), unpairedFieldOf(unsplit.at(index))));
        }
        for (int k = failed.size() - 1; k >= 0; --k) {
            read.rows.removeAt(failed.at(k));
        }
    }

private:
    table::Fault faultOf(int index, int row, const QString& field) const
    {
        table::Fault fault = table::fault(rule::BadPairedFields);
        fault.line = mRows.lineOf(row);
        fault.row = index + 1;
        place(fault, mHeader, titleOf(mStrategy, field), completedRow(mRows.cells.at(row), mStrategy.traits));
        return fault;
    }

    const strategy::Strategy& mStrategy;
    const HeaderMatch& mHeader;
    const DataRows& mRows;
};

/// What keeps the rows from being read at all.
std::optional<table::Fault> faultOfFile(const table::Table& table)
{
    if (!table.error.isEmpty()) {
        return table::fault(rule::ReaderError, {table.error});
    }
    return table.rows.isEmpty() ? std::optional(table::fault(rule::ReadFailed)) : std::nullopt;
}

} // namespace

Reading readRows(const strategy::Strategy& strategy, const table::Table& table, const Account& account,
                 const QString& dateTimeFormat)
{
    if (const std::optional<table::Fault> fault = faultOfFile(table)) {
        return ended(*fault, 0);
    }
    const HeaderMatch header =
        matchHeader(completedHeader(table.rows.first(), strategy.traits), wantedColumns(strategy));
    if (header.missingColumn) {
        return ended(missingColumnFault(header), table.lineOf(0));
    }
    const DataRows rows = dataRows(table);
    if (rows.cells.isEmpty()) {
        return ended(table::fault(rule::NoDataRows), 0);
    }
    RowsRead read = RowReader(strategy, header, account, dateTimeFormat).read(rows);
    if (!read.end && strategy.traits.has(strategy::Lock)) {
        LegSplitter(strategy, header, rows).split(read);
    }
    Reading reading{read.records, read.instances, {}, read.faults, read.end, read.passedOver};
    for (const int row : qAsConst(read.rows)) {
        reading.lines.append(rows.lineOf(row));
    }
    return reading;
}

bool looksLikeCsv(const QString& path)
{
    const QStringList parts = path.split(QLatin1Char('.'));
    return parts.size() >= 2 && parts.at(1).toLower() == QLatin1String("csv");
}

QString dateTimeFormatOf(const QString& path)
{
    return looksLikeCsv(path) ? schema::TypedDateTimeFormat : schema::SheetDateTimeFormat;
}

} // namespace import
