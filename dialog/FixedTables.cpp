// The vocabularies that no strategy changes: accepted values, header aliases, columns of whole numbers.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/ColumnNames.h"
#include "dialog/HeadAliases.h"
#include "host/AlgoConstants.h"
#include "host/ImportTable.h"

namespace {

QMap<QString, QString> styleValues()
{
    return {{QStringLiteral("neutral"), QStringLiteral("平稳")},
            {QStringLiteral("aggressive"), QStringLiteral("激进")}};
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
                        {Algo_Values::AlgoParamId::traderOrder, TypedDirections}};
    mHeadAliasMap = headAliases();
    mNumericColNameLst = wholeNumberColumns();
}
