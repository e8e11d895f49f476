#pragma once

#include "desk/models/PagedModel.h"
#include "desk/window/DeskBooks.h"

#include <QWidget>

#include <optional>

class EmbeddedHost;
class FilteredTable;
class InstanceActions;
class InstancesModel;
class QPlainTextEdit;
class QPushButton;
class UserPrompts;

/// The instances of the ledger, of all batches or of one; those of the newest batch first. Those selected are
/// started, stopped and withdrawn here, and what came of each stands below.
class InstancesPage : public QWidget {
    Q_OBJECT

public:
    InstancesPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts,
                  QWidget* parent = nullptr);

    FilteredTable* table() const { return mTable; }
    /// Why the instances could not be read; empty when they could.
    QString error() const;
    /// Nothing: of all batches.
    void showBatch(std::optional<qint64> batch);

public slots:
    void reload();

protected:
    void showEvent(QShowEvent* event) override;

signals:
    void said(const QString& text);
    /// Instances of the ledger were changed here.
    void changed();

private:
    void tellResults(const QString& summary, const QStringList& results);
    void tellFailure(const QString& error);
    /// Nothing: of all batches.
    Pages<ledger::Instance> pagesOfBatch(std::optional<qint64> batch) const;
    QString nameOf(const QString& symbol) const;
    void tellState();

    EmbeddedHost& mHost;
    const DeskBooks& mBooks;
    InstancesModel* mModel;
    FilteredTable* mTable;
    QPushButton* mAllBatches;
    InstanceActions* mActions;
    QPlainTextEdit* mResults; ///< hidden before anything was done
};
