#include "desk/mapping/MappedFile.h"

#include "embedded_host/reference_data/ReferenceData.h"
#include "embedded_host/table_reader/TableFile.h"
#include "host/AlgoConstants.h"

#include <algorithm>

namespace mapping {

namespace {

bool holdsOrders(const table::Table& table)
{
    const QList<QStringList> rows = table.rows.mid(1);
    return !std::all_of(rows.begin(), rows.end(), table::isBlankOrNote);
}

/// Of the sheets that can be seen, those that are named after a strategy.
QStringList namedSheets(const table::Table& table, const QStringList& codes)
{
    QStringList names;
    for (const table::Sheet& sheet : table.sheets) {
        if (sheet.visible && codes.contains(sheet.name)) {
            names.append(sheet.name);
        }
    }
    return names;
}

} // namespace

ImportedFile readMapped(const QString& path, const QString& encoding, const Mapping& mapping,
                        const Surroundings& surroundings)
{
    table_reader::ReadOptions options;
    options.encoding = encoding;
    options.sheet = mapping.sheet;
    options.maxRows = table::RowsToRead + MostTitleRows;
    ImportedFile file = ImportedFile::read(path, options);
    const Outcome<table::Table> told = apply(mapping, file.table, surroundings);
    if (told.ok()) {
        file.table = told.value;
        file.table.rows = file.table.rows.mid(0, table::RowsToRead);
        file.table.lines = file.table.lines.mid(0, table::RowsToRead);
    } else {
        file.table.error = told.error;
        file.table.rows.clear();
        file.table.lines.clear();
    }
    return file;
}

QStringList strategyCodes(const ReferenceData& data)
{
    QStringList codes;
    for (const AesStrategy& strategy : data.tables().strategies) {
        if (strategy.globalType() == Algo_Values::AlgoGlobalType::algo) {
            codes.append(strategy.name());
        }
    }
    return codes;
}

QList<StrategySheet> strategySheets(const ImportedFile& file, const QStringList& codes)
{
    const QStringList names = namedSheets(file.table, codes);
    QList<StrategySheet> sheets;
    for (const QString& code : names.size() > 1 && names.contains(file.table.sheet) ? names : QStringList()) {
        table_reader::ReadOptions options;
        options.sheet = code;
        const bool isRead = code == file.table.sheet;
        sheets.append({code, holdsOrders(isRead ? file.table : file.file->read(options))});
    }
    return sheets;
}

QString sheetOf(const table::Table& read, const QString& strategy, const QStringList& codes)
{
    const bool beginsWithAnother = read.sheet != strategy && codes.contains(read.sheet);
    return beginsWithAnother && namedSheets(read, codes).contains(strategy) ? strategy : QString();
}

ImportedFile readFor(const QString& path, const QString& strategy, const ReferenceData& data,
                     const QString& encoding)
{
    table_reader::ReadOptions options;
    options.encoding = encoding;
    const ImportedFile file = ImportedFile::read(path, options);
    options.sheet = sheetOf(file.table, strategy, strategyCodes(data));
    return options.sheet.isEmpty() ? file : ImportedFile::read(path, options);
}

} // namespace mapping
