#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// Writes the rows that an import refused, so that they can be mended and imported again.
///
/// No cell of the file can be taken for a formula: in xlsx each is stored as text, with the format "text",
/// and no spreadsheet calculates it; in csv see table/HarmlessCell.h. Either way the table reader gives the
/// cells back unchanged, with the reasons in a last column that an import does not know and leaves alone.
namespace table_writer {

struct RefusedRow {
    QStringList cells; ///< in the columns of the header; may be shorter
    QString reason;    ///< for the extra column behind them, titled table::reasonTitle()
};

/// Writes header, rows and reasons to `path`: as xlsx where it ends so, else as csv (UTF-8 with byte order
/// mark, CRLF). A header that ends with the column of reasons already, since the file was a reject file
/// itself, gets no second one. Empty, or a Chinese sentence; an existing file stays as it was until the new
/// one is whole.
///
///     writeRejects("rejects.csv", {"证券代码", "市场"}, {{{"600000", "沪"}, "市场不存在"}});
QString writeRejects(const QString& path, const QStringList& header, const QList<RefusedRow>& rows);

} // namespace table_writer
