#pragma once

#include "host/AlgoConstants.h"
#include "host/NorvikConstants.h"
#include "host/SolveyConstants.h"
#include "strategy/ColumnNames.h"

#include <QMap>
#include <QString>
#include <QStringList>

/// What holds of columns under every strategy. The import of a table and whatever is offered around it
/// (templates, checks of a file) agree on it.
namespace strategy {

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
    {columns::Limit, Algo_Fields::AlgoInstContentInfo::PriceLimits},
    {columns::Code, Algo_Fields::AlgoInstContentInfo::Symbol},
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

} // namespace strategy
