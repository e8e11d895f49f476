#pragma once

#include "desk/check/FileReport.h"
#include "desk/check/Problem.h"
#include "table/Table.h"

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>

class EmbeddedHost;
class FileFacts;
class FilteredTable;
class ProblemFacets;
class ProblemsModel;
class QLabel;
class QPushButton;
class UserPrompts;

/// Everything that is wrong, whoever found it, one problem a line: with the import, the file, the batch at
/// 确定 and before it is created. The row of the file that the current one stands in is written out below,
/// what is known of the file above.
class ProblemsPanel : public QWidget {
    Q_OBJECT

public:
    ProblemsPanel(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent = nullptr);

    /// A new file is imported; its path is where the reject file is suggested.
    void begin(const QString& path);
    /// What stands in the file, left-out rows included, and the lines of these.
    void setTable(const table::Table& table, const QSet<int>& leftOut);
    /// On which lines of the file the rows of the dialog's table stand; empty where nobody knows.
    void setLinesOfRows(const QList<int>& lines);
    /// In place of what this source said before.
    void show(Problem::Source source, const table::Faults& faults);
    void add(Problem::Source source, const table::Faults& faults);
    /// What is known of the file, and what looks wrong in it.
    void showReport(const FileReport& report);
    /// What was said of the batch no longer holds.
    void forgetBatch();
    void clear();
    /// Several of these at once: the list is filled once.
    void change(const std::function<void()>& several);

    const Problems& problems() const { return mProblems; }
    Problems problemsOf(Problem::Source source) const;
    const FileReport& report() const { return mReport; }
    bool hasErrors() const;
    QString path() const { return mPath; }
    FilteredTable* table() const { return mTable; }
    FileFacts* facts() const { return mFacts; }
    ProblemFacets* facets() const { return mFacets; }

public slots:
    /// F8 and Shift+F8: from one problem to the next of those that are shown, round the end.
    void goToNext() { step(1); }
    void goToPrevious() { step(-1); }
    /// The current problem where it stands.
    void goToPlace();
    /// Asks where, and writes the refused rows with their reasons.
    void saveRejects();
    /// Of the file: the rows that the batch cannot be created with are not imported.
    void leaveOutFaulty();

signals:
    void countChanged(int count);
    /// The current problem changed.
    void currentChanged(const Problem& problem);
    /// The user wants to be where the problem is.
    void placeWanted(const Problem& problem);
    /// Rows of the file, by their lines.
    void leavingOutWanted(const QList<int>& lines);
    void said(const QString& text);

private:
    void dress();
    void listen();
    bool namesFileRows() const;
    /// Of the table, from 0; -1 where the fault is of no row of it.
    int rowOf(const table::Fault& fault) const;
    Problem placed(Problem problem) const;
    void append(Problem::Source source, const table::Faults& faults);
    void fill();
    void applyFacets();
    int placeAmong(const QList<int>& shown, int by) const;
    void step(int by);
    void showDetail(int row);
    QString detailOf(const Problem& problem) const;
    QList<int> faultyLines() const;

    UserPrompts& mPrompts;
    ProblemsModel* mModel;
    FilteredTable* mTable;
    FileFacts* mFacts;
    ProblemFacets* mFacets;
    QLabel* mDetail;
    QPushButton* mSave;
    QPushButton* mLeaveOut;
    QString mPath;
    table::Table mTableOfFile;
    QList<int> mLinesOfRows;
    FileReport mReport;
    QMap<Problem::Source, Problems> mBySource;
    Problems mProblems; ///< all, as listed
    int mLastLine = 0;  ///< of the problem that was current last, for the next one after the list changed
    int mLastColumn = -1;
    bool mIsChanging = false;
};
