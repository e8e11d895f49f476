#pragma once

#include "host/AlgoConstants.h"
#include "host/NorvikConstants.h"
#include "host/SolveyConstants.h"

#include <QMap>
#include <QString>
#include <QStringList>

/// What the import of a table and whatever the host offers around it (templates, checks of a file) agree on,
/// beside the names of host/AlgoConstants.h.

namespace columns {
inline const QString SecurityName = QStringLiteral("证券名称");
inline const QString CreateAndStart = QStringLiteral("创建后是否立即启动");
inline const QString SealingAmount = QStringLiteral("封单金额");
} // namespace columns

/// Columns that must have a value wherever a strategy has them.
inline const QStringList CompulsoryColumns = {Algo_Values::AlgoParamId::traderOrder,
                                              Algo_Values::AlgoParamId::entrustProp,
                                              columns::CreateAndStart,
                                              columns::SealingAmount,
                                              Algo_Fields::AlgoInstContentInfo::Quantity_Amount,
                                              Algo_Values::AlgoParamId::SellBalance,
                                              Algo_Values::AlgoParamId::InvestType};

/// Columns whose cells the import cuts off behind the point; a text that is no number is 0 there.
inline const QStringList WholeNumberColumns = {
    QStringLiteral("数量"),       Algo_Fields::AlgoInstContentInfo::Quantity,
    QStringLiteral("单笔最大"),   QStringLiteral("单笔最小"),
    QStringLiteral("单笔最小量"), QStringLiteral("单笔最大委托数量"),
    QStringLiteral("起始成本"),   Algo_Fields::AlgoInstContentInfo::minAmout,
    QStringLiteral("最差滑点"),   Algo_Values::AlgoParamId::SellBalance};

/// Titles that an import file may use in place of a column's own, for example 方向 for 交易方向. The header
/// matching reads them in both directions.
inline const QMap<QString, QString> HeadAliases = {
    {QStringLiteral("方向"), Algo_Values::AlgoParamId::traderOrder},
    {QStringLiteral("数量"), Algo_Fields::AlgoInstContentInfo::Quantity},
    {QStringLiteral("限价"), Algo_Fields::AlgoInstContentInfo::PriceLimits},
    {QStringLiteral("代码"), Algo_Fields::AlgoInstContentInfo::Symbol},
    {QStringLiteral("扫盘比例(%)"), QStringLiteral("扫盘比例（%）")},
    {QStringLiteral("备注"), QStringLiteral("实例备注")},
    {QStringLiteral("名称"), columns::SecurityName}};

/// What is typed as a direction, and how it is shown.
inline const QMap<QString, QString> TypedDirections = {
    {Norvik_Values::OrderSide::buy, QStringLiteral("买入")},
    {Norvik_Values::OrderSide::sell, QStringLiteral("卖出")},
    {Solvey_Values::SideUnion::openBuy, Algo_Values::FutureSide::BuyOpenChi},
    {Solvey_Values::SideUnion::openSell, Algo_Values::FutureSide::SellOpenChi},
    {Solvey_Values::SideUnion::closeBuy, Algo_Values::FutureSide::BuyCloseChi},
    {Solvey_Values::SideUnion::closeSell, Algo_Values::FutureSide::SellCloseChi}};

/// Strategies that trade one security on two legs at once; their cells may hold two values separated by "/".
inline const QStringList AilockStrategyList = {QStringLiteral("AILOCK"), QStringLiteral("AILOCKPLUS"),
                                               QStringLiteral("AILOCK3")};

/// Strategies that always start on creation: their files have no column for it.
inline const QStringList StartOnCreateStrategyList = {QStringLiteral("KF_TWAPPLUS"),
                                                      QStringLiteral("KF_VWAPPLUS")};
