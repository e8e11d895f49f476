#include "desk/window/DialogFrame.h"

#include "desk/window/DeskPrompts.h"
#include "desk/window/DeskSettings.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/widgets/PlainToolTip.h"
#include "host/AlgoConstants.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/SolveyAccountComboBox.h"
#include "host/ZelMessageBox.h"
#include "host/ZelTableView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int WidestAccountBox = 240; // pixels; name and number together are longer than the form allows for

const QString ImportButton = QStringLiteral("btn_import");
const QString ConfirmButton = QStringLiteral("btn_ok");
const QString TemplateButton = QStringLiteral("pb_exportModules");

} // namespace

DialogFrame::DialogFrame(EmbeddedHost& host, DeskPrompts& prompts, QWidget* parent)
    : QStackedWidget(parent), mHost(host), mPrompts(prompts)
{
    addWidget(makeClosedPage());
    connect(&prompts, &DeskPrompts::fileChosen, this, &DialogFrame::startImport);
    connect(&prompts, &DeskPrompts::messageComing, this, &DialogFrame::takeMessage);
}

QWidget* DialogFrame::makeClosedPage()
{
    auto* page = new QWidget;
    auto* text = new QLabel(QStringLiteral("批量导入已关闭。可在“算法实例”中查看已创建的实例。"), page);
    text->setProperty("role", QStringLiteral("caption"));
    auto* again = new QPushButton(QStringLiteral("新建批量导入"), page);
    again->setObjectName(QStringLiteral("button_open"));
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
        emit said(QStringLiteral("批量导入已经打开"));
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
    table()->setEmptyText(QStringLiteral("尚未导入\n按“导入算法”选择文件，或把文件拖到窗口上"));
    table()->setAccessibleName(QStringLiteral("参数表"));
    listenToButtons();
    listenToBoxes();
    addWidget(mDialog);
    setCurrentWidget(mDialog);
    emit opened();
}

void DialogFrame::dressAccountBox()
{
    SolveyAccountComboBox* accounts = accountBox();
    const auto showWhole = [accounts] { accounts->setToolTip(plainToolTip(accounts->currentText())); };
    connect(accounts, &QComboBox::currentTextChanged, accounts, showWhole);
    accounts->setAccessibleName(QStringLiteral("账户名称"));
    accounts->SetCurTradingAccount(DeskSettings(mHost).lastAccount());
    accounts->setMinimumWidth(qMin(accounts->sizeHint().width(), WidestAccountBox));
    showWhole();
}

void DialogFrame::listenToButtons()
{
    connect(mDialog, &AlgoBatchImportParamSetting::signalBtnOkClicked, this, &DialogFrame::confirmed);
    connect(mDialog, &AlgoBatchImportParamSetting::signalBtnCancelClicked, this, &DialogFrame::close);
    // The dialog connected its own slot first, so that here the import is over.
    connect(button(ImportButton), &QAbstractButton::clicked, this, &DialogFrame::endImport);
    connect(button(ConfirmButton), &QAbstractButton::pressed, this, [this] { mSubject = Subject::Batch; });
    connect(button(TemplateButton), &QAbstractButton::pressed, this, [this] { mSubject = Subject::Nothing; });
}

void DialogFrame::listenToBoxes()
{
    auto* strategies = mDialog->findChild<QComboBox*>(QStringLiteral("cbx_algoType"));
    strategies->setAccessibleName(QStringLiteral("算法类型"));
    strategies->installEventFilter(this);
    connect(strategies, &QComboBox::currentTextChanged, this, &DialogFrame::strategyChanged);
    accountBox()->installEventFilter(this);
    // This signal comes before the change of text, for which the dialog checks the batch again.
    connect(accountBox(), QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        mSubject = Subject::Batch;
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

void DialogFrame::close()
{
    if (!mDialog) {
        return;
    }
    saveChoice();
    setCurrentIndex(0);
    removeWidget(mDialog);
    mDialog->setParent(nullptr); // hidden, and no longer found in the window
    mDialog->deleteLater();      // it is in the midst of a signal of its own
    mDialog.clear();
    emit closed();
}

void DialogFrame::import()
{
    if (!mDialog) {
        open();
    }
    button(ImportButton)->click();
}

void DialogFrame::importFile(const QString& path)
{
    mPrompts.answerNextOpenWith(path);
    import();
}

void DialogFrame::confirm()
{
    if (!mDialog) {
        emit said(QStringLiteral("批量导入已关闭，没有可提交的批次"));
    } else if (!button(ConfirmButton)->isEnabled()) {
        emit said(QStringLiteral("“确定”不可用：请先按提示改正，或重新导入"));
    } else {
        button(ConfirmButton)->click();
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

batch::DialogContent DialogFrame::content() const
{
    batch::DialogContent content;
    content.strategy = mDialog->getStrategy().name();
    content.account = accountBox()->GetCurTradingAccount();
    content.createdBy = mHost.options().loginAccount;
    content.expectedBuy = amountIn(QStringLiteral("expectBuyLine"));
    content.expectedSell = amountIn(QStringLiteral("expectSellLine"));
    content.parameterMaps = mDialog->getWidgetData();
    content.columns = table()->headNames();
    content.records = table()->getViewData();
    return content;
}

void DialogFrame::saveChoice() const
{
    if (mDialog) {
        DeskSettings settings(mHost);
        settings.setLastStrategy(mDialog->getCurrentAlgoName());
        settings.setLastAccount(accountBox()->GetCurTradingAccount());
    }
}

ZelTableView* DialogFrame::table() const
{
    return mDialog ? mDialog->findChild<ZelTableView*>(QStringLiteral("table_paramSettings")) : nullptr;
}

int DialogFrame::rowCount() const
{
    const ZelTableView* shown = table();
    return shown ? shown->getViewData().size() : 0;
}

QAbstractButton* DialogFrame::button(const QString& name) const
{
    return mDialog->findChild<QAbstractButton*>(name);
}

SolveyAccountComboBox* DialogFrame::accountBox() const
{
    return mDialog->findChild<SolveyAccountComboBox*>(QStringLiteral("combx_account"));
}

double DialogFrame::amountIn(const QString& box) const
{
    return mDialog->findChild<QDoubleSpinBox*>(box)->value();
}
