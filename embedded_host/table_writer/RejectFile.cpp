#include "embedded_host/table_writer/RejectFile.h"

#include "embedded_host/table_writer/TextTable.h"
#include "table/HarmlessCell.h"

namespace table_writer {
namespace {

/// The header, then each row filled up to its width, with the reason behind.
QList<QStringList> tableOf(QStringList header, const QList<RefusedRow>& rows)
{
    if (!header.isEmpty() && header.last() == table::reasonTitle()) {
        header.removeLast();
    }
    const int width = header.size();
    QList<QStringList> table = {header << table::reasonTitle()};
    for (const RefusedRow& row : rows) {
        QStringList cells = row.cells.mid(0, width);
        while (cells.size() < width) {
            cells.append(QString());
        }
        table.append(cells << row.reason);
    }
    return table;
}

} // namespace

QString writeRejects(const QString& path, const QStringList& header, const QList<RefusedRow>& rows)
{
    const QList<QStringList> table = tableOf(header, rows);
    constexpr double ReasonWidth = 60;
    return writeTable(path, table, ReasonWidth);
}

} // namespace table_writer
