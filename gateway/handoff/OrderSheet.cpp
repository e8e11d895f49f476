#include "gateway/handoff/OrderSheet.h"

#include "files/CsvText.h"
#include "gateway/handoff/FieldNames.h"
#include "words/Words.h"

#include <QRegularExpression>

namespace gateway {

namespace {

const int StrategyGroup = 957;
const int LegGroup = 555;

struct Cell {
    QString column;
    QString value;
};

using Cells = QList<Cell>;

QString text(const std::string& bytes)
{
    return QString::fromStdString(bytes);
}

void add(Cells& cells, const Fields& fields)
{
    for (const Field& field : fields) {
        cells.append({columnOf(field.tag), text(field.value)});
    }
}

Cells cellsOfStrategy(const Group& group)
{
    Cells cells;
    for (const Fields& entry : group.entries) {
        const std::string* name = findField(entry, 958);
        const std::string* value = findField(entry, 960);
        if (name != nullptr && value != nullptr) {
            cells.append({text(*name), text(*value)});
        }
    }
    return cells;
}

/// What stands in every row.
Cells commonCells(const Message& message)
{
    Cells cells = {{columnOf(35), text(message.type)}};
    add(cells, message.header);
    add(cells, message.body);
    if (const Group* strategy = message.group(StrategyGroup)) {
        cells += cellsOfStrategy(*strategy);
    }
    return cells;
}

QStringList columnsOf(const QList<Cells>& rows)
{
    QStringList columns;
    for (const Cells& row : rows) {
        for (const Cell& cell : row) {
            if (!columns.contains(cell.column)) {
                columns.append(cell.column);
            }
        }
    }
    return columns;
}

QStringList laidOut(const Cells& row, const QStringList& columns)
{
    QStringList texts;
    for (int i = 0; i < columns.size(); ++i) {
        texts.append(QString());
    }
    for (const Cell& cell : row) {
        texts[columns.indexOf(cell.column)] = cell.value;
    }
    return texts;
}

} // namespace

QByteArray sheetOf(const Message& message)
{
    QList<Cells> rows;
    if (const Group* legs = message.group(LegGroup)) {
        for (const Fields& leg : legs->entries) {
            rows.append(commonCells(message));
            add(rows.last(), leg);
        }
    } else {
        rows.append(commonCells(message));
    }
    const QStringList columns = columnsOf(rows);
    QList<QStringList> table = {columns};
    for (const Cells& row : rows) {
        table.append(laidOut(row, columns));
    }
    return files::csvRows(table);
}

QString sheetName(const Message& message)
{
    static const QRegularExpression plain(QStringLiteral("\\A[A-Za-z0-9][A-Za-z0-9-]{0,99}\\z"));
    const QString request = text(message.text(790));
    const QString id = text(message.text(11)) + (request.isEmpty() ? QString() : QLatin1Char('-') + request);
    return plain.match(id).hasMatch() ? id + QStringLiteral(".csv") : QString();
}

QString clashesIn(const Profile& profile)
{
    QStringList clashes;
    for (auto it = profile.strategies.begin(); it != profile.strategies.end(); ++it) {
        for (int i = 0; i < it->parameters.size(); ++i) {
            const QString& name = it->parameters.at(i).name;
            bool isNumber = false;
            name.toInt(&isNumber);
            if (isNumber || tagOfColumn(name) != 0) {
                clashes.append(Words::tr("strategies.%1.parameters[%2].name：“%3”是另一列的名称")
                                   .arg(it.key())
                                   .arg(i)
                                   .arg(name));
            }
        }
    }
    return clashes.join(QLatin1Char('\n'));
}

} // namespace gateway
