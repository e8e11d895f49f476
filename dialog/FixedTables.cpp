// The vocabularies that no strategy changes: accepted values, header aliases, columns of whole numbers.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/ColumnNames.h"
#include "host/AlgoConstants.h"
#include "host/ImportTable.h"

namespace {

QMap<QString, QString> styleValues()
{
    return {{QStringLiteral("neutral"), QStringLiteral("平稳")},
            {QStringLiteral("aggressive"), QStringLiteral("激进")}};
}

} // namespace

void AlgoBatchImportParamSetting::fillFixedTables()
{
    mColValueNameMap = {{columns::Style, styleValues()},
                        {Algo_Values::AlgoParamId::traderOrder, TypedDirections}};
    mHeadAliasMap = HeadAliases;
    mNumericColNameLst = WholeNumberColumns;
}
