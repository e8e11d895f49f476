#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

/// Csv as every program reads it: UTF-8 with a byte order mark, RFC 4180, CRLF. No cell can be taken for a
/// formula by the spreadsheet that opens it (table/HarmlessCell.h).
namespace table_writer {

QByteArray csvText(const QList<QStringList>& rows);

} // namespace table_writer
