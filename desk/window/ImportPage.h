#pragma once

#include "desk/check/ImportedFile.h"
#include "desk/window/DialogFrame.h"
#include "desk/window/FileDigest.h"
#include "desk/window/HandOver.h"
#include "ledger/draft/BatchDiff.h"

#include <QString>
#include <QWidget>

class AmountRefresher;
class DiffPanel;
class FileCheckPanel;
class FilteredTable;
class ParametersModel;
class ProblemsPanel;
class QSplitter;
class QTabWidget;
struct Problem;

/// The dialog in its frame, and below it the problems of its last file, the report on it and what was handed
/// over last.
class ImportPage : public QWidget {
    Q_OBJECT

public:
    ImportPage(EmbeddedHost& host, DeskPrompts& prompts, QWidget* parent = nullptr);
    ~ImportPage() override;

    DialogFrame* frame() const { return mFrame; }
    /// Null while the dialog is closed.
    AlgoBatchImportParamSetting* dialog() const { return mFrame->dialog(); }
    ProblemsPanel* problems() const { return mProblems; }
    FileCheckPanel* fileCheck() const { return mFileCheck; }
    DiffPanel* diff() const { return mDiff; }
    AmountRefresher* amounts() const { return mAmounts; }
    FilteredTable* handedOver() const { return mHandedOver; }

    /// The batch of the last confirmed() was created, or not: closes the dialog where the user wanted that,
    /// or lets him confirm again.
    void finish(const HandOver& batch, bool created);
    /// Selects a row of the batch, from 1.
    void showRow(int row);
    /// The table as it stands; without rows before an import.
    ledger::BatchTable currentTable() const;
    QString fileName() const;
    /// What the open dialog holds.
    batch::DialogContent content() const { return mFrame->content(mFile.path, QString()); }
    /// What the table changes against a batch.
    void showDiff(const ledger::BatchDiff& diff, qint64 batch);
    /// Keeps strategy, account and splitter for the next session.
    void saveLayout() const;

signals:
    /// The user confirmed a batch that passed every check; answer with finish().
    void confirmed(const HandOver& batch);
    /// An import came to its end, with or without problems.
    void imported();
    /// The table that was shown so far is gone.
    void cleared();
    void said(const QString& text);

private:
    void makeLowerPart();
    void listenToFrame();
    void listenToPanels();
    void takeFile(const QString& path);
    void showProblem(const QString& text, DialogFrame::Subject subject);
    void showImported();
    void tellOfLostRows();
    void tellOfLostOrders();
    QString importSummary() const;
    void showHandedOver(const HandOver& batch);
    void showProblemCount(int count);
    void showFindingCount(int count);
    void forgetDiff();
    void forgetFile();
    void takeConfirmation(bool closeAfterwards);
    void showRecord(const Problem& problem);

    EmbeddedHost& mHost;
    DialogFrame* mFrame;
    AmountRefresher* mAmounts;
    ProblemsPanel* mProblems;
    ParametersModel* mHandedOverModel;
    FilteredTable* mHandedOver;
    DiffPanel* mDiff;
    FileCheckPanel* mFileCheck;
    QTabWidget* mLower;
    QSplitter* mSplitter;
    ImportedFile mFile;
    FileDigest mDigest;
    std::optional<qint64> mComparedWith; ///< the batch of the diff
};
