#pragma once

#include "host/AlgoConstants.h"

#include <QMap>
#include <QString>

/// Titles that an import file may use in place of a column's own, for example 方向 for 交易方向. The header
/// matching reads them in both directions.
inline QMap<QString, QString> headAliases()
{
    namespace Info = Algo_Fields::AlgoInstContentInfo;
    return {{QStringLiteral("方向"), Algo_Values::AlgoParamId::traderOrder},
            {QStringLiteral("数量"), Info::Quantity},
            {QStringLiteral("限价"), Info::PriceLimits},
            {QStringLiteral("代码"), Info::Symbol},
            {QStringLiteral("扫盘比例(%)"), QStringLiteral("扫盘比例（%）")},
            {QStringLiteral("备注"), QStringLiteral("实例备注")},
            {QStringLiteral("名称"), QStringLiteral("证券名称")}};
}
