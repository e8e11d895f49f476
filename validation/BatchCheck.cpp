// Every instance against the chosen account: the market of Hong Kong securities, then the entrust property.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/ColumnNames.h"
#include "dialog/Logging.h"
#include "dialog/StrategyLists.h"
#include "host/AlgoConstants.h"
#include "host/CBusinessDataBase.h"
#include "host/CDataBase.h"
#include "host/NorvikConstants.h"
#include "host/SolveyBusinessDataInterface.h"
#include "ui_AlgoBatchImportParamSetting.h"
#include "validation/EntrustRules.h"
#include "validation/ValidationTexts.h"

namespace ParamId = Algo_Values::AlgoParamId;
using validation::EntrustFault;

namespace {

/// What the entrust check needs of one instance. Each leg of a paired strategy carries its own property and
/// direction; the first one speaks for the row.
struct Order {
    QString entrustProp;
    QString side;
    bool toCheck;
};

Order orderOf(const QMap<QString, QVariant>& instance, bool paired)
{
    const bool hasProperty = instance.contains(ParamId::entrustProp);
    if (!paired) {
        return {instance.value(ParamId::entrustProp).toString(),
                instance.value(ParamId::traderOrder).toString(), hasProperty};
    }
    const QVariantMap leg = instance.value(ParamId::AlgoSecurityList).toList().value(0).toMap();
    const QString entrustProp = leg.value(ParamId::entrustProp).toString();
    return {entrustProp, leg.value(ParamId::traderOrder).toString(), hasProperty || !entrustProp.isEmpty()};
}

QString faultText(EntrustFault fault, int row, const QString& accountFault)
{
    switch (fault) {
    case EntrustFault::None:
        break;
    case EntrustFault::Account:
        return accountFault.arg(row);
    case EntrustFault::Direction:
        return validation::DirectionFault.arg(row);
    case EntrustFault::CollateralBuyOnly:
        return validation::CollateralBuyOnly.arg(row);
    case EntrustFault::CollateralSellOnly:
        return validation::CollateralSellOnly.arg(row);
    }
    return QString();
}

} // namespace

QString AlgoBatchImportParamSetting::checkAccounTypesInParamsMap()
{
    if (mAllParamVarMapLst.isEmpty()) {
        qCDebug(lcValidation) << Q_FUNC_INFO << " mAllParamVarMapLst: " << mAllParamVarMapLst;
        return validation::NoData;
    }
    const QString tradingAccount = ui->combx_account->GetCurTradingAccount();
    if (tradingAccount.isEmpty()) {
        qCDebug(lcValidation) << Q_FUNC_INFO << ui->combx_account->currentText()
                              << ui->combx_account->currentData();
        return validation::NoAccount;
    }
    const QString strategy = mStrategy.name();
    const bool paired = AipairStrategyList.contains(strategy) || AilockStrategyList.contains(strategy);
    QString result;
    int row = 0;
    for (const QMap<QString, QVariant>& singleParamVarMap : qAsConst(mAllParamVarMapLst)) {
        result += checkInstance(++row, singleParamVarMap, paired, tradingAccount);
    }
    return result;
}

/// The first thing that is wrong with one instance.
QString AlgoBatchImportParamSetting::checkInstance(int row, const QMap<QString, QVariant>& instance,
                                                   bool paired, const QString& tradingAccount) const
{
    qCDebug(lcValidation) << "singleParamVarMap" << instance;
    const QVariantList securityList = instance.value(ParamId::AlgoSecurityList).toList();
    QString symbol;
    QString exchange;
    if (parseSymbolAndExchangeFromParamsMap(securityList, symbol, exchange) == QLatin1String("-1")) {
        qCDebug(lcValidation) << " symbol: " << symbol << " exchange: " << exchange
                              << " singleParamVarMap.value(Algo_values::AlgoParamId::AlgoSecurityList):"
                              << securityList;
        return validation::BadData.arg(row);
    }
    const QString marketFault = checkSymbolType(row, symbol, exchange);
    if (!marketFault.isEmpty()) {
        qCDebug(lcValidation) << "!ret.isEmpty" << marketFault;
        return marketFault;
    }
    const Order order = orderOf(instance, paired);
    if (!order.toCheck) {
        return QString();
    }
    qCDebug(lcValidation) << "contains prop" << order.entrustProp;
    return checkEntrustProp(row, order.entrustProp, tradingAccount, order.side);
}

QString AlgoBatchImportParamSetting::parseSymbolAndExchangeFromParamsMap(const QList<QVariant>& securityList,
                                                                         QString& symbol,
                                                                         QString& exchange) const
{
    const QVariantMap security = securityList.value(0).toMap();
    if (security.isEmpty()) {
        return QStringLiteral("-1");
    }
    symbol = security.value(Algo_Fields::AlgoInstContentInfo::Symbol).toString();
    exchange = security.value(Algo_Fields::AlgoInstContentInfo::Exchange).toString();
    return QStringLiteral("0");
}

/// A Hong Kong security must be ordered on a market on which it trades.
QString AlgoBatchImportParamSetting::checkSymbolType(int row, const QString& symbol,
                                                     const QString& exchange) const
{
    CBusinessDataBase* securities = CBusinessDataBase::GetInstance();
    if (securities->GetSymbolPostBySymbol(symbol) != Norvik_Values::SymbolPost::hk) {
        return QString();
    }
    const QStringList exchangeLst = securities->GetSecurityExchangeBySymbol(symbol);
    qCDebug(lcValidation) << " exchangeLst: " << exchangeLst << " symbol: " << symbol;
    if (exchangeLst.isEmpty() || exchangeLst.contains(exchange)) {
        return QString();
    }
    const QString market =
        CDataBase::GetInstance()->GetStaticCfgValue(MarketNameSection, exchangeLst.first());
    return validation::MarketFault.arg(row).arg(validation::OnlyOnMarket.arg(symbol, market));
}

/// Asked anew for every row: the records may change while a batch stands.
bool AlgoBatchImportParamSetting::readAccountType(const QString& tradingAccount, QString& accountType) const
{
    const QList<tagUserAccountInfo> records =
        SolveyBusinessDataInterface::GetAccountInfoListFromTrade(tradingAccount, true);
    if (records.isEmpty()) {
        qCDebug(lcValidation) << "get accountType is error, tradingAccount: " << tradingAccount
                              << " combx_account currentData : " << ui->combx_account->currentData()
                              << " currentText : " << ui->combx_account->currentText();
        return false;
    }
    accountType = records.first().fundAccountType;
    return true;
}

QString AlgoBatchImportParamSetting::checkEntrustProp(int row, const QString& entrustProp,
                                                      const QString& tradingAccount) const
{
    QString accountType;
    if (!readAccountType(tradingAccount, accountType)) {
        return validation::NoAccountType;
    }
    qCDebug(lcValidation) << Q_FUNC_INFO << " accountType: " << accountType << "entrustProp" << entrustProp
                          << " account: " << ui->combx_account->currentText();
    return faultText(validation::faultOfAccount(accountType, entrustProp), row, validation::LegPropertyFault);
}

QString AlgoBatchImportParamSetting::checkEntrustProp(int row, const QString& entrustProp,
                                                      const QString& tradingAccount, QString orderSide) const
{
    QString accountType;
    if (!readAccountType(tradingAccount, accountType)) {
        return validation::NoAccountType;
    }
    qCDebug(lcValidation) << Q_FUNC_INFO << " accountType: " << accountType << "entrustProp" << entrustProp
                          << "orderSide" << orderSide << " account: " << ui->combx_account->currentText();
    EntrustFault fault = validation::faultOfAccount(accountType, entrustProp);
    if (fault == EntrustFault::None) {
        fault = validation::faultOfDirection(accountType, entrustProp, orderSide);
    }
    if (fault == EntrustFault::None && CollateralOnlyStrategyList.contains(mStrategy.name())) {
        fault = validation::faultOfCollateral(accountType, entrustProp, orderSide);
    }
    return faultText(fault, row, validation::PropertyFault);
}
