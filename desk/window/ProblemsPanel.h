#pragma once

#include "desk/check/Problem.h"
#include "table/Table.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

class FilteredTable;
class ProblemsModel;
class QLabel;
class QPushButton;
class UserPrompts;

/// The problems of the last import or confirmation, one a line; the row of the file that the current one
/// stands in is written out below.
class ProblemsPanel : public QWidget {
    Q_OBJECT

public:
    explicit ProblemsPanel(UserPrompts& prompts, QWidget* parent = nullptr);

    /// A new file is imported; its path is where the reject file is suggested, and the table is what was read
    /// of it.
    void begin(const QString& path, const table::Table& table);
    void addOfFile(const table::Faults& faults);
    /// In place of what was said of the batch before.
    void showOfBatch(const table::Faults& faults);
    /// What was said of the batch no longer holds.
    void forgetBatch();
    void clear();

    const QList<Problem>& problems() const { return mProblems; }
    QString path() const { return mPath; }
    FilteredTable* table() const { return mTable; }

public slots:
    /// F8 and Shift+F8: from one problem to the next, round the end.
    void goToNext() { step(1); }
    void goToPrevious() { step(-1); }
    /// Asks where, and writes the refused rows with their reasons.
    void saveRejects();

signals:
    void countChanged(int count);
    /// The current problem changed.
    void currentChanged(const Problem& problem);
    void said(const QString& text);

private:
    bool namesFileRows() const;
    /// Of the table, from 0; -1 where the fault is of no row of it.
    int rowOf(const table::Fault& fault) const;
    void show();
    void step(int by);
    void showDetail(int row);
    QString detailOf(const Problem& problem) const;

    UserPrompts& mPrompts;
    ProblemsModel* mModel;
    FilteredTable* mTable;
    QLabel* mDetail;
    QPushButton* mSave;
    QString mPath;
    table::Table mTableOfFile;
    table::Faults mOfFile;
    table::Faults mOfBatch;
    QList<Problem> mProblems; ///< both, as shown
};
