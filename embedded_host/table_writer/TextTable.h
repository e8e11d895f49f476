#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace table_writer {

/// Writes rows of texts, the header first, to `path`: as xlsx where it ends so, else as csv (UTF-8 with byte
/// order mark, CRLF). No cell can be taken for a formula. `lastWidth`: of the last column of a sheet, in
/// characters; 0: as the spreadsheet likes. Empty, or a Chinese sentence; an existing file stays as it was
/// until the new one is whole.
QString writeTable(const QString& path, const QList<QStringList>& table, double lastWidth = 0);

} // namespace table_writer
