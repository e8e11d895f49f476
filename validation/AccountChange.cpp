// Another account was chosen: every instance and every leg must trade through it.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/ColumnNames.h"
#include "dialog/ErrorBox.h"
#include "dialog/Logging.h"
#include "host/AlgoConstants.h"
#include "host/CBusinessDataBase.h"
#include "host/NorvikConstants.h"
#include "host/SolveyBusinessDataInterface.h"
#include "ui_AlgoBatchImportParamSetting.h"
#include "validation/ValidationTexts.h"

namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace ParamId = Algo_Values::AlgoParamId;

namespace {

constexpr error_box::Growth WiderBox = {35, 20};

QString nodeOf(const QString& tradingAccount)
{
    const QString node = CBusinessDataBase::GetInstance()->GetSysNodeIDByAccount(
        {{Norvik_Fields::UserAccount::tradingAccount, tradingAccount}});
    qCDebug(lcValidation) << "get sysnodeid by trading account return:" << node;
    return node;
}

} // namespace

void AlgoBatchImportParamSetting::slotCbxAccountChanged()
{
    const QString tradingAccount = ui->combx_account->currentData(Qt::UserRole).toString();
    ui->btn_ok->setEnabled(true);
    QString message;
    for (QMap<QString, QVariant>& instance : mAllParamVarMapLst) {
        instance[instance_keys::SysNodeId] = nodeOf(tradingAccount);
        instance[Info::TradingAccount] = tradingAccount;
        QVariantList legs = instance.value(ParamId::AlgoSecurityList).toList();
        for (QVariant& leg : legs) {
            leg = legOfAccount(leg.toMap(), tradingAccount, message);
        }
        if (!legs.isEmpty()) {
            instance[ParamId::AlgoSecurityList] = legs;
        }
    }
    if (!message.isEmpty()) {
        error_box::show(message + validation::CheckAndImportAgain, WiderBox);
        ui->btn_ok->setEnabled(false);
    }
}

/// Appends a line to `message` where the account holds nothing on the leg's market.
QVariantMap AlgoBatchImportParamSetting::legOfAccount(QVariantMap leg, const QString& tradingAccount,
                                                      QString& message) const
{
    const QString securityAccount =
        SolveyBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(
            ui->combx_account->GetCurTradingAccount(), leg.value(Info::Exchange).toString());
    if (securityAccount.isEmpty()) {
        message += validation::MarketNotHeld.arg(leg.value(Info::Symbol).toString());
    }
    leg[Info::TradingAccount] = tradingAccount;
    leg[Info::SecurityAccount] = securityAccount;
    return leg;
}
