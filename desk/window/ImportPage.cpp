#include "desk/window/ImportPage.h"

#include "desk/check/ClipboardCells.h"
#include "desk/check/DialogFaults.h"
#include "desk/check/FileReport.h"
#include "desk/check/Problem.h"
#include "desk/models/ParametersModel.h"
#include "desk/window/AmountRefresher.h"
#include "desk/window/DeskPrompts.h"
#include "desk/window/DeskSettings.h"
#include "desk/window/DiffPanel.h"
#include "desk/window/DiscardQuestion.h"
#include "desk/window/FileFacts.h"
#include "desk/window/FileGrid.h"
#include "desk/window/FileIntake.h"
#include "desk/window/FileMending.h"
#include "desk/window/FileWatch.h"
#include "desk/window/FilteredTable.h"
#include "desk/window/ImportQueue.h"
#include "desk/window/ProblemsPanel.h"
#include "desk/window/TabOrder.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/table_reader/TableFile.h"
#include "host/ZelTableView.h"
#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "words/Words.h"

#include <QApplication>
#include <QClipboard>
#include <QCryptographicHash>
#include <QFileDialog>
#include <QFileInfo>
#include <QSet>
#include <QSplitter>
#include <QTableView>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace {

enum UpperTab { DialogTab, FileTab };
enum LowerTab { ProblemsTab, DiffTab, HandedOverTab };

constexpr int MostRecent = 10;

const QList<int> FirstSizes{520, 230};

table::Severity severityOf(verdict::Action action)
{
    switch (action) {
    case verdict::Action::Refuse:
        return table::Severity::Error;
    case verdict::Action::Ask:
        return table::Severity::Warning;
    default:
        return table::Severity::Notice;
    }
}

bool isListed(const table::Fault& fault, const Problems& problems)
{
    return std::any_of(problems.begin(), problems.end(), [&](const Problem& problem) {
        return problem.fault.rule == fault.rule && problem.fault.line == fault.line &&
               problem.fault.column == fault.column;
    });
}

/// What a line of a judgement tells beside what the file was known for.
table::Faults newFaults(const verdict::Line& line, const Problems& known)
{
    table::Faults faults;
    bool isKnown = false;
    for (const table::Fault& fault : line.faults) {
        isKnown = isKnown || isListed(fault, known);
        if (!isListed(fault, known) && (fault.row > 0 || fault.line > 0)) {
            faults.append(fault);
        }
    }
    if (faults.isEmpty() && !isKnown) {
        faults.append(table::fault(table::rule::ReaderError, {line.text}));
        faults.last().rule = line.faults.isEmpty() ? faults.last().rule : line.faults.first().rule;
        faults.last().arguments =
            line.faults.isEmpty() ? faults.last().arguments : line.faults.first().arguments;
    }
    for (table::Fault& fault : faults) {
        fault.severity = severityOf(line.action);
    }
    return faults;
}

} // namespace

ImportPage::ImportPage(EmbeddedHost& host, DeskPrompts& prompts, QWidget* parent)
    : QWidget(parent), mHost(host), mPrompts(prompts), mFrame(new DialogFrame(host, prompts)),
      mIntake(new FileIntake(host, this)), mQueue(new ImportQueue(this)),
      mAmounts(new AmountRefresher(host.quotes(), this)), mProblems(new ProblemsPanel(host, prompts)),
      mHandedOverModel(new ParametersModel),
      mHandedOver(new FilteredTable(
          mHandedOverModel, {Words::tr("已提交参数"), Words::tr("确定后，提交的参数显示在这里")}, prompts)),
      mDiff(new DiffPanel(host, prompts)), mGrid(new FileGrid(host)),
      mMending(new FileMending(host, prompts, *mFrame, *mGrid, *mProblems, this)),
      mWatch(new FileWatch(this)), mUpper(new QTabWidget), mLower(new QTabWidget),
      mSplitter(new QSplitter(Qt::Vertical, this))
{
    mHandedOverModel->setParent(mHandedOver);
    makeParts();
    listenToFrame();
    listenToIntake();
    listenToPanels();
    guardBatch();
    mFrame->open();
}

ImportPage::~ImportPage() = default;

void ImportPage::makeParts()
{
    mUpper->setDocumentMode(true);
    mUpper->setTabPosition(QTabWidget::South);
    mUpper->addTab(mFrame, Words::tr("参数表"));
    mUpper->addTab(mGrid, Words::tr("文件"));
    mUpper->tabBar()->setAccessibleName(Words::tr("参数表与文件"));
    makeLowerPart();
    mSplitter->addWidget(mUpper);
    mSplitter->addWidget(mLower);
    mSplitter->setStretchFactor(0, 1);
    mSplitter->setSizes(FirstSizes);
    mSplitter->setChildrenCollapsible(false);
    mSplitter->restoreState(DeskSettings(mHost).importSplitter());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(mQueue);
    column->addWidget(mSplitter, 1);
}

void ImportPage::makeLowerPart()
{
    mLower->setDocumentMode(true);
    for (QWidget* page : QList<QWidget*>{mProblems, mDiff, mHandedOver}) {
        page->layout()->setContentsMargins(9, 6, 9, 6);
        mLower->addTab(page, QString());
    }
    mLower->setTabText(HandedOverTab, Words::tr("已提交参数"));
    showProblemCount(0);
    forgetDiff();
}

void ImportPage::guardBatch()
{
    mFrame->setGuard([this] { return mayThrowAway(); });
    // The same file once more loses nothing, unless it was mended.
    mPrompts.setGuard([this](const QString& path) {
        const bool isSame = path == mFile.path && !mGrid->copy().isEdited() && !mIntake->isExpectingPart();
        return (mIsReloading || isSame || mayThrowAway()) &&
               (mClipboard || mIntake->prepare(path, dialog()->getCurrentAlgoName()));
    });
}

void ImportPage::listenToFrame()
{
    connect(mFrame, &DialogFrame::opened, this, [this] { mAmounts->setDialog(mFrame->dialog()); });
    connect(mFrame, &DialogFrame::opened, this, [this] {
        tab_order::placeBehind(*mFrame, *mGrid);
        tab_order::placeBehind(*mGrid, *mUpper->tabBar());
        tab_order::placeBehind(*mUpper->tabBar(), *mLower);
    });
    connect(mFrame, &DialogFrame::closed, this, [this] { mAmounts->setDialog(nullptr); });
    connect(mFrame, &DialogFrame::opened, mGrid, [this] { mGrid->setEditable(!mIsCreated); });
    connect(mFrame, &DialogFrame::closed, mGrid, [this] { mGrid->setEditable(false); });
    connect(mFrame, &DialogFrame::closed, this, &ImportPage::forgetUncreated);
    connect(mFrame, &DialogFrame::strategyChanged, this, &ImportPage::forgetUncreated);
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
    connect(mProblems, &ProblemsPanel::currentChanged, this, &ImportPage::showPlace);
    connect(mProblems, &ProblemsPanel::placeWanted, this, &ImportPage::goToPlace);
    connect(mProblems, &ProblemsPanel::leavingOutWanted, mGrid, &FileGrid::leaveOut);
    connect(mProblems, &ProblemsPanel::said, this, &ImportPage::said);
    connect(mDiff, &DiffPanel::rowWanted, this, &ImportPage::showRow);
    connect(mGrid, &FileGrid::said, this, &ImportPage::said);
    connect(mGrid, &FileGrid::edited, this, [this] { mIsCreated = false; });
    connect(mMending, &FileMending::caughtUp, this, &ImportPage::showCaughtUp);
    connect(mWatch, &FileWatch::changed, this, &ImportPage::fileChanged);
    connect(&mDigest, &FileDigest::taken, mProblems->facts(), &FileFacts::showDigest);
    for (const FilteredTable* table : {mDiff->table(), mHandedOver}) {
        connect(table, &FilteredTable::said, this, &ImportPage::said);
    }
}

const table::Table& ImportPage::mended() const
{
    return mGrid->copy().edited();
}

/// What the user chose: a file, or what he has on the clipboard.
ImportedFile ImportPage::chosen(const QString& path)
{
    const std::optional<ImportedFile> prepared = mIntake->take();
    if (!mClipboard) {
        return prepared ? *prepared : ImportedFile::read(path);
    }
    const ImportedFile file{path, *mClipboard, nullptr};
    mClipboard.reset();
    return file;
}

void ImportPage::listenToIntake()
{
    connect(mIntake, &FileIntake::queued, this, [this](const QList<IntakeItem>& items) {
        mQueue->prepend(items);
        importNext();
    });
    connect(mQueue, &ImportQueue::wanted, this, [this](const IntakeItem& item) {
        if (!importItem(item)) {
            mQueue->prepend({item});
        }
    });
}

void ImportPage::importFiles(const QStringList& paths)
{
    QList<IntakeItem> items;
    for (const QString& path : paths) {
        items.append({path, QString(), QString(), 0, nullptr, std::nullopt});
    }
    if (!items.isEmpty()) {
        mQueue->append(items.mid(1));
        importItem(items.first());
    }
}

void ImportPage::chooseFiles()
{
    importFiles(QFileDialog::getOpenFileNames(
        this, Words::tr("导入多个文件"), QString(),
        Words::tr("表格文件 (*.csv *.txt *.tsv *.xlsx *.xlsm *.xls *.ods);;所有文件 (*)")));
}

void ImportPage::mapColumns()
{
    mIntake->askNext(true);
    if (mFile.path.isEmpty()) {
        mFrame->import();
    } else {
        mFrame->importFile(mFile.path);
    }
    mIntake->askNext(false); // where no file was chosen
}

/// False where the user gave it up.
bool ImportPage::importItem(const IntakeItem& item)
{
    if (!item.strategy.isEmpty()) {
        mFrame->chooseStrategy(item.strategy);
    }
    if (!item.strategy.isEmpty() && dialog()->getCurrentAlgoName() != item.strategy) {
        return false;
    }
    mIntake->expect(item);
    mFrame->importFile(item.path);
    return mIntake->isSettled();
}

/// As soon as what is in progress came to its end.
void ImportPage::importNext()
{
    QTimer::singleShot(0, mQueue, &ImportQueue::next);
}

/// The rows that an import left, which the user was asked about.
void ImportPage::queueRest()
{
    if (const std::optional<IntakeItem> rest = mIntake->takeRest()) {
        mQueue->prepend({*rest});
    }
}

void ImportPage::takeFile(const QString& path)
{
    if (mMending->isImporting()) {
        mHost.offeredTable().offer(path, mended());
        mProblems->show(Problem::Source::Import, {});
        return;
    }
    forgetFile();
    mFile = chosen(path);
    mGrid->begin(working_copy::WorkingCopy(mFile.table));
    mGrid->setEditable(true);
    mMending->setFile(mFile);
    mHost.offeredTable().offer(path, mended());
    lookAtFile();
    rememberFile();
}

void ImportPage::lookAtFile()
{
    mProblems->change([this] {
        mProblems->begin(mFile.path);
        mProblems->setTable(mFile.table, {});
        mProblems->showReport(fileReport(mFile.table, mFrame->dialog()->getStrategy().name(),
                                         mFrame->table()->headNames(), mHost.referenceData()));
    });
    if (mFile.file) {
        mDigest.start([file = mFile.file] { return file->sha256(); });
    } else {
        const QByteArray text = clipboard_cells::textOf(mFile.table.rows).toUtf8();
        const QByteArray digest = QCryptographicHash::hash(text, QCryptographicHash::Sha256);
        mDigest.start([digest] { return Outcome<QString>{QString::fromLatin1(digest.toHex()), QString()}; });
    }
}

void ImportPage::rememberFile()
{
    mWatch->watch(mFile.file ? mFile.path : QString());
    if (!mFile.file || !mFile.table.error.isEmpty()) {
        return;
    }
    QStringList recent = recentFiles();
    const QString path = QFileInfo(mFile.path).absoluteFilePath();
    recent.removeAll(path);
    recent.prepend(path);
    DeskSettings(mHost).setRecentFiles(recent.mid(0, MostRecent));
}

QStringList ImportPage::recentFiles() const
{
    return DeskSettings(mHost).recentFiles();
}

void ImportPage::showProblem(const QString& text, DialogFrame::Subject subject)
{
    using Source = Problem::Source;
    const DialogFaults dialog = mFrame->faults();
    const validation::Instances batch = mFrame->dialog()->getWidgetData();
    switch (subject) {
    case DialogFrame::Subject::File:
        mProblems->show(Source::Import, DialogFaults::orWords(dialog.ofFile(mended(), mFile.path), text));
        break;
    case DialogFrame::Subject::Account:
        mProblems->show(Source::Confirmation,
                        DialogFaults::orWords(dialog.ofAccount(batch, mended(), mFile.path), text));
        break;
    case DialogFrame::Subject::Batch:
        mProblems->show(Source::Confirmation,
                        DialogFaults::orWords(dialog.ofBatch(batch, mended(), mFile.path), text));
        break;
    case DialogFrame::Subject::Nothing:
        return;
    }
    mLower->setCurrentIndex(ProblemsTab);
}

void ImportPage::showJudgement(const verdict::Judgement& judgement)
{
    table::Faults faults;
    for (const verdict::Line& line : judgement.lines) {
        faults += newFaults(line, mProblems->problems());
    }
    mProblems->show(Problem::Source::Guard, faults);
}

/// The dialog passes over them without a word.
void ImportPage::tellOfLostOrders()
{
    mProblems->add(Problem::Source::Import, mProblems->report().lostOrders());
}

/// An import that a row ends tells of the faulty rows before it, and not of what it left unread.
void ImportPage::tellOfLostRows()
{
    QSet<int> lines;
    for (const Problem& problem : mProblems->problemsOf(Problem::Source::Import)) {
        if (problem.fault.row > 0) {
            lines.insert(problem.fault.line);
        }
    }
    const int told = mFrame->rowCount() + lines.size();
    const int lost = mProblems->report().orderCount - told;
    if (told > 0 && lost > 0) {
        mProblems->add(Problem::Source::Import,
                       {table::fault(table::rule::LostRows, {QString::number(lost)})});
    }
}

void ImportPage::showImported()
{
    const int rows = mFrame->rowCount();
    mProblems->change([&] {
        tellOfLostRows();
        tellOfLostOrders();
        const auto lines = mFrame->faults().linesOf(rows, mended(), mFile.path);
        mProblems->setLinesOfRows(lines);
    });
    emit said(importSummary());
    const bool isDeclined = rows == 0 && mProblems->problemsOf(Problem::Source::Import).isEmpty();
    if (isDeclined) {
        mProblems->table()->setEmptyText(QString()); // of a file that was not taken nothing is right
    } else {
        queueRest();
    }
    const QString notice = mIntake->takeNotice();
    if (!notice.isEmpty()) {
        emit mapped(notice);
    }
    if (mProblems->hasErrors()) {
        mLower->setCurrentIndex(ProblemsTab);
    }
    emit imported();
}

void ImportPage::showCaughtUp()
{
    emit said(Words::tr("已按修改重新导入：%1").arg(importSummary()));
}

QString ImportPage::importSummary() const
{
    const int rows = mFrame->rowCount();
    const int refused = mProblems->problemsOf(Problem::Source::Import).size();
    const int skipped = mProblems->report().lostOrders().size();
    QStringList facts{rows == 0 ? Words::tr("未导入任何行") : Words::tr("已导入 %1 行").arg(rows)};
    if (rows > 0 || refused > 0) {
        facts.append(Words::tr("%1 个问题").arg(refused));
    }
    if (skipped > 0) {
        facts.append(Words::tr("前两格为空而跳过 %1 行").arg(skipped));
    }
    return facts.join(Words::tr("，")) + QStringLiteral(" · ") + mFile.path;
}

void ImportPage::takeConfirmation(bool closeAfterwards)
{
    mProblems->forgetBatch();
    HandOver batch{content(), mended(), mComparedWith, closeAfterwards};
    batch.content.fileEdits = mGrid->copy().toJson();
    if (mIntake->mapping()) {
        batch.content.fileEdits.prepend(mapping::asEdit(*mIntake->mapping()));
    }
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
        mIsCreated = true;
        mProblems->forgetBatch(); // what was not taken of the file stays
        showHandedOver(batch);
    }
    if (created && batch.closeAfterwards) {
        mFrame->close();
    } else if (dialog()) {
        dialog()->slotResetOkBtn();
    }
    if (created && !mQueue->isEmpty()) {
        importNext();
    }
}

void ImportPage::showHandedOver(const HandOver& batch)
{
    const auto& maps = batch.content.parameterMaps;
    mHandedOverModel->setMaps(maps);
    mHandedOver->fitColumns();
    mLower->setTabText(HandedOverTab, Words::tr("已提交参数 %1").arg(maps.size()));
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

void ImportPage::showDiff(const ledger::BatchDiff& diff, const ledger::Batch& batch)
{
    mComparedWith = batch.number;
    mDiff->show(diff);
    mDiff->showEdits(batch, mGrid->copy().edits());
    mLower->setTabText(DiffTab, Words::tr("与批次 %1 的变更").arg(batch.number));
    if (!mProblems->hasErrors() && !mMending->isImporting()) {
        mLower->setCurrentIndex(DiffTab);
    }
}

/// Where the list of problems has come to; the user stays where he is.
void ImportPage::showPlace(const Problem& problem)
{
    if (mFrame->table() && problem.row > 0) {
        mFrame->table()->selectRecord(problem.row - 1);
    }
    mGrid->showCell(problem.fault.line, problem.column);
}

void ImportPage::goToPlace(const Problem& problem)
{
    showPlace(problem);
    if (problem.fault.line > 0 && !mGrid->copy().rows().isEmpty()) {
        mUpper->setCurrentIndex(FileTab);
        mGrid->view()->setFocus(Qt::OtherFocusReason);
    } else if (mFrame->table()) {
        mUpper->setCurrentIndex(DialogTab);
        mFrame->table()->setFocus(Qt::OtherFocusReason);
    }
}

void ImportPage::switchView()
{
    const bool toFile = mUpper->currentIndex() == DialogTab;
    mUpper->setCurrentIndex(toFile ? FileTab : DialogTab);
    if (toFile) {
        mGrid->view()->setFocus(Qt::ShortcutFocusReason);
    } else if (mFrame->table()) {
        mFrame->table()->setFocus(Qt::ShortcutFocusReason);
    }
}

void ImportPage::confirm()
{
    if (mMending->isBehind()) {
        mMending->catchUp();
        emit said(Words::tr("已按修改重新导入，请核对后再确定"));
    } else {
        mFrame->confirm();
    }
}

bool ImportPage::hasOpenBatch() const
{
    return !mIsCreated && (mFrame->rowCount() > 0 || mGrid->copy().isEdited());
}

bool ImportPage::mayThrowAway()
{
    if (!hasOpenBatch()) {
        return true;
    }
    const int edits = mGrid->copy().edits().size();
    const QString rows = Words::tr("表格中的 %1 行尚未提交（%2）。").arg(mFrame->rowCount()).arg(fileName());
    const QString what =
        edits == 0 ? rows : Words::tr("%1\n在文件中的 %2 处修改也会丢失。").arg(rows).arg(edits);
    return isDiscardWanted(what, this);
}

void ImportPage::reload()
{
    if (!mFile.file) {
        emit said(Words::tr("没有可重新载入的文件"));
        return;
    }
    if (mGrid->copy().isEdited() && !mayThrowAway()) {
        return;
    }
    mIsReloading = true;
    mFrame->importFile(mFile.path);
    mIsReloading = false;
}

void ImportPage::importClipboard()
{
    const QString text = QApplication::clipboard()->text();
    if (text.trimmed().isEmpty()) {
        emit said(Words::tr("剪贴板中没有表格"));
        return;
    }
    mClipboard = clipboard_cells::tableOf(text);
    mFrame->importFile(Words::tr("剪贴板") + QStringLiteral(".csv"));
    mClipboard.reset(); // the user kept what he had
}

void ImportPage::paste()
{
    if (mGrid->view()->hasFocus() && !mGrid->copy().rows().isEmpty()) {
        mGrid->paste();
    } else {
        importClipboard();
    }
}

void ImportPage::showProblemCount(int count)
{
    mLower->setTabText(ProblemsTab, count == 0 ? Words::tr("问题") : Words::tr("问题 %1").arg(count));
    mGrid->setProblems(mProblems->problems());
}

void ImportPage::forgetDiff()
{
    mComparedWith.reset();
    mDiff->clear();
    mLower->setTabText(DiffTab, Words::tr("变更"));
}

/// What was not taken of a file whose batch was created stays until the next file.
void ImportPage::forgetUncreated()
{
    if (!mIsCreated) {
        forgetFile();
    }
}

void ImportPage::forgetFile()
{
    mFile = {};
    mIsCreated = false;
    mMending->setFile(mFile);
    mWatch->watch(QString());
    mGrid->begin({});
    mProblems->clear();
    forgetDiff();
    emit cleared();
}

void ImportPage::saveLayout() const
{
    DeskSettings(mHost).setImportSplitter(mSplitter->saveState());
    mFrame->saveChoice();
}
