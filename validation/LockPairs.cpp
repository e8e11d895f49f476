// Lock strategies trade one security on two legs: a row's direction, entrust property and limit price each
// hold two values, the first leg's before the slash.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/Logging.h"
#include "host/AlgoConstants.h"
#include "ui_AlgoBatchImportParamSetting.h"
#include "validation/ValidationTexts.h"

namespace ParamId = Algo_Values::AlgoParamId;

namespace {

constexpr int LegCount = 2;

/// Fields of a leg that a row writes once for both.
const QStringList& pairedFields()
{
    static const QStringList fields = {ParamId::entrustProp, ParamId::traderOrder,
                                       Algo_Fields::AlgoInstContentInfo::PriceLimits};
    return fields;
}

/// Two legs out of a row's one; empty where a paired field does not hold exactly two parts.
QVariantList splitLegs(const QVariantMap& imported)
{
    QVariantList legs;
    for (int k = 0; k < LegCount; ++k) {
        QVariantMap leg = imported;
        for (const QString& field : pairedFields()) {
            const QStringList parts = imported.value(field).toString().split(QLatin1Char('/'));
            if (parts.size() != LegCount) {
                return {};
            }
            leg[field] = parts.at(k);
        }
        legs.append(leg);
    }
    return legs;
}

/// Entrust properties that suit a leg's direction.
const QMap<QString, QStringList>& propertiesOfDirection()
{
    namespace Property = Algo_Values::entrustProp;
    static const QMap<QString, QStringList> table = {
        {QStringLiteral("Buy"), {Property::normalTrade, Property::financingBuy, Property::creditTrade}},
        {QStringLiteral("Sell"),
         {Property::sellBondNormal, Property::sellBond_2, Property::normalTrade, Property::creditTrade}}};
    return table;
}

QString legDirectionFault(int row, const QVariantMap& leg)
{
    const auto suitable = propertiesOfDirection().constFind(leg.value(ParamId::traderOrder).toString());
    if (suitable == propertiesOfDirection().constEnd()) {
        qCDebug(lcValidation) << Q_FUNC_INFO << leg;
        return validation::BadDirection.arg(row);
    }
    const QString entrustProp = leg.value(ParamId::entrustProp).toString();
    return suitable->contains(entrustProp) ? QString() : validation::LegDirectionFault.arg(row);
}

} // namespace

void AlgoBatchImportParamSetting::processParams4AILOCK(RecordDataList& records, QMap<int, QString>& errors)
{
    QList<int> failed;
    for (int i = 0; i < mAllParamVarMapLst.size(); ++i) {
        QMap<QString, QVariant>& instance = mAllParamVarMapLst[i];
        const QVariantList imported = instance.value(ParamId::AlgoSecurityList).toList();
        if (imported.size() != 1) {
            continue;
        }
        const QVariantList legs = splitLegs(imported.first().toMap());
        if (legs.isEmpty()) {
            errors[i] = validation::BadPairedFields;
            failed.append(i);
            continue;
        }
        instance[ParamId::AlgoSecurityList] = legs;
    }
    // From the highest index down, so that the lower ones stay valid.
    for (int k = failed.size() - 1; k >= 0; --k) {
        const int index = failed.at(k);
        if (index < records.size()) {
            records.removeAt(index);
        }
        mAllParamVarMapLst.removeAt(index);
    }
    qCDebug(lcValidation) << Q_FUNC_INFO << mAllParamVarMapLst;
}

QString AlgoBatchImportParamSetting::checkAILOCK()
{
    if (mAllParamVarMapLst.isEmpty()) {
        qCDebug(lcValidation) << Q_FUNC_INFO << mAllParamVarMapLst;
        return validation::NoData;
    }
    const QString tradingAccount = ui->combx_account->GetCurTradingAccount();
    if (tradingAccount.isEmpty()) {
        qCDebug(lcValidation) << Q_FUNC_INFO << ui->combx_account->currentText()
                              << ui->combx_account->currentData();
        return validation::NoAccount;
    }
    QString result;
    int row = 0;
    for (const QMap<QString, QVariant>& instance : qAsConst(mAllParamVarMapLst)) {
        ++row;
        const QVariantList legs = instance.value(ParamId::AlgoSecurityList).toList();
        if (legs.size() != LegCount) {
            result += validation::BadLegCount.arg(row);
        }
        for (const QVariant& leg : legs) {
            result += checkLeg(row, leg.toMap(), tradingAccount);
        }
    }
    return result;
}

QString AlgoBatchImportParamSetting::checkLeg(int row, const QVariantMap& leg,
                                              const QString& tradingAccount) const
{
    const QString entrustProp = leg.value(ParamId::entrustProp).toString();
    return checkEntrustProp(row, entrustProp, tradingAccount) + legDirectionFault(row, leg);
}
