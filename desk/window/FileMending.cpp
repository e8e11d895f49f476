#include "desk/window/FileMending.h"

#include "desk/check/DialogFaults.h"
#include "desk/check/FileReport.h"
#include "desk/window/DeskPrompts.h"
#include "desk/window/DialogFrame.h"
#include "desk/window/FileGrid.h"
#include "desk/window/ProblemsPanel.h"
#include "embedded_host/EmbeddedHost.h"
#include "host/ZelTableView.h"

#include <QApplication>

FileMending::FileMending(EmbeddedHost& host, DeskPrompts& prompts, DialogFrame& frame, FileGrid& grid,
                         ProblemsPanel& problems, QObject* parent)
    : QObject(parent), mHost(host), mPrompts(prompts), mFrame(frame), mGrid(grid), mProblems(problems)
{
    mPause.setSingleShot(true);
    mPause.setInterval(PauseMs);
    connect(&mPause, &QTimer::timeout, this, &FileMending::importWhenIdle);
    connect(&mGrid, &FileGrid::edited, this, &FileMending::followEdit);
}

void FileMending::setFile(const ImportedFile& file)
{
    mPause.stop();
    mPath = file.path;
}

void FileMending::followEdit()
{
    mFrame.outdate();
    mProblems.change([this] {
        mProblems.forgetBatch();
        tellProblems();
    });
    mPause.start();
}

void FileMending::tellProblems()
{
    const working_copy::WorkingCopy& copy = mGrid.copy();
    const table::Table& table = copy.edited();
    FileReport report = fileReport(table, mFrame.dialog()->getStrategy().name(), mFrame.table()->headNames(),
                                   mHost.referenceData());
    report.sha256 = mProblems.report().sha256;
    const DialogFaults dialog = mFrame.faults();
    mProblems.change([&] {
        mProblems.setTable(copy.whole(), copy.leftOut());
        mProblems.show(Problem::Source::Import, dialog.ofFile(table, mPath) + report.lostOrders());
        mProblems.showReport(report);
    });
}

/// Not under the hands of someone who types or answers a question.
void FileMending::importWhenIdle()
{
    if (mGrid.isTyping() || QApplication::activeModalWidget() || QApplication::activePopupWidget()) {
        mPause.start();
    } else {
        catchUp();
    }
}

void FileMending::catchUp()
{
    mPause.stop();
    if (!mFrame.dialog() || mPath.isEmpty()) {
        return;
    }
    mIsImporting = true;
    mPrompts.answeringAsBefore([this] { mFrame.importFile(mPath); });
    mIsImporting = false;
    emit caughtUp();
}
