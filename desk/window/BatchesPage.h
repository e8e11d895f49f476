#pragma once

#include "desk/models/BatchesModel.h"
#include "desk/window/DeskBooks.h"

#include <QWidget>

#include <optional>

class EmbeddedHost;
class FilteredTable;
class QPushButton;
class UserPrompts;

/// The batches of the ledger, newest first: look into one, take it back, hold the table now imported against
/// it.
class BatchesPage : public QWidget {
    Q_OBJECT

public:
    BatchesPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts, QWidget* parent = nullptr);

    FilteredTable* table() const { return mTable; }
    /// Why the batches could not be read; empty when they could.
    QString error() const;

    /// How the instances of the newest batches stand.
    const BatchesModel::Counts& counts() const { return mCounts; }

public slots:
    /// Whether there is a table now imported that a batch can be compared with.
    void setComparable(bool isComparable);
    void reload();
    /// Asks once more, takes the selected batch back and tells what could not be reversed.
    void undo();
    /// What was changed on the desk in the file of the selected batch.
    void showEdits();

signals:
    void said(const QString& text);
    /// The ledger changed.
    void changed();
    void instancesWanted(qint64 batch);
    void comparisonWanted(qint64 batch);

private:
    /// Newest first, those behind `last`.
    Outcome<QList<ledger::Batch>> batches(const ledger::Batch* last, int count) const;
    void tellState();
    void countInstances();
    std::optional<qint64> selectedBatch() const;
    void enableButtons();
    QString undoObjection(const ledger::Batch& batch) const;
    bool isUndoWanted();
    void tellUndone(const ledger::UndoReport& report);

    const DeskBooks& mBooks;
    BatchesModel* mModel;
    FilteredTable* mTable;
    QPushButton* mLook;
    QPushButton* mCompare;
    QPushButton* mUndo;
    QPushButton* mShowEdits;
    bool mIsComparable = false;
    BatchesModel::Counts mCounts;
};
