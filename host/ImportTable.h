#pragma once

#include "host/AlgoConstants.h"
#include "host/NorvikConstants.h"
#include "host/SolveyConstants.h"

#include <QMap>
#include <QString>
#include <QStringList>

/// What the import of a table and the host's templates of it agree on, beside the names of
/// host/AlgoConstants.h.

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
