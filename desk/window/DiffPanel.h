#pragma once

#include "desk/working_copy/WorkingCopy.h"
#include "ledger/draft/BatchDiff.h"
#include "ledger/records/Records.h"

#include <QWidget>

class DiffModel;
class EmbeddedHost;
class FilteredTable;
class QLabel;
class UserPrompts;

/// What the table now imported changes against an earlier batch, one change a line.
class DiffPanel : public QWidget {
    Q_OBJECT

public:
    DiffPanel(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent = nullptr);

    FilteredTable* table() const { return mTable; }
    void show(const ledger::BatchDiff& diff);
    /// What was changed in the files themselves, on the desk: of the batch's, and of the one now imported.
    void showEdits(const ledger::Batch& batch, const QList<working_copy::Edit>& now);
    /// Nothing was compared.
    void clear();

signals:
    /// The user wants to see a row of the table now imported, from 1.
    void rowWanted(int row);

private:
    DiffModel* mModel;
    FilteredTable* mTable;
    QLabel* mEdits;
};
