#pragma once

#include "desk/check/ImportedFile.h"
#include "desk/verdict/Judgement.h"
#include "desk/window/DialogFrame.h"
#include "desk/window/FileDigest.h"
#include "desk/window/HandOver.h"
#include "ledger/draft/BatchDiff.h"

#include <QString>
#include <QWidget>

#include <optional>

class AmountRefresher;
class DiffPanel;
class FileGrid;
class FileIntake;
class FileMending;
class FileWatch;
class FilteredTable;
class ImportQueue;
class ParametersModel;
class ProblemsPanel;
class QSplitter;
class QTabWidget;
struct IntakeItem;
struct Problem;

/// The dialog in its frame, behind it its file as a sheet that can be mended, and below them everything that
/// is wrong, what changes against an earlier batch and what was handed over last.
class ImportPage : public QWidget {
    Q_OBJECT

public:
    ImportPage(EmbeddedHost& host, DeskPrompts& prompts, QWidget* parent = nullptr);
    ~ImportPage() override;

    DialogFrame* frame() const { return mFrame; }
    /// Null while the dialog is closed.
    AlgoBatchImportParamSetting* dialog() const { return mFrame->dialog(); }
    ProblemsPanel* problems() const { return mProblems; }
    FileGrid* grid() const { return mGrid; }
    FileMending* mending() const { return mMending; }
    DiffPanel* diff() const { return mDiff; }
    AmountRefresher* amounts() const { return mAmounts; }
    ImportQueue* queue() const { return mQueue; }
    FilteredTable* handedOver() const { return mHandedOver; }

    /// The batch of the last confirmed() was created, or not: closes the dialog where the user wanted that,
    /// or lets him confirm again.
    void finish(const HandOver& batch, bool created);
    /// Selects a row of the batch, from 1.
    void showRow(int row);
    /// What is known against creating the batch, in the list of what is wrong.
    void showJudgement(const verdict::Judgement& judgement);
    /// The table as it stands; without rows before an import.
    ledger::BatchTable currentTable() const;
    QString fileName() const;
    /// What the open dialog holds.
    batch::DialogContent content() const { return mFrame->content(mFile.path, QString()); }
    /// What the table changes against a batch.
    void showDiff(const ledger::BatchDiff& diff, const ledger::Batch& batch);
    /// A batch on screen that was imported or mended, and not created.
    bool hasOpenBatch() const;
    /// Asks where there is one.
    bool mayThrowAway();
    QStringList recentFiles() const;

public slots:
    /// Ctrl+R: the file as it is now.
    void reload();
    /// Imports cells of a spreadsheet from the clipboard, without any file.
    void importClipboard();
    /// Ctrl+V: into the sheet where it has the focus, else as a table of its own.
    void paste();
    /// F6: from the dialog to the sheet and back.
    void switchView();
    /// Ctrl+Enter: what was mended is imported first, to be looked at.
    void confirm();

public:
    /// Keeps strategy, account and splitter for the next session.
    void saveLayout() const;

public slots:
    /// Imports the first one; the others wait.
    void importFiles(const QStringList& paths);
    /// Asks for files, one or several.
    void chooseFiles();
    /// Tells the file on screen by another mapping; without one, a file that is asked for.
    void mapColumns();

signals:
    /// A file was told by a mapping that was remembered.
    void mapped(const QString& notice);
    /// The user confirmed a batch that passed every check; answer with finish().
    void confirmed(const HandOver& batch);
    /// An import came to its end, with or without problems.
    void imported();
    /// The table that was shown so far is gone.
    void cleared();
    void said(const QString& text);
    /// The imported file was written to by another program.
    void fileChanged(const QString& path);

private:
    void makeParts();
    void makeLowerPart();
    void guardBatch();
    void listenToFrame();
    void listenToPanels();
    void takeFile(const QString& path);
    void listenToIntake();
    bool importItem(const IntakeItem& item);
    void importNext();
    void queueRest();
    void showProblem(const QString& text, DialogFrame::Subject subject);
    void showImported();
    void tellOfLostRows();
    void tellOfLostOrders();
    QString importSummary() const;
    void showHandedOver(const HandOver& batch);
    void showProblemCount(int count);
    void showCaughtUp();
    void forgetDiff();
    void forgetFile();
    void forgetUncreated();
    ImportedFile chosen(const QString& path);
    void rememberFile();
    void lookAtFile();
    const table::Table& mended() const;
    void takeConfirmation(bool closeAfterwards);
    void showPlace(const Problem& problem);
    void goToPlace(const Problem& problem);

    EmbeddedHost& mHost;
    DeskPrompts& mPrompts;
    DialogFrame* mFrame;
    FileIntake* mIntake;
    ImportQueue* mQueue;
    AmountRefresher* mAmounts;
    ProblemsPanel* mProblems;
    ParametersModel* mHandedOverModel;
    FilteredTable* mHandedOver;
    DiffPanel* mDiff;
    FileGrid* mGrid;
    FileMending* mMending;
    FileWatch* mWatch;
    QTabWidget* mUpper; ///< the dialog, and its file
    QTabWidget* mLower;
    QSplitter* mSplitter;
    ImportedFile mFile;
    FileDigest mDigest;
    std::optional<qint64> mComparedWith;    ///< the batch of the diff
    std::optional<table::Table> mClipboard; ///< that is imported next
    bool mIsCreated = false;                ///< what is on screen
    bool mIsReloading = false;
};
