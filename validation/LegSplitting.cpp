#include "validation/LegSplitting.h"

#include "host/AlgoConstants.h"

namespace validation {

namespace {

namespace ParamId = Algo_Values::AlgoParamId;

QStringList partsOf(const QVariantMap& imported, const QString& field)
{
    return imported.value(field).toString().split(QLatin1Char('/'));
}

const QMap<QString, QStringList>& propertiesOfDirection()
{
    namespace Property = Algo_Values::entrustProp;
    static const QMap<QString, QStringList> table = {
        {QStringLiteral("Buy"), {Property::normalTrade, Property::financingBuy, Property::creditTrade}},
        {QStringLiteral("Sell"),
         {Property::sellBondNormal, Property::sellBond_2, Property::normalTrade, Property::creditTrade}}};
    return table;
}

/// From the highest index down, so that the lower ones stay valid.
void removeEach(const QList<int>& indexes, QList<QMap<QString, QVariant>>& instances, RecordDataList& records)
{
    for (int k = indexes.size() - 1; k >= 0; --k) {
        const int index = indexes.at(k);
        if (index < records.size()) {
            records.removeAt(index);
        }
        instances.removeAt(index);
    }
}

} // namespace

const QStringList& pairedFields()
{
    static const QStringList fields = {ParamId::entrustProp, ParamId::traderOrder,
                                       Algo_Fields::AlgoInstContentInfo::PriceLimits};
    return fields;
}

QString unpairedField(const QVariantMap& imported)
{
    for (const QString& field : pairedFields()) {
        if (partsOf(imported, field).size() != LegCount) {
            return field;
        }
    }
    return QString();
}

QVariantList splitLegs(const QVariantMap& imported)
{
    if (!unpairedField(imported).isEmpty()) {
        return {};
    }
    QVariantList legs;
    for (int k = 0; k < LegCount; ++k) {
        QVariantMap leg = imported;
        for (const QString& field : pairedFields()) {
            leg[field] = partsOf(imported, field).at(k);
        }
        legs.append(leg);
    }
    return legs;
}

QList<int> splitInstances(QList<QMap<QString, QVariant>>& instances, RecordDataList& records)
{
    QList<int> failed;
    for (int i = 0; i < instances.size(); ++i) {
        QMap<QString, QVariant>& instance = instances[i];
        const QVariantList imported = instance.value(ParamId::AlgoSecurityList).toList();
        if (imported.size() != 1) {
            continue;
        }
        const QVariantList legs = splitLegs(imported.first().toMap());
        if (legs.isEmpty()) {
            failed.append(i);
        } else {
            instance[ParamId::AlgoSecurityList] = legs;
        }
    }
    removeEach(failed, instances, records);
    return failed;
}

LegFault faultOfLeg(const QString& direction, const QString& entrustProp)
{
    const auto suitable = propertiesOfDirection().constFind(direction);
    if (suitable == propertiesOfDirection().constEnd()) {
        return LegFault::Direction;
    }
    return suitable->contains(entrustProp) ? LegFault::None : LegFault::Property;
}

} // namespace validation
