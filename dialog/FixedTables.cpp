// The vocabularies that no strategy changes: accepted values, header aliases, columns of whole numbers.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/ColumnNames.h"
#include "dialog/HeadAliases.h"
#include "host/AlgoConstants.h"
#include "host/NorvikConstants.h"
#include "host/SolveyConstants.h"

namespace {

QMap<QString, QString> styleValues()
{
    return {{QStringLiteral("neutral"), QStringLiteral("平稳")},
            {QStringLiteral("aggressive"), QStringLiteral("激进")}};
}

QMap<QString, QString> directionValues()
{
    namespace Side = Norvik_Values::OrderSide;
    namespace FuturesSide = Solvey_Values::SideUnion;
    namespace Shown = Algo_Values::FutureSide;
    return {{Side::buy, QStringLiteral("买入")},         {Side::sell, QStringLiteral("卖出")},
            {FuturesSide::openBuy, Shown::BuyOpenChi},   {FuturesSide::openSell, Shown::SellOpenChi},
            {FuturesSide::closeBuy, Shown::BuyCloseChi}, {FuturesSide::closeSell, Shown::SellCloseChi}};
}

QStringList wholeNumberColumns()
{
    return {QStringLiteral("数量"),       Algo_Fields::AlgoInstContentInfo::Quantity,
            QStringLiteral("单笔最大"),   QStringLiteral("单笔最小"),
            QStringLiteral("单笔最小量"), QStringLiteral("单笔最大委托数量"),
            QStringLiteral("起始成本"),   Algo_Fields::AlgoInstContentInfo::minAmout,
            QStringLiteral("最差滑点"),   Algo_Values::AlgoParamId::SellBalance};
}

} // namespace

void AlgoBatchImportParamSetting::fillFixedTables()
{
    mColValueNameMap = {{columns::Style, styleValues()},
                        {Algo_Values::AlgoParamId::traderOrder, directionValues()}};
    mHeadAliasMap = headAliases();
    mNumericColNameLst = wholeNumberColumns();
}
