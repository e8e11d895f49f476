#pragma once

#include "desk/window/ImportProblems.h"

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

    /// A new file is imported; its path is where the reject file is suggested.
    void begin(const QString& path);
    /// Adds what a message box says about the file. Reads the file's rows where it names any.
    void addOfFile(const QString& boxText);
    /// Shows what a message box says about the batch, in place of what one said of it before.
    void showOfBatch(const QString& boxText);
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
    /// The current problem changed; `place` tells what its line counts.
    void currentChanged(const Problem& problem);
    void said(const QString& text);

private:
    bool namesFileRows() const;
    void readFileRows();
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
    QList<QStringList> mFileRows;
    QString mReadError; ///< why the rows could not be read again
    bool mIsSpreadsheet = false;
    QList<Problem> mOfFile;
    QList<Problem> mOfBatch;
    QList<Problem> mProblems; ///< both, as shown
};
