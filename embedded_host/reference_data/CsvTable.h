#pragma once

#include "embedded_host/reference_data/CsvRecords.h"
#include "embedded_host/reference_data/Misspelling.h"
#include "embedded_host/reference_data/ReferenceColumns.h"
#include "embedded_host/reference_data/ReferenceFaults.h"

#include <QHash>

#include <algorithm>

/// Turns the bytes of a csv file into the rows of a table. The first fault ends it.
template <typename Row> class CsvTable {
public:
    CsvTable(const ReferenceTable<Row>& table, const QString& path) : mTable(table), mPath(path) {}

    /// False on a fault, with `error` as "FILE:LINE: what is wrong".
    bool read(const QByteArray& bytes, QList<Row>& rows, QString& error)
    {
        QVector<CsvRecord> records;
        if (!splitCsv(bytes, mPath, records, error)) {
            return false;
        }
        if (records.isEmpty()) {
            error = reference_faults::at(mPath, 1, reference_faults::noHeader());
            return false;
        }
        const bool sound = takeHeader(records.first()) &&
                           std::all_of(records.cbegin() + 1, records.cend(),
                                       [&](const CsvRecord& record) { return takeRow(record, rows); });
        error = mError;
        return sound;
    }

private:
    bool fail(const CsvRecord& record, const QString& what)
    {
        mError = reference_faults::at(mPath, record.line, what);
        return false;
    }

    /// Finds where each column stands; columns that the table does not know are ignored. An ordinary column
    /// may be absent, but not under a slip of the pen: its default in every row would be wrong in silence.
    bool takeHeader(const CsvRecord& header)
    {
        mWidth = header.cells.size();
        const QStringList unknown = unknownAmong(header.cells);
        for (const auto& column : mTable.columns) {
            const int place = header.cells.indexOf(column.name);
            const QString misspelt = place < 0 ? misspellingOf(column.name, unknown) : QString();
            if (place < 0 && (column.kind == ReferenceColumn<Row>::Key || !misspelt.isEmpty())) {
                return fail(header, reference_faults::missingColumn(column.name, misspelt));
            }
            if (place >= 0 && header.cells.indexOf(column.name, place + 1) >= 0) {
                return fail(header, reference_faults::duplicateColumn(column.name));
            }
            mPlaces.append(place);
        }
        return true;
    }

    QStringList unknownAmong(QStringList titles) const
    {
        for (const auto& column : mTable.columns) {
            titles.removeAll(column.name);
        }
        return titles;
    }

    bool takeRow(const CsvRecord& record, QList<Row>& rows)
    {
        const bool hasSurplus =
            std::any_of(record.cells.cbegin() + qMin(mWidth, record.cells.size()), record.cells.cend(),
                        [](const QString& cell) { return !cell.isEmpty(); });
        if (hasSurplus) {
            return fail(record, reference_faults::tooManyCells(record.cells.size(), mWidth));
        }
        Row row;
        if (!takeCells(record, row) || !takeKey(record)) {
            return false;
        }
        if (mTable.complete) {
            mTable.complete(row);
        }
        rows.append(row);
        return true;
    }

    bool takeCells(const CsvRecord& record, Row& row)
    {
        for (int i = 0; i < mTable.columns.size(); ++i) {
            const auto& column = mTable.columns.at(i);
            const QString cell = record.cells.value(mPlaces.at(i));
            if (column.kind == ReferenceColumn<Row>::Key && cell.trimmed().isEmpty()) {
                return fail(record, reference_faults::emptyKey(column.name));
            }
            const QString fault = cell.isEmpty() ? QString() : column.read(row, cell);
            if (!fault.isEmpty()) {
                return fail(record, fault);
            }
        }
        return true;
    }

    bool takeKey(const CsvRecord& record)
    {
        if (mTable.keys == ReferenceTable<Row>::Repeatable) {
            return true;
        }
        QStringList names;
        QStringList values;
        for (int i = 0; i < mTable.columns.size(); ++i) {
            if (mTable.columns.at(i).kind == ReferenceColumn<Row>::Key) {
                names.append(mTable.columns.at(i).name);
                values.append(record.cells.value(mPlaces.at(i)));
            }
        }
        const auto first = mLineOfKey.constFind(values);
        if (first != mLineOfKey.constEnd()) {
            const QLatin1String comma(",");
            return fail(record,
                        reference_faults::duplicateKey(names.join(comma), values.join(comma), *first));
        }
        mLineOfKey.insert(values, record.line);
        return true;
    }

    const ReferenceTable<Row>& mTable;
    const QString mPath;
    QString mError;
    int mWidth = 0;
    QVector<int> mPlaces; // of each of the table's columns in a record; -1: absent
    QHash<QStringList, int> mLineOfKey;
};
