#pragma once

#include "ledger/draft/BatchDiff.h"

#include <QWidget>

class EmbeddedHost;
class FilteredTable;
class TextTable;
class UserPrompts;

/// What the table now imported changes against an earlier batch, one change a line.
class DiffPanel : public QWidget {
    Q_OBJECT

public:
    DiffPanel(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent = nullptr);

    FilteredTable* table() const { return mTable; }
    void show(const ledger::BatchDiff& diff);
    /// Nothing was compared.
    void clear();

private:
    QColor tintOf(int row, int column) const;

    EmbeddedHost& mHost;
    TextTable* mModel;
    FilteredTable* mTable;
};
