#include "desk/window/ImportPage.h"

#include "desk/check/FileReport.h"
#include "desk/window/AmountRefresher.h"
#include "desk/window/DeskPrompts.h"
#include "desk/window/DeskSettings.h"
#include "desk/window/DiffPanel.h"
#include "desk/window/FileCheckPanel.h"
#include "desk/window/FilteredTable.h"
#include "desk/window/ParameterTable.h"
#include "desk/window/ProblemsPanel.h"
#include "embedded_host/EmbeddedHost.h"
#include "host/AlgoConstants.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/SolveyAccountComboBox.h"
#include "host/ZelMessageBox.h"
#include "host/ZelTableView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

enum LowerTab { ProblemsTab, FileCheckTab, DiffTab, HandedOverTab };

const QList<int> FirstSizes{520, 230};
constexpr int WidestAccountBox = 240; // pixels; name and number together are longer than the form allows for

const QString AccountBox = QStringLiteral("combx_account");
const QString StrategyBox = QStringLiteral("cbx_algoType");
const QString ParameterTable = QStringLiteral("table_paramSettings");

} // namespace

ImportPage::ImportPage(EmbeddedHost& host, DeskPrompts& prompts, QWidget* parent)
    : QWidget(parent), mHost(host), mPrompts(prompts), mAmounts(new AmountRefresher(host.quotes(), this)),
      mProblems(new ProblemsPanel(prompts)), mHandedOverModel(new TextTable({})),
      mHandedOver(new FilteredTable(
          mHandedOverModel, {QStringLiteral("已提交参数"), QStringLiteral("确定后，提交的参数显示在这里")},
          prompts)),
      mDiff(new DiffPanel(host, prompts)), mFileCheck(new FileCheckPanel(host, prompts)),
      mLower(new QTabWidget), mUpper(new QStackedWidget), mSplitter(new QSplitter(Qt::Vertical, this))
{
    mHandedOverModel->setParent(mHandedOver);
    mUpper->addWidget(makeClosedPage());
    mSplitter->addWidget(mUpper);
    mSplitter->addWidget(makeLowerPart());
    mSplitter->setStretchFactor(0, 1);
    mSplitter->setSizes(FirstSizes);
    mSplitter->setChildrenCollapsible(false);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(mSplitter);

    connect(&prompts, &DeskPrompts::fileChosen, this, &ImportPage::takeFile);
    connect(&prompts, &DeskPrompts::messageComing, this, &ImportPage::takeMessage);
    connect(mProblems, &ProblemsPanel::countChanged, this, &ImportPage::showProblemCount);
    connect(mProblems, &ProblemsPanel::said, this, &ImportPage::said);
    connect(mFileCheck, &FileCheckPanel::countChanged, this, &ImportPage::showFindingCount);
    connect(mFileCheck->table(), &FilteredTable::said, this, &ImportPage::said);
    connect(&mDigest, &FileDigest::taken, mFileCheck, &FileCheckPanel::showDigest);
    connect(mHandedOver, &FilteredTable::said, this, &ImportPage::said);
    connect(mProblems, &ProblemsPanel::currentChanged, this, [this](const Problem& problem) {
        ZelTableView* table = parameterTable();
        if (table && problem.place == Problem::Place::BatchRow) {
            table->selectRecord(problem.line - 1);
        }
    });
    restoreLayout();
    open();
}

ImportPage::~ImportPage() = default;

QWidget* ImportPage::makeClosedPage()
{
    auto* page = new QWidget;
    auto* text = new QLabel(QStringLiteral("批量导入已关闭。可在“算法实例”中查看已创建的实例。"), page);
    text->setProperty("role", QStringLiteral("caption"));
    auto* button = new QPushButton(QStringLiteral("新建批量导入"), page);
    button->setObjectName(QStringLiteral("button_open"));
    connect(button, &QPushButton::clicked, this, &ImportPage::open);
    auto* column = new QVBoxLayout(page);
    column->addStretch();
    column->addWidget(text, 0, Qt::AlignHCenter);
    column->addWidget(button, 0, Qt::AlignHCenter);
    column->addStretch();
    return page;
}

QWidget* ImportPage::makeLowerPart()
{
    mLower->setDocumentMode(true);
    for (QWidget* page : QList<QWidget*>{mProblems, mFileCheck, mDiff, mHandedOver}) {
        page->layout()->setContentsMargins(9, 6, 9, 6);
    }
    mLower->addTab(mProblems, QString());
    mLower->addTab(mFileCheck, QString());
    mLower->addTab(mDiff, QStringLiteral("变更"));
    mLower->addTab(mHandedOver, QStringLiteral("已提交参数"));
    showProblemCount(0);
    showFindingCount(0);
    return mLower;
}

void ImportPage::open()
{
    if (mDialog) {
        return;
    }
    mDialog = new AlgoBatchImportParamSetting(this, SelectableStrategy);
    AlgoTradeLogicNew* catalogue = AlgoTradeLogicNew::GetInstance();
    AesStrategy strategy = catalogue->GetStrategy(DeskSettings(mHost).lastStrategy());
    if (strategy.name().isEmpty()) {
        strategy = catalogue->GetAllStrategies(Algo_Values::AlgoGlobalType::algo).value(0);
    }
    mDialog->CreateStrategyInitWidget(strategy);
    if (auto* accounts = mDialog->findChild<SolveyAccountComboBox*>(AccountBox)) {
        accounts->SetCurTradingAccount(DeskSettings(mHost).lastAccount());
        accounts->setMinimumWidth(qMin(accounts->sizeHint().width(), WidestAccountBox));
    }
    if (ZelTableView* table = parameterTable()) {
        table->setEmptyText(QStringLiteral("尚未导入\n按“导入算法”选择文件，或把文件拖到窗口上"));
        table->setAccessibleName(QStringLiteral("参数表"));
    }
    listenToDialog();
    mUpper->addWidget(mDialog);
    mUpper->setCurrentWidget(mDialog);
    mAmounts->setDialog(mDialog);
}

void ImportPage::listenToDialog()
{
    connect(mDialog, &AlgoBatchImportParamSetting::signalBtnOkClicked, this, &ImportPage::takeConfirmation);
    connect(mDialog, &AlgoBatchImportParamSetting::signalBtnCancelClicked, this, &ImportPage::close);
    // The dialog connected its own slot first, so that here the import is over.
    if (auto* button = mDialog->findChild<QAbstractButton*>(QStringLiteral("btn_import"))) {
        connect(button, &QAbstractButton::clicked, this, &ImportPage::showImported);
    }
    if (auto* strategies = mDialog->findChild<QComboBox*>(StrategyBox)) {
        strategies->setAccessibleName(QStringLiteral("算法类型"));
        connect(strategies, QOverload<int>::of(&QComboBox::activated), this, &ImportPage::clearFindings);
    }
    if (auto* accounts = mDialog->findChild<SolveyAccountComboBox*>(AccountBox)) {
        accounts->setAccessibleName(QStringLiteral("账户名称"));
    }
}

void ImportPage::import()
{
    open();
    press(QStringLiteral("btn_import"));
}

void ImportPage::importFile(const QString& path)
{
    mPrompts.answerNextOpenWith(path);
    import();
}

void ImportPage::confirm()
{
    press(QStringLiteral("btn_ok"));
}

void ImportPage::press(const QString& button)
{
    auto* found = mDialog ? mDialog->findChild<QAbstractButton*>(button) : nullptr;
    if (found) {
        found->click();
    }
}

void ImportPage::takeFile(const QString& path)
{
    mFile = path;
    mProblems->begin(path);
    mDiff->clear();
    mLower->setTabText(DiffTab, QStringLiteral("变更"));
    mDigest.start(path);
    QApplication::setOverrideCursor(Qt::WaitCursor); // until it is imported or has something to say
    checkFile();
}

void ImportPage::checkFile()
{
    const ZelTableView* table = parameterTable();
    const QStringList titles = table ? table->headNames() : QStringList();
    const QString strategy = mDialog ? mDialog->getStrategy().name() : QString();
    mFileCheck->show(fileReport(mFile, QString(), strategy, titles, mHost.referenceData()));
}

void ImportPage::takeMessage(const QString& text, int type)
{
    QApplication::restoreOverrideCursor();
    if (type == ZelMessageBox::Error) {
        mProblems->add(text);
        mLower->setCurrentIndex(ProblemsTab);
    }
}

void ImportPage::showImported()
{
    QApplication::restoreOverrideCursor();
    if (!mDialog || mFile.isEmpty()) {
        return;
    }
    emit said(QStringLiteral("已导入 %1 行，%2 个问题 · %3")
                  .arg(mDialog->getWidgetData().size())
                  .arg(mProblems->problems().size())
                  .arg(mFile));
    if (mProblems->problems().isEmpty() && mFileCheck->report().hasErrors()) {
        mLower->setCurrentIndex(FileCheckTab); // the import did not see it, the user should
    }
    emit imported();
}

void ImportPage::takeConfirmation(bool closeAfterwards)
{
    mProblems->forgetBatch();
    HandOver batch = gatherBatch(closeAfterwards);
    bool cancelled = false;
    batch.content.fileSha256 = mDigest.wait(this, cancelled);
    if (cancelled) {
        finish(batch, false);
    } else {
        emit confirmed(batch);
    }
}

HandOver ImportPage::gatherBatch(bool closeAfterwards) const
{
    HandOver batch;
    batch.closeAfterwards = closeAfterwards;
    ledger::DialogContent& content = batch.content;
    content.strategy = mDialog->getStrategy().name();
    content.account = currentAccount();
    content.filePath = mFile;
    content.createdBy = mHost.options().loginAccount;
    content.expectedBuy = amountIn(QStringLiteral("expectBuyLine"));
    content.expectedSell = amountIn(QStringLiteral("expectSellLine"));
    content.parameterMaps = mDialog->getWidgetData();
    if (const ZelTableView* table = parameterTable()) {
        content.columns = table->headNames();
        content.records = table->getViewData();
    }
    return batch;
}

void ImportPage::finish(const HandOver& batch, bool created)
{
    if (created) {
        showHandedOver(batch);
    }
    if (created && batch.closeAfterwards) {
        close();
    } else if (mDialog) {
        mDialog->slotResetOkBtn();
    }
}

void ImportPage::showHandedOver(const HandOver& batch)
{
    const auto& maps = batch.content.parameterMaps;
    const QStringList columns = parameter_table::columnsOf(maps);
    mHandedOverModel->setTable(columns, parameter_table::rowsOf(maps, columns));
    mHandedOver->fitColumns();
    mLower->setTabText(HandedOverTab, QStringLiteral("已提交参数 %1").arg(maps.size()));
    mLower->setCurrentIndex(HandedOverTab);
}

ledger::BatchTable ImportPage::currentTable() const
{
    const ZelTableView* table = parameterTable();
    return table ? ledger::shownTable(table->headNames(), table->getViewData()) : ledger::BatchTable();
}

QString ImportPage::fileName() const
{
    return QFileInfo(mFile).fileName();
}

void ImportPage::showDiff(const ledger::BatchDiff& diff, qint64 batch)
{
    mDiff->show(diff);
    mLower->setTabText(DiffTab, QStringLiteral("与批次 %1 的变更").arg(batch));
    if (mProblems->problems().isEmpty()) {
        mLower->setCurrentIndex(DiffTab);
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

void ImportPage::clearFindings()
{
    mProblems->clear();
    mFileCheck->clear();
}

void ImportPage::close()
{
    if (!mDialog) {
        return;
    }
    saveLayout();
    mAmounts->setDialog(nullptr);
    mUpper->setCurrentIndex(0);
    mUpper->removeWidget(mDialog);
    mDialog->setParent(nullptr); // hidden, and no longer found in the window
    mDialog->deleteLater();      // it is in the midst of a signal of its own
    mDialog.clear();
    clearFindings();
    mFile.clear();
}

QString ImportPage::currentAccount() const
{
    const auto* accounts = mDialog ? mDialog->findChild<SolveyAccountComboBox*>(AccountBox) : nullptr;
    return accounts ? accounts->GetCurTradingAccount() : QString();
}

ZelTableView* ImportPage::parameterTable() const
{
    return mDialog ? mDialog->findChild<ZelTableView*>(ParameterTable) : nullptr;
}

double ImportPage::amountIn(const QString& box) const
{
    const auto* amount = mDialog->findChild<QDoubleSpinBox*>(box);
    return amount ? amount->value() : 0.0;
}

void ImportPage::saveLayout() const
{
    DeskSettings settings(mHost);
    settings.setImportSplitter(mSplitter->saveState());
    if (mDialog) {
        settings.setLastStrategy(mDialog->getCurrentAlgoName());
        settings.setLastAccount(currentAccount());
    }
}

void ImportPage::restoreLayout()
{
    mSplitter->restoreState(DeskSettings(mHost).importSplitter());
}
