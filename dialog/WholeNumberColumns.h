#pragma once

#include "host/AlgoConstants.h"

#include <QString>
#include <QStringList>

/// Columns whose cells the import cuts off behind the point; a text that is no number is 0 there.
inline QStringList wholeNumberColumns()
{
    return {QStringLiteral("数量"),       Algo_Fields::AlgoInstContentInfo::Quantity,
            QStringLiteral("单笔最大"),   QStringLiteral("单笔最小"),
            QStringLiteral("单笔最小量"), QStringLiteral("单笔最大委托数量"),
            QStringLiteral("起始成本"),   Algo_Fields::AlgoInstContentInfo::minAmout,
            QStringLiteral("最差滑点"),   Algo_Values::AlgoParamId::SellBalance};
}
