#include "files/CsvText.h"

#include "table/HarmlessCell.h"

#include <algorithm>

namespace files {
namespace {

/// Quotes what would break a row, what another separator would break, and blanks, which some programs drop.
QString quoted(QString cell)
{
    const bool isPlain = std::none_of(cell.cbegin(), cell.cend(),
                                      [](QChar c) { return QStringLiteral(",;\t\"\r\n ").contains(c); });
    return isPlain
               ? cell
               : QLatin1Char('"') + cell.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

} // namespace

QByteArray csvRows(const QList<QStringList>& rows)
{
    QByteArray bytes;
    for (const QStringList& row : rows) {
        QStringList cells;
        for (const QString& cell : row) {
            cells.append(quoted(cell));
        }
        bytes += cells.join(QLatin1Char(',')).toUtf8() + "\r\n";
    }
    return bytes;
}

QByteArray csvText(const QList<QStringList>& rows)
{
    QList<QStringList> harmless = rows;
    for (QStringList& row : harmless) {
        for (QString& cell : row) {
            cell = table::harmlessCell(cell);
        }
    }
    return "\xEF\xBB\xBF" + csvRows(harmless);
}

} // namespace files
