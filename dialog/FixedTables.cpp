// The vocabularies that no strategy changes: accepted values, header aliases, columns of whole numbers.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "strategy/ColumnRules.h"
#include "strategy/Strategy.h"

void AlgoBatchImportParamSetting::fillFixedTables()
{
    mColValueNameMap = strategy::acceptedTexts(strategy::usualStyles());
    mHeadAliasMap = strategy::HeadAliases;
    mNumericColNameLst = strategy::WholeNumberColumns;
}
