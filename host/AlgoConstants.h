#pragma once

#include <QString>

/// Names and values of algorithmic orders, as they travel between the dialog and its host.
/// Every text stands here once; nothing else spells it.

namespace Algo_Fields {

/// Keys of a strategy's parameter format document (see AesStrategy::paramFormats()).
namespace AlgoParamFields {
inline const QString paramName = QStringLiteral("paramName");
inline const QString paramId = QStringLiteral("paramId");
inline const QString ui = QStringLiteral("ui");
inline const QString columns = QStringLiteral("columns");
inline const QString display = QStringLiteral("display");
inline const QString value = QStringLiteral("value");
inline const QString strDefault = QStringLiteral("strDefault");
inline const QString visible = QStringLiteral("visible");
inline const QString required = QStringLiteral("required");
inline const QString options = QStringLiteral("options");
} // namespace AlgoParamFields

/// Keys of a parameter map and of its legs; several are column names of the parameter table at the same time.
namespace AlgoInstContentInfo {
inline const QString Symbol = QStringLiteral("证券代码");
inline const QString Exchange = QStringLiteral("市场");
inline const QString Quantity = QStringLiteral("委托数量");
inline const QString Quantity_Amount = QStringLiteral("委托金额");
inline const QString PriceLimits = QStringLiteral("委托限价");
inline const QString TradingAccount = QStringLiteral("交易账号");
inline const QString SecurityAccount = QStringLiteral("证券账号");
inline const QString fundAccount = QStringLiteral("资金账号");
inline const QString SymbolMdcType = QStringLiteral("证券子类型");
inline const QString maxPrice = QStringLiteral("涨停价");
inline const QString preClosePrice = QStringLiteral("昨收价");
inline const QString AlgoStartTime = QStringLiteral("开始时间");
inline const QString AlgoEndTime = QStringLiteral("结束时间");
inline const QString participationrate = QStringLiteral("最大市场占比");
inline const QString minAmout = QStringLiteral("单笔最小委托金额");
} // namespace AlgoInstContentInfo

} // namespace Algo_Fields

namespace Algo_Values {

/// How a parameter is edited: the `ui` of a parameter entry.
namespace AlgoParamUiType {
inline const QString Table = QStringLiteral("Table");
inline const QString ComboBox = QStringLiteral("ComboBox");
inline const QString DateTime = QStringLiteral("DateTime");
inline const QString LineEdit = QStringLiteral("LineEdit");
} // namespace AlgoParamUiType

/// Identifiers under which parameters travel.
namespace AlgoParamId {
inline const QString AlgoSecurityList = QStringLiteral("证券代码和委托数量"); ///< the list of legs
inline const QString traderOrder = QStringLiteral("交易方向");
inline const QString entrustProp = QStringLiteral("委托属性");
inline const QString SellBalance = QStringLiteral("卖单金额");
inline const QString InvestType = QStringLiteral("投资类型");
} // namespace AlgoParamId

/// Direction of an order as it is sent.
namespace AlgoOrderSide {
inline const QString BuyValue = QStringLiteral("Buy");
inline const QString SellValue = QStringLiteral("Sell");
} // namespace AlgoOrderSide

/// Direction of a futures order: as it is sent, and as it is shown.
namespace FutureSide {
inline const QString BuyOpen = QStringLiteral("BuyOpen");
inline const QString SellOpen = QStringLiteral("SellOpen");
inline const QString BuyClose = QStringLiteral("BuyClose");
inline const QString SellClose = QStringLiteral("SellClose");
inline const QString BuyOpenChi = QStringLiteral("买入开仓");
inline const QString SellOpenChi = QStringLiteral("卖出开仓");
inline const QString BuyCloseChi = QStringLiteral("买入平仓");
inline const QString SellCloseChi = QStringLiteral("卖出平仓");
} // namespace FutureSide

/// Entrust properties (kinds of order) that the lock pairs tell apart.
namespace entrustProp {
inline const QString normalTrade = QStringLiteral("0");
inline const QString financingBuy = QStringLiteral("6");
inline const QString creditTrade = QStringLiteral("9");
inline const QString sellBondNormal = QStringLiteral("7");
inline const QString sellBond_2 = QStringLiteral("A");
} // namespace entrustProp

/// Whether an instance waits after it was created.
namespace AlgoInstruction {
inline const QString Create = QStringLiteral("0");
inline const QString StartOnCreate = QStringLiteral("7");
} // namespace AlgoInstruction

/// Special default values of parameters.
namespace AlgoParamOptions {
inline const QString currentTime = QStringLiteral("currentTime");
} // namespace AlgoParamOptions

/// Selectors of the strategy catalogue.
namespace AlgoGlobalType {
inline const QString algo = QStringLiteral("algo");
} // namespace AlgoGlobalType

} // namespace Algo_Values
