#include "desk/window/ParameterTable.h"

#include "host/AlgoConstants.h"

namespace parameter_table {

namespace {

const QString& LegsKey = Algo_Values::AlgoParamId::AlgoSecurityList;

void addNew(QStringList& columns, const QStringList& keys)
{
    for (const QString& key : keys) {
        if (key != LegsKey && !columns.contains(key)) {
            columns.append(key);
        }
    }
}

QString cellOf(const QMap<QString, QVariant>& map, const QString& column)
{
    QStringList ofLegs;
    for (const QVariant& leg : map.value(LegsKey).toList()) {
        const QVariantMap values = leg.toMap();
        if (values.contains(column)) {
            ofLegs.append(values.value(column).toString());
        }
    }
    return ofLegs.isEmpty() ? map.value(column).toString() : ofLegs.join(QStringLiteral(" / "));
}

} // namespace

QStringList columnsOf(const QList<QMap<QString, QVariant>>& maps)
{
    // The first things that one looks for, whatever the alphabet says.
    const QStringList first{Algo_Fields::AlgoInstContentInfo::Symbol,
                            Algo_Fields::AlgoInstContentInfo::Exchange, Algo_Values::AlgoParamId::traderOrder,
                            Algo_Fields::AlgoInstContentInfo::Quantity,
                            Algo_Fields::AlgoInstContentInfo::Quantity_Amount};
    QStringList present;
    for (const QMap<QString, QVariant>& map : maps) {
        for (const QVariant& leg : map.value(LegsKey).toList()) {
            addNew(present, leg.toMap().keys());
        }
        addNew(present, map.keys());
    }
    QStringList columns;
    for (const QString& column : first) {
        if (present.removeOne(column)) {
            columns.append(column);
        }
    }
    return columns + present;
}

QList<QStringList> rowsOf(const QList<QMap<QString, QVariant>>& maps, const QStringList& columns)
{
    QList<QStringList> rows;
    rows.reserve(maps.size());
    for (const QMap<QString, QVariant>& map : maps) {
        QStringList row;
        row.reserve(columns.size());
        for (const QString& column : columns) {
            row.append(cellOf(map, column));
        }
        rows.append(row);
    }
    return rows;
}

} // namespace parameter_table
