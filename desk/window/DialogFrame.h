#pragma once

#include "desk/batch/DraftBuilder.h"
#include "dialog/AlgoBatchImportParamSetting.h"

#include <QPointer>
#include <QStackedWidget>
#include <QString>

#include <functional>

class DeskPrompts;
class DialogFaults;
class DialogProbe;
class EmbeddedHost;
class QScrollArea;
class ImportColumns;
class StrategyFinder;
class ZelTableView;

/// The dialog's place on the desk, or a page that offers a new one while it is closed. It does for the dialog
/// what a host must: opens it with a strategy, closes it when it asks, and tells from its buttons and message
/// boxes what happens in it.
class DialogFrame : public QStackedWidget {
    Q_OBJECT

public:
    /// What the dialog's message boxes speak of: it depends on what was touched last.
    enum class Subject {
        Nothing, ///< neither of the two, such as a template that could not be saved
        File,    ///< the file that is being imported
        Account, ///< the batch that stands in the table, and the account that was chosen for it
        Batch    ///< the batch that stands in the table
    };

    DialogFrame(EmbeddedHost& host, DeskPrompts& prompts, QWidget* parent = nullptr);

    /// Asked before a batch is thrown away by another strategy or 取消; where it answers false, nothing
    /// happens.
    void setGuard(const std::function<bool()>& guard) { mGuard = guard; }
    /// Null while the dialog is closed.
    AlgoBatchImportParamSetting* dialog() const { return mDialog; }
    /// The dialog's table; null while it is closed.
    ZelTableView* table() const;
    /// Rows of the table.
    int rowCount() const;
    /// What the open dialog holds, with the file that it came of.
    batch::DialogContent content(const QString& filePath, const QString& fileSha256) const;
    /// The table as it is shown; without rows and columns while the dialog is closed.
    ledger::BatchTable shownTable() const;
    /// What the open dialog may complain of.
    DialogFaults faults() const;
    /// Keeps strategy and account for the next time.
    void saveChoice() const;

public slots:
    /// Opens the dialog with the strategy and account of the last time.
    void open();
    void close();
    /// Chooses a strategy by its code; opens the dialog where it is closed.
    void chooseStrategy(const QString& code);
    /// Finds a strategy by its code or name.
    void findStrategy();
    /// Presses the dialog's import button; the user is asked for a file.
    void import();
    /// The same with a file at hand.
    void importFile(const QString& path);
    /// The batch on screen is not what the user has made of its file: it cannot be confirmed before the next
    /// import.
    void outdate();
    /// Presses the dialog's 确定; says why where it cannot be pressed.
    void confirm();

signals:
    void opened();
    void closed();
    /// The batch that stood in the table is gone.
    void strategyChanged();
    /// What the dialog said of the batch on another account no longer holds.
    void accountChanging();
    void importStarted(const QString& path);
    /// With or without complaints, or given up.
    void importEnded();
    /// An error box is about to be shown.
    void complained(const QString& text, DialogFrame::Subject subject);
    /// The user confirmed a batch that passed every check.
    void confirmed(bool closeAfterwards);
    void said(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeClosedPage();
    void dressAccountBox();
    void dressStrategyBox();
    void nameParts();
    void listenToButtons();
    void listenToBoxes();
    void startImport(const QString& path);
    void endImport();
    void takeMessage(const QString& text, int type);
    void cancel();
    void guardStrategy();
    DialogProbe probe() const; ///< of the open dialog

    EmbeddedHost& mHost;
    DeskPrompts& mPrompts;
    QScrollArea* mView; ///< the dialog's form asks for more than a small screen has
    QPointer<AlgoBatchImportParamSetting> mDialog;
    QPointer<ImportColumns> mColumns; ///< of the open dialog's table
    QPointer<StrategyFinder> mFinder; ///< of the open dialog's box
    Subject mSubject = Subject::Nothing;
    std::function<bool()> mGuard;
};
