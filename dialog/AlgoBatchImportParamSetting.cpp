#include "dialog/AlgoBatchImportParamSetting.h"

#include "dialog/Logging.h"
#include "host/AlgoConstants.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/FuturesLogicInterface.h"
#include "host/ZelCore.h"
#include "strategy/Strategy.h"
#include "ui_AlgoBatchImportParamSetting.h"

namespace {

/// Nobody frees it. A function of its own, so that a leak checker can be told of this one and no other.
Ui::AlgoBatchImportParamSetting* formThatStays()
{
    return new Ui::AlgoBatchImportParamSetting;
}

} // namespace

AlgoBatchImportParamSetting::AlgoBatchImportParamSetting(QWidget* parent, BatchInsType type)
    : QWidget(parent), ui(formThatStays()), mInsType(type),
      mSchema(std::make_shared<const strategy::Strategy>())
{
    setObjectName(QStringLiteral("AlgoBatchImportParamSetting"));
    ui->setupUi(this);
    ZelCore::instance()->addStyle2View(this, QStringLiteral("Solvey/algoTrade/algoTradeNew.css"));

    mStrategyCodeLst.clear();
    clearSchema();
    fillFixedTables();
    FuturesLogicInterface::InitData();
    ui->cbx_algoType->clear();
    fillAlgoTypes();
    initConnect();
}

AlgoBatchImportParamSetting::~AlgoBatchImportParamSetting() = default;

void AlgoBatchImportParamSetting::clearSchema()
{
    mColUiTypeMap.clear();
    mColParamIdMap.clear();
    mColParamFmtMap.clear();
    mColOptionMap.clear();
    mTableHeadLst.clear();
    mSymbolParamLst.clear();
    mInsParamLst.clear();
}

/// The alias is only shown; the code, kept as the item's data, identifies the strategy everywhere.
void AlgoBatchImportParamSetting::fillAlgoTypes()
{
    const QList<AesStrategy> strategies =
        AlgoTradeLogicNew::GetInstance()->GetAllStrategies(Algo_Values::AlgoGlobalType::algo);
    qCDebug(lcDialog) << "###: " << Q_FUNC_INFO << "###algoList.count(): " << strategies.count();
    for (const AesStrategy& strategy : strategies) {
        qCDebug(lcDialog) << "alias: " << strategy.alias() << "name: " << strategy.name();
        ui->cbx_algoType->addItem(QIcon(), strategy.alias(), strategy.name());
    }
}

void AlgoBatchImportParamSetting::initConnect()
{
    using Self = AlgoBatchImportParamSetting;
    connect(ui->btn_ok, &QAbstractButton::clicked, this, &Self::slotBtnOkClicked);
    connect(ui->btn_cancel, &QAbstractButton::clicked, this, &Self::slotBtnCancelClicked);
    connect(ui->btn_import, &QAbstractButton::clicked, this, &Self::slotBtnImportClicked);
    connect(ui->checkbx_createdClose, &QAbstractButton::toggled, this, &Self::slotIsCreatedClose);
    connect(ui->pb_exportModules, &QAbstractButton::clicked, this, &Self::slotBtnExportClicked);
    connect(ui->combx_account, &QComboBox::currentTextChanged, this, &Self::slotCbxAccountChanged);
    connect(ui->cbx_algoType, &QComboBox::currentTextChanged, this, &Self::slotCbxAlgoTypeClicked);
}

void AlgoBatchImportParamSetting::loadSkin(const QVariant& style)
{
    if (style.isValid()) {
        setStyleSheet(style.toString());
    }
}
