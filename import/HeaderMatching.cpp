#include "import/HeaderMatching.h"

#include "host/AlgoConstants.h"
#include "strategy/ColumnRules.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"

namespace import {

namespace {

/// The file column that supplies a table column: under its title, else under an alias of either direction; -1
/// for none.
int fileColumn(const QStringList& fileHeader, const QString& title, const QMap<QString, QString>& aliases)
{
    const int direct = fileHeader.indexOf(title);
    if (direct >= 0) {
        return direct;
    }
    const auto alias = aliases.constFind(title);
    if (alias != aliases.constEnd() && fileHeader.contains(*alias)) {
        return fileHeader.indexOf(*alias);
    }
    const QString key = aliases.key(title);
    return key.isEmpty() ? -1 : fileHeader.indexOf(key);
}

} // namespace

WantedColumns wantedColumns(const strategy::Strategy& strategy)
{
    WantedColumns wanted;
    wanted.aliases = strategy::HeadAliases;
    for (const strategy::Column& column : strategy.columns) {
        wanted.titles.append(column.title);
        if (column.mustStandInFile()) {
            wanted.compulsory.append(column.title);
        }
    }
    return wanted;
}

HeaderMatch matchHeader(const QStringList& fileHeader, const WantedColumns& wanted)
{
    HeaderMatch match;
    match.fileTitles = fileHeader;
    for (const QString& title : wanted.titles) {
        if (title == Algo_Values::AlgoParamId::traderOrder) {
            match.directionColumn = fileHeader.indexOf(title);
        } else if (title == Algo_Values::AlgoParamId::entrustProp) {
            match.entrustPropColumn = fileHeader.indexOf(title);
        }
        const int column = fileColumn(fileHeader, title, wanted.aliases);
        if (column >= 0) {
            match.columnIndexMap[title] = column;
        } else if (wanted.compulsory.contains(title)) {
            match.missingColumn = title;
            return match;
        } else {
            match.optionalMissing.append(title);
        }
    }
    return match;
}

QStringList completedHeader(const QStringList& header, const strategy::Traits& traits)
{
    return traits.has(strategy::StartsOnCreate) ? QStringList{columns::CreateAndStart} + header : header;
}

QStringList completedRow(const QStringList& cells, const strategy::Traits& traits)
{
    return traits.has(strategy::StartsOnCreate)
               ? QStringList{Algo_Values::AlgoInstruction::StartOnCreate} + cells
               : cells;
}

table::Fault missingColumnFault(const HeaderMatch& header)
{
    const QString title = header.missingColumn.value_or(QString());
    table::Fault fault = table::fault(table::rule::MissingColumn, {title});
    fault.column = title;
    return fault;
}

void place(table::Fault& fault, const HeaderMatch& header, const QString& title, const QStringList& cells)
{
    const int column = header.columnOf(title);
    fault.column = header.fileTitles.value(column, title);
    fault.cell = cells.value(column);
}

} // namespace import
