#pragma once

#include "desk/check/ImportedFile.h"
#include "desk/mapping/Mapping.h"

class ReferenceData;

/// Files whose sheet or words are not those that an import would take by itself.
namespace mapping {

/// The file as the mapping tells it: the rows that an import looks at, whatever stands above the header.
/// Where sheet, line or titles are not there, the sentence is the table's error. `encoding`: of csv; empty:
/// told from the bytes.
ImportedFile readMapped(const QString& path, const QString& encoding, const Mapping& mapping,
                        const Surroundings& surroundings);

/// A sheet that is named after a strategy.
struct StrategySheet {
    QString strategy; ///< code, and name of the sheet
    bool isFilled = false;
};

/// Of the strategies that sheets may be named after.
QStringList strategyCodes(const ReferenceData& data);

/// Of a workbook that begins with a strategy's sheet and has those of others, as the template of all
/// strategies does: the sheets of the strategies, in its order; those that can be seen. Of any other file
/// none.
QList<StrategySheet> strategySheets(const ImportedFile& file, const QStringList& codes);

/// The sheet that an import under a strategy reads; empty: the one that was read already. Only of a workbook
/// that begins with another strategy's sheet.
QString sheetOf(const table::Table& read, const QString& strategy, const QStringList& codes);

/// The file as an import under the strategy reads it: the sheet of that name where it has one.
ImportedFile readFor(const QString& path, const QString& strategy, const ReferenceData& data,
                     const QString& encoding = {});

} // namespace mapping
