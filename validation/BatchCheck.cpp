// The dialog's own names of the checks at 确定: its batch against its account, as the texts of its box.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "ui_AlgoBatchImportParamSetting.h"
#include "validation/BatchRules.h"
#include "validation/ValidationTexts.h"

using validation::textOfBatch;

namespace {

table::Faults listOf(const std::optional<table::Fault>& fault)
{
    return fault ? table::Faults{*fault} : table::Faults();
}

} // namespace

validation::ChosenAccount AlgoBatchImportParamSetting::chosenAccount(const QString& tradingAccount) const
{
    return {tradingAccount, ui->combx_account->currentText(), ui->combx_account->currentData()};
}

QString AlgoBatchImportParamSetting::checkAccounTypesInParamsMap()
{
    return textOfBatch(
        validation::faultsOfInstances(mAllParamVarMapLst, strategy::traitsOf(mStrategy.name()),
                                      chosenAccount(ui->combx_account->GetCurTradingAccount())));
}

QString AlgoBatchImportParamSetting::checkAILOCK()
{
    return textOfBatch(validation::faultsOfLegs(mAllParamVarMapLst,
                                                chosenAccount(ui->combx_account->GetCurTradingAccount())));
}

QString AlgoBatchImportParamSetting::parseSymbolAndExchangeFromParamsMap(const QList<QVariant>& securityList,
                                                                         QString& symbol,
                                                                         QString& exchange) const
{
    return validation::firstSecurity(securityList, symbol, exchange) ? QStringLiteral("0")
                                                                     : QStringLiteral("-1");
}

QString AlgoBatchImportParamSetting::checkSymbolType(int row, const QString& symbol,
                                                     const QString& exchange) const
{
    return textOfBatch(listOf(validation::faultOfMarket(row, symbol, exchange)));
}

QString AlgoBatchImportParamSetting::checkEntrustProp(int row, const QString& entrustProp,
                                                      const QString& tradingAccount) const
{
    return textOfBatch(listOf(
        validation::faultOfEntrust({row, entrustProp, std::nullopt}, {}, chosenAccount(tradingAccount))));
}

QString AlgoBatchImportParamSetting::checkEntrustProp(int row, const QString& entrustProp,
                                                      const QString& tradingAccount, QString orderSide) const
{
    return textOfBatch(listOf(validation::faultOfEntrust(
        {row, entrustProp, orderSide}, strategy::traitsOf(mStrategy.name()), chosenAccount(tradingAccount))));
}
