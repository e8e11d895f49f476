#pragma once

#include "import/HeaderMatching.h"
#include "import/RowReader.h"
#include "strategy/Strategy.h"
#include "table/Fault.h"
#include "table/Table.h"

#include <QHash>
#include <QList>
#include <QString>

class AesStrategy;

/// On which lines of its file the orders of a batch stand, found by reading the table once more as the dialog
/// did. After a change of account the import would be another; then nobody knows the lines.
///
///     const OrderPlaces places(strategy, account, file.table, file.path);
///     for (table::Fault& fault : faults) { places.place(fault, instances.size()); }
class OrderPlaces {
public:
    OrderPlaces() = default; ///< knows of no file
    OrderPlaces(const AesStrategy& offered, const import::Account& account, const table::Table& table,
                const QString& path);

    const strategy::Strategy& strategy() const { return mStrategy; }
    /// What the import dropped, and what ended it, in the order of the lines.
    const table::Faults& refused() const { return mRefused; }
    /// Of each row of a batch with so many orders; empty where nobody knows.
    QList<int> linesOf(int orders) const;
    /// Gives a fault that names a row of a batch its line, and its column the file's title and cell.
    void place(table::Fault& fault, int orders) const;
    /// What the row has under a column, by the column's title or identifier or else by the file's own title;
    /// empty where the import filled it in. Where nobody knows the line, a column that the file has counts as
    /// typed.
    QString typed(int row, const QString& name, int orders) const;

private:
    int fileColumnOf(const QString& name) const;
    QStringList cellsOf(int row, int orders) const;

    strategy::Strategy mStrategy;
    table::Table mTable;
    import::HeaderMatch mHeader;
    table::Faults mRefused;
    QList<int> mLines;          ///< of each row that the import took
    QHash<int, int> mRowOfLine; ///< of the table
};
