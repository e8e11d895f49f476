// Loading a strategy turns the empty dialog into the import form of one algorithm.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/Logging.h"
#include "host/AlgoConstants.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/ZelTableView.h"
#include "strategy/ColumnRules.h"
#include "strategy/Strategy.h"
#include "ui_AlgoBatchImportParamSetting.h"

#include <QSettings>

namespace {

/// Selectors of the accounts that may run algorithms; their meaning is the host's.
constexpr int FirstFundProperty = 11;
constexpr int SecondFundProperty = 16;

constexpr int ColumnWidth = 90;
constexpr int AmountDecimals = 2;

const QString DefaultAlgoKey = QStringLiteral("My_DefaultBatch_Algo");

} // namespace

QString AlgoBatchImportParamSetting::CreateStrategyInitWidget(const AesStrategy& strategy)
{
    qCDebug(lcDialog) << "###tag-error: "
                      << " strategy: " << strategy.alias();
    mStrategy = strategy;

    ui->btn_ok->setEnabled(true);
    ui->table_paramSettings->clear();
    ui->expectBuyLine->setValue(0.0);
    ui->expectSellLine->setValue(0.0);
    ui->label_bWarning->hide();
    ui->label_sWarning->hide();
    mAllParamVarMapLst.clear();
    clearSchema();

    initGuiData(mStrategy);
    initSettings();
    mColValueNameMap[columns::Style] = mSchema->traits.styles();
    return QString();
}

void AlgoBatchImportParamSetting::initGuiData(const AesStrategy& strategy)
{
    initAccounts();

    qCDebug(lcDialog) << strategy.paramFormats() << strategy.alias();
    QString error;
    initTableHeadList(strategy.paramFormats(), error);
    addOwnColumns();
    const QStringList columnNames = mSchema->titles();
    if (!error.isEmpty() || columnNames.isEmpty()) {
        qCDebug(lcDialog) << " tableHeadList: " << columnNames << " strategy.name(): " << strategy.name()
                          << " strategy.alias(): " << strategy.alias() << " error: " << error;
    }
    mTableHeadLst = columnNames;
    initTable(columnNames);

    // The refill must not run the slot, which would load a strategy again.
    using Self = AlgoBatchImportParamSetting;
    disconnect(ui->cbx_algoType, &QComboBox::currentTextChanged, this, &Self::slotCbxAlgoTypeClicked);
    ui->cbx_algoType->clear();
    fillAlgoTypes();
    ui->cbx_algoType->setCurrentText(strategy.alias());
    connect(ui->cbx_algoType, &QComboBox::currentTextChanged, this, &Self::slotCbxAlgoTypeClicked);
    if (mInsType == FixedStrategy) {
        ui->cbx_algoType->setEnabled(false);
    }
    initAmountBoxes();
}

/// Offers the accounts anew and keeps the one that was chosen.
void AlgoBatchImportParamSetting::initAccounts()
{
    const QString chosen = ui->combx_account->GetCurTradingAccount();
    ui->combx_account->SetAccountList(SolveyBusinessDataInterface::GetFundAccountListByFundProp(
        FirstFundProperty, SecondFundProperty, true, QStringList(), true));
    if (!chosen.isEmpty()) {
        ui->combx_account->SetCurTradingAccount(chosen);
    }
    ui->combx_account->setAttribute(Qt::WA_MouseTracking);
}

/// The columns that every strategy has and no parameter format lists are parameters too.
void AlgoBatchImportParamSetting::addOwnColumns()
{
    const QString market = Algo_Fields::AlgoInstContentInfo::Exchange;
    mSymbolParamLst.append(market);
    mColParamIdMap[market] = market;
    mInsParamLst.append(columns::CreateAndStart);
    mColParamIdMap[columns::CreateAndStart] = columns::CreateAndStart;
    mExtraColNameLst << strategy::CompulsoryColumns;
}

void AlgoBatchImportParamSetting::initTable(const QStringList& columnNames)
{
    QList<QMap<QString, QVariant>> headList;
    for (const QString& name : columnNames) {
        headList.append({{Head_DisplayRole, name}});
    }
    ZelTableView* table = ui->table_paramSettings;
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSerialNumberColumnPropety(ZelViewModel::SerialNumColumnOrder(1));
    table->setColumnDefaultTextAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    table->setItemSelectable(true);
    table->setHeadList(headList);
    table->setCheckBoxShow(false);
    table->setViewSortable(true);
    table->setColumnDefaultWidth(ColumnWidth);
    if (mSchema->traits.has(strategy::StartsOnCreate)) {
        table->setColumnShow(columnNames.indexOf(columns::CreateAndStart), false);
    }
}

/// The boxes are displays that nobody types into.
void AlgoBatchImportParamSetting::initAmountBoxes()
{
    for (SolveyDecimalLineEdit* box : {ui->expectBuyLine, ui->expectSellLine}) {
        box->setEnabled(false);
        box->setDecimals(AmountDecimals);
        box->setValue(0.0);
    }
}

void AlgoBatchImportParamSetting::slotCbxAlgoTypeClicked()
{
    const QString name = ui->cbx_algoType->currentData().toString();
    const AesStrategy strategy = AlgoTradeLogicNew::GetInstance()->GetStrategy(name);
    const QString result = CreateStrategyInitWidget(strategy);
    qCDebug(lcDialog) << Q_FUNC_INFO << result;
    if (mInsType == SelectableStrategy && mSettings != nullptr) {
        mSettings->setValue(DefaultAlgoKey, strategy.name());
    }
}

QString AlgoBatchImportParamSetting::getCurrentAlgoName()
{
    return ui->cbx_algoType->currentData().toString();
}

AesStrategy AlgoBatchImportParamSetting::getStrategy() const
{
    return mStrategy;
}
