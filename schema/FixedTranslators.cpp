// Small vocabularies of the class's interface. "-1" stands for a text that is not recognised.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "host/CDataBase.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/SolveyConstants.h"
#include "schema/CreateStatus.h"
#include "schema/Logging.h"
#include "strategy/Traits.h"
#include "ui_AlgoBatchImportParamSetting.h"

namespace {

using schema::UnknownText;

const QString Yes = QStringLiteral("是");
const QString No = QStringLiteral("否");

} // namespace

QString AlgoBatchImportParamSetting::getCreateIfStartName(const QString& ifStart) const
{
    return schema::shownCreateStatus(ifStart);
}

QString AlgoBatchImportParamSetting::getStyleName(const QString& style, QString& styleCode) const
{
    for (const strategy::Style& known : strategy::namedStyles()) {
        if (style.toUpper() == known.value.toUpper()) {
            styleCode = known.code;
            return known.shown;
        }
    }
    qCDebug(lcSchema) << "style is other"
                      << " style: " << style;
    return UnknownText;
}

QString AlgoBatchImportParamSetting::getEntrustPropertyName(QString property) const
{
    static const QMap<QString, QString> names = {{QStringLiteral("0"), QStringLiteral("普通交易")},
                                                 {QStringLiteral("9"), QStringLiteral("信用交易")},
                                                 {QStringLiteral("6"), QStringLiteral("融资买入")}};
    const auto found = names.constFind(property);
    if (found != names.constEnd()) {
        return *found;
    }
    qCDebug(lcSchema) << "property is other"
                      << " property: " << property;
    return UnknownText;
}

QString AlgoBatchImportParamSetting::getEntrustPosition(const QString& num) const
{
    static const QStringList levels = {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"),
                                       QStringLiteral("4"), QStringLiteral("5")};
    if (levels.contains(num)) {
        return QStringLiteral("对手盘%1档").arg(num);
    }
    qCDebug(lcSchema) << "num is other"
                      << " num: " << num;
    return UnknownText;
}

QString AlgoBatchImportParamSetting::getUpNoSellAndDownNoBuy(const QString& flag) const
{
    if (flag == QLatin1String("0")) {
        return No;
    }
    if (flag == QLatin1String("1")) {
        return Yes;
    }
    qCDebug(lcSchema) << "strUpNoSellAndDownNoBuy is other"
                      << " strUpNoSellAndDownNoBuy: " << flag;
    return UnknownText;
}

QString AlgoBatchImportParamSetting::getExchangeName(const QString& exchange) const
{
    return CDataBase::GetInstance()->GetStaticCfgValue(SolveyConstants::MarketNameSection, exchange);
}

QString AlgoBatchImportParamSetting::getSecurityAccount(const QString&, const QString& exchange) const
{
    return SolveyBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(
        ui->combx_account->GetCurTradingAccount(), exchange);
}
