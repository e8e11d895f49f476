#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

/// Csv as every program reads it: UTF-8, RFC 4180, CRLF.
namespace files {

/// Cells as they stand, for a program.
QByteArray csvRows(const QList<QStringList>& rows);

/// For people: with a byte order mark, and no cell can be taken for a formula by the spreadsheet that opens
/// it (table/HarmlessCell.h).
QByteArray csvText(const QList<QStringList>& rows);

} // namespace files
