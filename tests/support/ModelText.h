#pragma once

#include <QAbstractItemModel>
#include <QString>
#include <QStringList>

/// A model as text, for a comparison as a whole: its titles, then a line a row, cells between bars.
inline QString modelText(const QAbstractItemModel& model, int role = Qt::DisplayRole)
{
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
        cells.append(model.headerData(column, Qt::Horizontal).toString());
    }
    QStringList lines{cells.join(QLatin1Char('|'))};
    for (int row = 0; row < model.rowCount(); ++row) {
        cells.clear();
        for (int column = 0; column < model.columnCount(); ++column) {
            cells.append(model.index(row, column).data(role).toString());
        }
        lines.append(cells.join(QLatin1Char('|')));
    }
    return lines.join(QLatin1Char('\n'));
}

/// What a role says of the first cell of every row.
inline QStringList modelRole(const QAbstractItemModel& model, int role)
{
    QStringList said;
    for (int row = 0; row < model.rowCount(); ++row) {
        said.append(model.index(row, 0).data(role).toString());
    }
    return said;
}
