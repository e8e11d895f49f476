#include "embedded_host/table_writer/CsvText.h"

#include "table/HarmlessCell.h"

#include <algorithm>

namespace table_writer {
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

QByteArray csvText(const QList<QStringList>& rows)
{
    QByteArray bytes("\xEF\xBB\xBF");
    for (const QStringList& row : rows) {
        QStringList cells;
        for (const QString& cell : row) {
            cells.append(quoted(table::harmlessCell(cell)));
        }
        bytes += cells.join(QLatin1Char(',')).toUtf8() + "\r\n";
    }
    return bytes;
}

} // namespace table_writer
