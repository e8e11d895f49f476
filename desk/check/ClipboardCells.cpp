#include "desk/check/ClipboardCells.h"

#include "embedded_host/table_reader/TableReader.h"

#include <QBuffer>

namespace clipboard_cells {

namespace {

table::Table readText(const QString& text)
{
    QBuffer buffer;
    buffer.setData(text.toUtf8());
    buffer.open(QIODevice::ReadOnly);
    table_reader::ReadOptions options;
    options.encoding = QStringLiteral("UTF-8");
    options.inspect = true;
    return table_reader::readTable(buffer, options);
}

/// The first line decides what separates cells: one that holds a tab alone, whatever stands in the cells.
table::Table readTabbed(const QString& text)
{
    table::Table table = readText(QStringLiteral("\t\n") + text);
    if (!table.rows.isEmpty()) {
        table.rows.removeFirst();
        table.lines.removeFirst();
    }
    for (int& line : table.lines) {
        --line;
    }
    return table;
}

QString quoted(const QString& cell)
{
    const bool isPlain = !cell.contains(QLatin1Char('\t')) && !cell.contains(QLatin1Char('\n')) &&
                         !cell.contains(QLatin1Char('"'));
    return isPlain ? cell
                   : QLatin1Char('"') + QString(cell).replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
                         QLatin1Char('"');
}

} // namespace

QList<QStringList> cellsOf(const QString& text)
{
    return text.isEmpty() ? QList<QStringList>() : readTabbed(text).rows;
}

QString textOf(const QList<QStringList>& cells)
{
    QStringList lines;
    for (const QStringList& row : cells) {
        QStringList quotedCells;
        for (const QString& cell : row) {
            quotedCells.append(quoted(cell));
        }
        lines.append(quotedCells.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

table::Table tableOf(const QString& text)
{
    return text.contains(QLatin1Char('\t')) ? readTabbed(text) : readText(text);
}

} // namespace clipboard_cells
