#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

struct CsvRecord {
    int line = 0; ///< 1-based line on which it begins
    QStringList cells;
};

/// Splits a csv file of the reference data: UTF-8 with or without a byte order mark, commas, RFC 4180. Blank
/// lines are left out. On a fault returns false and sets `error` to "FILE:LINE: what is wrong", FILE as
/// `path`.
bool splitCsv(const QByteArray& bytes, const QString& path, QVector<CsvRecord>& records, QString& error);
