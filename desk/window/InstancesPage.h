#pragma once

#include "desk/window/DeskBooks.h"

#include <QWidget>

#include <optional>

class EmbeddedHost;
class FilteredTable;
class QPushButton;
class TextTable;
class UserPrompts;

/// The instances of the ledger, of all batches or of one.
class InstancesPage : public QWidget {
    Q_OBJECT

public:
    InstancesPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts,
                  QWidget* parent = nullptr);

    FilteredTable* table() const { return mTable; }
    /// Why the instances could not be read; empty when they could.
    QString error() const { return mError; }
    /// Nothing: of all batches.
    void showBatch(std::optional<qint64> batch);

public slots:
    void reload();

signals:
    void said(const QString& text);

private:
    QStringList rowOf(const ledger::Instance& instance) const;
    QColor tintOf(int row, int column) const;

    EmbeddedHost& mHost;
    const DeskBooks& mBooks;
    TextTable* mModel;
    FilteredTable* mTable;
    QPushButton* mAllBatches;
    QString mError;
    std::optional<qint64> mBatch;
};
