#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

struct CsvRecord {
    int line = 0; ///< 1-based line on which it begins
    QStringList cells;
};

/// Reads a whole csv file of the reference data: UTF-8 with or without a byte order mark, commas, RFC 4180.
/// Blank lines are left out. On a fault returns false and sets `error` to "FILE:LINE: what is wrong".
bool readCsvRecords(const QString& path, QVector<CsvRecord>& records, QString& error);

/// Reads a whole file; on a fault returns false and sets `error` as above.
bool readWholeFile(const QString& path, QByteArray& bytes, QString& error);
