#include "desk/models/ParametersModel.h"

#include "host/AlgoConstants.h"

namespace {

const QString& LegsKey = Algo_Values::AlgoParamId::AlgoSecurityList;

void addNew(QStringList& keys, const QStringList& more)
{
    for (const QString& key : more) {
        if (key != LegsKey && !keys.contains(key)) {
            keys.append(key);
        }
    }
}

QStringList keysOf(const QList<ParameterMap>& maps)
{
    // The first things that one looks for, whatever the alphabet says.
    const QStringList first{Algo_Fields::AlgoInstContentInfo::Symbol,
                            Algo_Fields::AlgoInstContentInfo::Exchange, Algo_Values::AlgoParamId::traderOrder,
                            Algo_Fields::AlgoInstContentInfo::Quantity,
                            Algo_Fields::AlgoInstContentInfo::Quantity_Amount};
    QStringList present;
    for (const ParameterMap& map : maps) {
        for (const QVariant& leg : map.value(LegsKey).toList()) {
            addNew(present, leg.toMap().keys());
        }
        addNew(present, map.keys());
    }
    QStringList keys;
    for (const QString& key : first) {
        if (present.removeOne(key)) {
            keys.append(key);
        }
    }
    return keys + present;
}

} // namespace

ParametersModel::ParametersModel(QObject* parent) : RecordModel({}, parent) {}

void ParametersModel::setMaps(const QList<ParameterMap>& maps)
{
    setRecords({});
    mKeys = keysOf(maps);
    QList<Column> columns;
    for (const QString& key : qAsConst(mKeys)) {
        columns.append({key});
    }
    beginResetModel();
    setColumns(columns);
    endResetModel();
    setRecords(maps);
}

ListModel::Cell ParametersModel::cellOf(const ParameterMap& map, int column) const
{
    const QString& key = mKeys.at(column);
    QStringList ofLegs;
    for (const QVariant& leg : map.value(LegsKey).toList()) {
        const QVariantMap values = leg.toMap();
        if (values.contains(key)) {
            ofLegs.append(values.value(key).toString());
        }
    }
    return {ofLegs.isEmpty() ? map.value(key).toString() : ofLegs.join(QStringLiteral(" / "))};
}
