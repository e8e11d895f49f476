#include "desk/window/ImportPage.h"

#include "desk/check/DialogFaults.h"
#include "desk/check/FileReport.h"
#include "desk/check/Problem.h"
#include "desk/models/ParametersModel.h"
#include "desk/window/AmountRefresher.h"
#include "desk/window/DeskPrompts.h"
#include "desk/window/DeskSettings.h"
#include "desk/window/DiffPanel.h"
#include "desk/window/FileCheckPanel.h"
#include "desk/window/FilteredTable.h"
#include "desk/window/ProblemsPanel.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/table_reader/TableFile.h"
#include "host/ZelTableView.h"
#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"

#include <QFileInfo>
#include <QSet>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

enum LowerTab { ProblemsTab, FileCheckTab, DiffTab, HandedOverTab };

const QList<int> FirstSizes{520, 230};

} // namespace

ImportPage::ImportPage(EmbeddedHost& host, DeskPrompts& prompts, QWidget* parent)
    : QWidget(parent), mHost(host), mFrame(new DialogFrame(host, prompts)),
      mAmounts(new AmountRefresher(host.quotes(), this)), mProblems(new ProblemsPanel(prompts)),
      mHandedOverModel(new ParametersModel),
      mHandedOver(new FilteredTable(
          mHandedOverModel, {QStringLiteral("已提交参数"), QStringLiteral("确定后，提交的参数显示在这里")},
          prompts)),
      mDiff(new DiffPanel(host, prompts)), mFileCheck(new FileCheckPanel(host, prompts)),
      mLower(new QTabWidget), mSplitter(new QSplitter(Qt::Vertical, this))
{
    mHandedOverModel->setParent(mHandedOver);
    makeLowerPart();
    mSplitter->addWidget(mFrame);
    mSplitter->addWidget(mLower);
    mSplitter->setStretchFactor(0, 1);
    mSplitter->setSizes(FirstSizes);
    mSplitter->setChildrenCollapsible(false);
    mSplitter->restoreState(DeskSettings(mHost).importSplitter());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(mSplitter);
    listenToFrame();
    listenToPanels();
    mFrame->open();
}

ImportPage::~ImportPage() = default;

void ImportPage::makeLowerPart()
{
    mLower->setDocumentMode(true);
    for (QWidget* page : QList<QWidget*>{mProblems, mFileCheck, mDiff, mHandedOver}) {
        page->layout()->setContentsMargins(9, 6, 9, 6);
        mLower->addTab(page, QString());
    }
    mLower->setTabText(HandedOverTab, QStringLiteral("已提交参数"));
    showProblemCount(0);
    showFindingCount(0);
    forgetDiff();
}

void ImportPage::listenToFrame()
{
    connect(mFrame, &DialogFrame::opened, this, [this] { mAmounts->setDialog(mFrame->dialog()); });
    connect(mFrame, &DialogFrame::closed, this, [this] { mAmounts->setDialog(nullptr); });
    connect(mFrame, &DialogFrame::closed, this, &ImportPage::forgetFile);
    connect(mFrame, &DialogFrame::strategyChanged, this, &ImportPage::forgetFile);
    connect(mFrame, &DialogFrame::accountChanging, mProblems, &ProblemsPanel::forgetBatch);
    connect(mFrame, &DialogFrame::importStarted, this, &ImportPage::takeFile);
    connect(mFrame, &DialogFrame::importEnded, this, &ImportPage::showImported);
    connect(mFrame, &DialogFrame::complained, this, &ImportPage::showProblem);
    connect(mFrame, &DialogFrame::confirmed, this, &ImportPage::takeConfirmation);
    connect(mFrame, &DialogFrame::said, this, &ImportPage::said);
}

void ImportPage::listenToPanels()
{
    connect(mProblems, &ProblemsPanel::countChanged, this, &ImportPage::showProblemCount);
    connect(mProblems, &ProblemsPanel::currentChanged, this, &ImportPage::showRecord);
    connect(mProblems, &ProblemsPanel::said, this, &ImportPage::said);
    connect(mFileCheck, &FileCheckPanel::countChanged, this, &ImportPage::showFindingCount);
    connect(mDiff, &DiffPanel::rowWanted, this, &ImportPage::showRow);
    connect(&mDigest, &FileDigest::taken, mFileCheck, &FileCheckPanel::showDigest);
    for (const FilteredTable* table : {mFileCheck->table(), mDiff->table(), mHandedOver}) {
        connect(table, &FilteredTable::said, this, &ImportPage::said);
    }
}

void ImportPage::takeFile(const QString& path)
{
    forgetFile();
    mFile = ImportedFile::read(path);
    mHost.offeredTable().offer(path, mFile.table);
    mProblems->begin(path, mFile.table);
    mDigest.start([file = mFile.file] { return file->sha256(); });
    mFileCheck->show(fileReport(mFile.table, mFrame->dialog()->getStrategy().name(),
                                mFrame->table()->headNames(), mHost.referenceData()));
}

void ImportPage::showProblem(const QString& text, DialogFrame::Subject subject)
{
    const DialogFaults dialog = mFrame->faults();
    const validation::Instances batch = mFrame->dialog()->getWidgetData();
    switch (subject) {
    case DialogFrame::Subject::File:
        mProblems->addOfFile(DialogFaults::orWords(dialog.ofFile(mFile.table, mFile.path), text));
        break;
    case DialogFrame::Subject::Account:
        mProblems->showOfBatch(DialogFaults::orWords(dialog.ofAccount(batch, mFile.table, mFile.path), text));
        break;
    case DialogFrame::Subject::Batch:
        mProblems->showOfBatch(DialogFaults::orWords(dialog.ofBatch(batch, mFile.table, mFile.path), text));
        break;
    case DialogFrame::Subject::Nothing:
        return;
    }
    mLower->setCurrentIndex(ProblemsTab);
}

/// The dialog passes over them without a word.
void ImportPage::tellOfLostOrders()
{
    const table::Faults lost = mFileCheck->report().lostOrders();
    if (!lost.isEmpty()) {
        mProblems->addOfFile(lost);
        mLower->setCurrentIndex(ProblemsTab);
    }
}

/// An import that a row ends tells of the faulty rows before it, and not of what it left unread.
void ImportPage::tellOfLostRows()
{
    QSet<int> lines;
    for (const Problem& problem : mProblems->problems()) {
        if (problem.subject == Problem::Subject::File && problem.fault.row > 0) {
            lines.insert(problem.fault.line);
        }
    }
    const int told = mFrame->rowCount() + lines.size();
    const int lost = mFileCheck->report().orderCount - told;
    if (told > 0 && lost > 0) {
        mProblems->addOfFile({table::fault(table::rule::LostRows, {QString::number(lost)})});
        mLower->setCurrentIndex(ProblemsTab);
    }
}

void ImportPage::showImported()
{
    tellOfLostRows();
    tellOfLostOrders();
    emit said(importSummary());
    if (mFrame->rowCount() == 0 && mProblems->problems().isEmpty()) {
        mProblems->clear(); // the user declined: there is no file without problems
    }
    if (mProblems->problems().isEmpty() && mFileCheck->report().hasErrors()) {
        mLower->setCurrentIndex(FileCheckTab); // the import did not see it, the user should
    }
    emit imported();
}

QString ImportPage::importSummary() const
{
    const int rows = mFrame->rowCount();
    const int skipped = mFileCheck->report().lostOrders().size();
    QStringList facts{rows == 0 ? QStringLiteral("未导入任何行") : QStringLiteral("已导入 %1 行").arg(rows)};
    if (rows > 0 || !mProblems->problems().isEmpty()) {
        facts.append(QStringLiteral("%1 个问题").arg(mProblems->problems().size()));
    }
    if (skipped > 0) {
        facts.append(QStringLiteral("前两格为空而跳过 %1 行").arg(skipped));
    }
    return facts.join(QStringLiteral("，")) + QStringLiteral(" · ") + mFile.path;
}

void ImportPage::takeConfirmation(bool closeAfterwards)
{
    mProblems->forgetBatch();
    HandOver batch{content(), mFile.table, mComparedWith, closeAfterwards};
    bool cancelled = false;
    const Outcome<QString> digest = mDigest.wait(this, cancelled);
    batch.content.fileSha256 = digest.value;
    if (cancelled || !digest.ok()) {
        finish(batch, false);
        if (!digest.ok()) {
            emit said(digest.error);
        }
    } else {
        emit confirmed(batch);
    }
}

void ImportPage::finish(const HandOver& batch, bool created)
{
    if (created) {
        showHandedOver(batch);
    }
    if (created && batch.closeAfterwards) {
        mFrame->close();
    } else if (dialog()) {
        dialog()->slotResetOkBtn();
    }
}

void ImportPage::showHandedOver(const HandOver& batch)
{
    const auto& maps = batch.content.parameterMaps;
    mHandedOverModel->setMaps(maps);
    mHandedOver->fitColumns();
    mLower->setTabText(HandedOverTab, QStringLiteral("已提交参数 %1").arg(maps.size()));
    mLower->setCurrentIndex(HandedOverTab);
}

void ImportPage::showRow(int row)
{
    if (mFrame->table() && row > 0) {
        mFrame->table()->selectRecord(row - 1);
    }
}

ledger::BatchTable ImportPage::currentTable() const
{
    return mFrame->shownTable();
}

QString ImportPage::fileName() const
{
    return QFileInfo(mFile.path).fileName();
}

void ImportPage::showDiff(const ledger::BatchDiff& diff, qint64 batch)
{
    mComparedWith = batch;
    mDiff->show(diff);
    mLower->setTabText(DiffTab, QStringLiteral("与批次 %1 的变更").arg(batch));
    if (mProblems->problems().isEmpty() && !mFileCheck->report().hasErrors()) {
        mLower->setCurrentIndex(DiffTab);
    }
}

void ImportPage::showRecord(const Problem& problem)
{
    if (mFrame->table() && problem.subject == Problem::Subject::Batch && problem.fault.row > 0) {
        mFrame->table()->selectRecord(problem.fault.row - 1);
    }
}

void ImportPage::showProblemCount(int count)
{
    mLower->setTabText(ProblemsTab,
                       count == 0 ? QStringLiteral("问题") : QStringLiteral("问题 %1").arg(count));
}

void ImportPage::showFindingCount(int count)
{
    const QString name = QStringLiteral("文件检查");
    mLower->setTabText(FileCheckTab, count == 0 ? name : QStringLiteral("%1 %2").arg(name).arg(count));
}

void ImportPage::forgetDiff()
{
    mComparedWith.reset();
    mDiff->clear();
    mLower->setTabText(DiffTab, QStringLiteral("变更"));
}

void ImportPage::forgetFile()
{
    mFile = {};
    mProblems->clear();
    mFileCheck->clear();
    forgetDiff();
    emit cleared();
}

void ImportPage::saveLayout() const
{
    DeskSettings(mHost).setImportSplitter(mSplitter->saveState());
    mFrame->saveChoice();
}
