#pragma once

#include "desk/ledger/BatchDiff.h"
#include "desk/window/FileDigest.h"
#include "desk/window/HandOver.h"
#include "dialog/AlgoBatchImportParamSetting.h"

#include <QPointer>
#include <QString>
#include <QWidget>

class AmountRefresher;
class DeskPrompts;
class DiffPanel;
class EmbeddedHost;
class FileCheckPanel;
class FilteredTable;
class ProblemsPanel;
class QPushButton;
class QSplitter;
class QStackedWidget;
class QTabWidget;
class TextTable;
class ZelTableView;

/// The dialog in a frame, and below it the problems of its last file, the report on it and what was handed
/// over last. It does for the dialog what a host must: opens it with a strategy, listens to it, closes it
/// when it asks.
class ImportPage : public QWidget {
    Q_OBJECT

public:
    ImportPage(EmbeddedHost& host, DeskPrompts& prompts, QWidget* parent = nullptr);
    ~ImportPage() override;

    /// Null while the dialog is closed.
    AlgoBatchImportParamSetting* dialog() const { return mDialog; }
    ProblemsPanel* problems() const { return mProblems; }
    FileCheckPanel* fileCheck() const { return mFileCheck; }
    AmountRefresher* amounts() const { return mAmounts; }
    FilteredTable* handedOver() const { return mHandedOver; }

    /// The batch of the last confirmed() was created, or not: closes the dialog where the user wanted that,
    /// or lets him confirm again.
    void finish(const HandOver& batch, bool created);
    /// The table as it stands; without rows before an import.
    ledger::BatchTable currentTable() const;
    QString fileName() const;
    /// What the table changes against a batch.
    void showDiff(const ledger::BatchDiff& diff, qint64 batch);
    /// Keeps strategy, account and splitter for the next session.
    void saveLayout() const;

public slots:
    /// Opens the dialog with the strategy and account of the last time; nothing happens where it is open.
    void open();
    /// Presses the dialog's import button; the user is asked for a file.
    void import();
    /// The same with a file at hand.
    void importFile(const QString& path);
    void confirm();

signals:
    /// The user confirmed a batch that passed every check; answer with finish().
    void confirmed(const HandOver& batch);
    /// An import came to its end, with or without problems.
    void imported();
    void said(const QString& text);

private:
    QWidget* makeClosedPage();
    QWidget* makeLowerPart();
    void restoreLayout();
    void listenToDialog();
    void takeFile(const QString& path);
    void checkFile();
    void takeMessage(const QString& text, int type);
    void showImported();
    void showHandedOver(const HandOver& batch);
    void showProblemCount(int count);
    void showFindingCount(int count);
    void clearFindings();
    void takeConfirmation(bool closeAfterwards);
    HandOver gatherBatch(bool closeAfterwards) const;
    void close();
    QString currentAccount() const;
    ZelTableView* parameterTable() const;
    double amountIn(const QString& box) const;
    void press(const QString& button);

    EmbeddedHost& mHost;
    DeskPrompts& mPrompts;
    QPointer<AlgoBatchImportParamSetting> mDialog;
    AmountRefresher* mAmounts;
    ProblemsPanel* mProblems;
    TextTable* mHandedOverModel;
    FilteredTable* mHandedOver;
    DiffPanel* mDiff;
    FileCheckPanel* mFileCheck;
    QTabWidget* mLower;
    QStackedWidget* mUpper;
    QSplitter* mSplitter;
    QString mFile;
    FileDigest mDigest;
};
