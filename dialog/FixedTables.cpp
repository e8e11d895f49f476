// The vocabularies that no strategy changes: accepted values, header aliases, columns of whole numbers.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/ColumnNames.h"
#include "dialog/HeadAliases.h"
#include "dialog/WholeNumberColumns.h"
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

} // namespace

void AlgoBatchImportParamSetting::fillFixedTables()
{
    mColValueNameMap = {{columns::Style, styleValues()},
                        {Algo_Values::AlgoParamId::traderOrder, directionValues()}};
    mHeadAliasMap = headAliases();
    mNumericColNameLst = wholeNumberColumns();
}
