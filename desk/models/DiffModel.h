#pragma once

#include "desk/models/RecordModel.h"
#include "ledger/draft/BatchDiff.h"

/// One change of a table against an earlier one.
struct DiffLine {
    enum class Kind { ColumnAdded, ColumnRemoved, CellChanged, RowRemoved, RowAdded };

    Kind kind = Kind::CellChanged;
    int oldRow = 0; ///< 1-based; 0: none
    int newRow = 0;
    QString column;
    QString before; ///< of a row: its filled cells
    QString after;
};

/// The changes in the order in which they are shown.
QList<DiffLine> diffLines(const ledger::BatchDiff& diff);

/// What the table now imported changes. Role: StateRole, a DiffLine::Kind.
class DiffModel : public RecordModel<DiffLine> {
public:
    enum Column { Kind, OldRow, NewRow, Title, Before, After };

    explicit DiffModel(QObject* parent = nullptr);

protected:
    Cell cellOf(const DiffLine& line, int column) const override;
    QVariant roleOf(const DiffLine& line, int role) const override;
};
