#pragma once

#include "desk/window/DeskBooks.h"

#include <QWidget>

#include <optional>

class EmbeddedHost;
class FilteredTable;
class QPushButton;
class TextTable;
class UserPrompts;

/// The batches of the ledger, newest first: look into one, take it back, hold the table now imported against
/// it.
class BatchesPage : public QWidget {
    Q_OBJECT

public:
    BatchesPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts, QWidget* parent = nullptr);

    FilteredTable* table() const { return mTable; }
    /// Why the batches could not be read; empty when they could.
    QString error() const { return mError; }

public slots:
    void reload();
    /// Asks once more, takes the selected batch back and tells what could not be reversed.
    void undo();

signals:
    void said(const QString& text);
    /// The ledger changed.
    void changed();
    void instancesWanted(qint64 batch);
    void comparisonWanted(qint64 batch);

private:
    static QStringList rowOf(const ledger::Batch& batch);
    QColor tintOf(int row, int column) const;
    std::optional<qint64> selectedBatch() const;
    void enableButtons();
    bool isUndoWanted();
    void tellUndone(const ledger::UndoReport& report);

    EmbeddedHost& mHost;
    const DeskBooks& mBooks;
    TextTable* mModel;
    FilteredTable* mTable;
    QList<QPushButton*> mBatchButtons;
    QString mError;
};
