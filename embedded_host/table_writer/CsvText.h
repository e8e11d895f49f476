#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

/// Csv as every program reads it: UTF-8 with a byte order mark, RFC 4180, CRLF.
namespace table_writer {

/// Cells as they stand.
QByteArray csvText(const QList<QStringList>& rows);

/// For a spreadsheet to open: no cell can be taken for a formula (table/HarmlessCell.h).
QByteArray harmlessCsvText(const QList<QStringList>& rows);

} // namespace table_writer
