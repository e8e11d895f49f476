#pragma once

#include "embedded_host/table_check/TableLint.h"
#include "table/Table.h"

#include <QList>
#include <QString>
#include <QStringList>

class ReferenceData;

/// What a trader should know of a table file before he trusts its import: how it was read, and what looks
/// wrong in it. Nothing is imported and no value changed.
///
///     const ImportedFile file = ImportedFile::read(path);
///     FileReport report = fileReport(file.table, strategy, titlesOfTheStrategy, host.referenceData());
///     report.sha256 = file.file->sha256().value;
struct FileReport {
    QString format;    ///< csv, xlsx, xls, ods; empty when the file is none of them
    QString encoding;  ///< of csv
    QString separator; ///< of csv: ",", ";" or a tab
    QString sheet;     ///< name of the sheet that was read; empty for csv
    /// Hexadecimal digits; left to the caller, since it takes a whole large file where the report takes only
    /// its first rows.
    QString sha256;
    int rowCount = 0;   ///< rows read, the header among them; never above table::RowsToRead
    int orderCount = 0; ///< rows that the import takes for orders, of those that it looks at
    QString error;      ///< a Chinese sentence where the file cannot be read; then there are no findings
    QList<table_lint::Finding> findings;

    bool isSpreadsheet() const { return format != QLatin1String("csv"); }
    /// A finding that spoils the import; an unreadable file has none.
    bool hasErrors() const;
    /// Orders that the import passes over as notes, since they lost their code.
    table::Faults lostOrders() const;
};

/// Of an inspected table. `titles`: the columns of `strategy`, with which those of the file are compared;
/// both empty: compared with nothing.
FileReport fileReport(const table::Table& table, const QString& strategy, const QStringList& titles,
                      const ReferenceData& referenceData);
