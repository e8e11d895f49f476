#include "desk/window/DialogFrame.h"

#include "desk/probe/DialogProbe.h"
#include "desk/window/DeskPrompts.h"
#include "desk/window/DeskSettings.h"
#include "desk/window/ImportColumns.h"
#include "desk/window/StrategyFinder.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/widgets/PlainToolTip.h"
#include "host/AlgoConstants.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/SolveyAccountComboBox.h"
#include "host/SolveyDecimalLineEdit.h"
#include "host/ZelMessageBox.h"
#include "host/ZelTableView.h"
#include "words/Words.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

DialogFrame::DialogFrame(EmbeddedHost& host, DeskPrompts& prompts, QWidget* parent)
    : QStackedWidget(parent), mHost(host), mPrompts(prompts), mView(new QScrollArea)
{
    addWidget(makeClosedPage());
    mView->setObjectName(QStringLiteral("view_dialog"));
    mView->setWidgetResizable(true);
    mView->setFrameShape(QFrame::NoFrame);
    mView->setFocusPolicy(Qt::NoFocus);
    mView->setAccessibleName(Words::tr("批量导入"));
    addWidget(mView);
    connect(&prompts, &DeskPrompts::fileChosen, this, &DialogFrame::startImport);
    connect(&prompts, &DeskPrompts::messageComing, this, &DialogFrame::takeMessage);
}

QWidget* DialogFrame::makeClosedPage()
{
    auto* page = new QWidget;
    auto* text = new QLabel(Words::tr("批量导入已关闭。可在“算法实例”中查看已创建的实例。"), page);
    text->setProperty("role", QStringLiteral("caption"));
    auto* again = new QPushButton(Words::tr("新建批量导入"), page);
    again->setObjectName(QStringLiteral("button_open"));
    again->setToolTip(Words::tr("打开一个新的批量导入 (Ctrl+N)"));
    connect(again, &QPushButton::clicked, this, &DialogFrame::open);
    auto* column = new QVBoxLayout(page);
    column->addStretch();
    column->addWidget(text, 0, Qt::AlignHCenter);
    column->addWidget(again, 0, Qt::AlignHCenter);
    column->addStretch();
    return page;
}

void DialogFrame::open()
{
    if (mDialog) {
        emit said(Words::tr("批量导入已经打开"));
        return;
    }
    mDialog = new AlgoBatchImportParamSetting(this, SelectableStrategy);
    AlgoTradeLogicNew* catalogue = AlgoTradeLogicNew::GetInstance();
    AesStrategy strategy = catalogue->GetStrategy(DeskSettings(mHost).lastStrategy());
    if (strategy.name().isEmpty()) {
        strategy = catalogue->GetAllStrategies(Algo_Values::AlgoGlobalType::algo).value(0);
    }
    mDialog->CreateStrategyInitWidget(strategy);
    dressAccountBox();
    dressStrategyBox();
    nameParts();
    table()->setEmptyText(Words::tr("尚未导入\n按“导入算法”选择文件，或把文件拖到窗口上"));
    table()->setAccessibleName(Words::tr("参数表"));
    mColumns = new ImportColumns(mHost, table());
    listenToButtons();
    listenToBoxes();
    mColumns->apply();
    mView->setWidget(mDialog);
    setCurrentWidget(mView);
    emit opened();
}

void DialogFrame::dressAccountBox()
{
    SolveyAccountComboBox* accounts = &probe().accounts();
    const auto showWhole = [accounts] { accounts->setToolTip(plainToolTip(accounts->currentText())); };
    connect(accounts, &QComboBox::currentTextChanged, accounts, showWhole);
    accounts->SetCurTradingAccount(DeskSettings(mHost).lastAccount());
    showWhole();
}

void DialogFrame::dressStrategyBox()
{
    mFinder = new StrategyFinder(&probe().strategies());
}

/// What a screen reader says of the form, and what the pointer is told: the texts on it stay the dialog's
/// own.
void DialogFrame::nameParts()
{
    const DialogProbe parts = probe();
    for (const DialogProbe::Caption& caption : parts.captions()) {
        caption.label.setBuddy(&caption.control);
    }
    parts.accounts().setAccessibleName(Words::tr("账户名称"));
    parts.accounts().view()->setAccessibleName(Words::tr("账户名称"));
    parts.strategies().setAccessibleName(Words::tr("算法类型"));
    parts.strategies().view()->setAccessibleName(Words::tr("算法类型"));
    parts.expectedBuy().box.setAccessibleName(Words::tr("预计买入金额"));
    parts.expectedSell().box.setAccessibleName(Words::tr("预计卖出金额"));
    parts.expectedBuy().warning.setAccessibleName(Words::tr("预计买入金额不全：有标的没有行情"));
    parts.expectedSell().warning.setAccessibleName(Words::tr("预计卖出金额不全：有标的没有行情"));
    parts.importButton().setToolTip(Words::tr("选择文件并导入 (Ctrl+O)"));
    parts.templateButton().setToolTip(Words::tr("把当前算法或全部算法的模板保存为文件"));
    parts.confirmButton().setToolTip(Words::tr("核对并创建这一批 (Ctrl+Enter)"));
    parts.cancelButton().setToolTip(Words::tr("关闭批量导入，表格中的批次不再保留"));
}

void DialogFrame::findStrategy()
{
    if (!mDialog) {
        open();
    }
    mFinder->open();
}

void DialogFrame::listenToButtons()
{
    connect(mDialog, &AlgoBatchImportParamSetting::signalBtnOkClicked, this, &DialogFrame::confirmed);
    connect(mDialog, &AlgoBatchImportParamSetting::signalBtnCancelClicked, this, &DialogFrame::cancel);
    // The dialog connected its own slot first, so that here the import is over.
    connect(&probe().importButton(), &QAbstractButton::clicked, this, &DialogFrame::endImport);
    connect(&probe().confirmButton(), &QAbstractButton::pressed, this, [this] { mSubject = Subject::Batch; });
    connect(&probe().templateButton(), &QAbstractButton::pressed, this,
            [this] { mSubject = Subject::Nothing; });
}

void DialogFrame::listenToBoxes()
{
    QComboBox* strategies = &probe().strategies();
    SolveyAccountComboBox* accounts = &probe().accounts();
    strategies->installEventFilter(this);
    // This signal comes before the change of text, at which the dialog throws its batch away.
    connect(strategies, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &DialogFrame::guardStrategy);
    connect(strategies, &QComboBox::currentTextChanged, this, &DialogFrame::strategyChanged);
    connect(strategies, &QComboBox::currentTextChanged, mColumns, &ImportColumns::apply);
    accounts->installEventFilter(this);
    // This signal comes before the change of text, for which the dialog checks the batch again.
    connect(accounts, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        mSubject = Subject::Account;
        emit accountChanging();
    });
}

// A turn of the wheel over one of these boxes would move the batch to another account, or throw it away.
bool DialogFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel) {
        return QStackedWidget::eventFilter(watched, event);
    }
    event->ignore();
    return true;
}

/// Where the user wants to keep the batch, the box shows its strategy again, and nobody hears of the other.
void DialogFrame::guardStrategy()
{
    QComboBox* strategies = &probe().strategies();
    const QString loaded = mDialog->getStrategy().name();
    const int before = strategies->findData(loaded);
    if (before < 0 || strategies->currentData() == loaded || !mGuard || mGuard()) {
        return;
    }
    strategies->blockSignals(true); // until the change that is being told has been told
    strategies->setCurrentIndex(before);
    QTimer::singleShot(0, strategies, [strategies] { strategies->blockSignals(false); });
}

void DialogFrame::cancel()
{
    if (!mGuard || mGuard()) {
        close();
    }
}

void DialogFrame::outdate()
{
    if (mDialog) {
        probe().confirmButton().setEnabled(false);
    }
}

void DialogFrame::close()
{
    if (!mDialog) {
        return;
    }
    saveChoice();
    setCurrentIndex(0);
    mView->takeWidget();
    mDialog->setParent(nullptr); // hidden, and no longer found in the window
    mDialog->deleteLater();      // it is in the midst of a signal of its own
    mDialog.clear();
    emit closed();
}

void DialogFrame::chooseStrategy(const QString& code)
{
    if (!mDialog) {
        open();
    }
    QComboBox& strategies = probe().strategies();
    const int index = strategies.findData(code);
    if (index >= 0 && index != strategies.currentIndex()) {
        strategies.setCurrentIndex(index);
    }
}

void DialogFrame::import()
{
    if (!mDialog) {
        open();
    }
    probe().importButton().click();
}

void DialogFrame::importFile(const QString& path)
{
    mPrompts.answerNextOpenWith(path);
    import();
}

void DialogFrame::confirm()
{
    if (!mDialog) {
        emit said(Words::tr("批量导入已关闭，没有可提交的批次"));
    } else if (!probe().confirmButton().isEnabled()) {
        emit said(Words::tr("“确定”不可用：请先按提示改正，或重新导入"));
    } else {
        probe().confirmButton().click();
    }
}

void DialogFrame::startImport(const QString& path)
{
    mSubject = Subject::File;
    QApplication::setOverrideCursor(Qt::WaitCursor); // until it is imported or has something to say
    emit importStarted(path);
}

void DialogFrame::endImport()
{
    const bool started = mSubject == Subject::File; // not where the user chose no file
    mSubject = Subject::Nothing;
    QApplication::restoreOverrideCursor();
    mColumns->apply();
    if (started) {
        emit importEnded();
    }
}

void DialogFrame::takeMessage(const QString& text, int type)
{
    QApplication::restoreOverrideCursor();
    if (type == ZelMessageBox::Error && mSubject != Subject::Nothing) {
        emit complained(text, mSubject);
    }
}

batch::DialogContent DialogFrame::content(const QString& filePath, const QString& fileSha256) const
{
    return probe().content({filePath, fileSha256, mHost.options().loginAccount});
}

DialogFaults DialogFrame::faults() const
{
    return probe().faults();
}

ledger::BatchTable DialogFrame::shownTable() const
{
    return mDialog ? probe().shownTable() : ledger::BatchTable();
}

void DialogFrame::saveChoice() const
{
    if (mDialog) {
        DeskSettings settings(mHost);
        settings.setLastStrategy(mDialog->getCurrentAlgoName());
        settings.setLastAccount(probe().accounts().GetCurTradingAccount());
    }
}

ZelTableView* DialogFrame::table() const
{
    return mDialog ? &probe().table() : nullptr;
}

int DialogFrame::rowCount() const
{
    const ZelTableView* shown = table();
    return shown ? shown->getViewData().size() : 0;
}

DialogProbe DialogFrame::probe() const
{
    return DialogProbe(*mDialog);
}
