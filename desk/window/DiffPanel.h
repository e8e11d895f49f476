#pragma once

#include "ledger/draft/BatchDiff.h"

#include <QWidget>

class DiffModel;
class EmbeddedHost;
class FilteredTable;
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

signals:
    /// The user wants to see a row of the table now imported, from 1.
    void rowWanted(int row);

private:
    DiffModel* mModel;
    FilteredTable* mTable;
};
