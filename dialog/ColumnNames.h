#pragma once

#include "host/ImportTable.h"
#include "host/SolveyConstants.h"

#include <QString>

/// Columns of the parameter table that are the dialog's own: the host defines no constant for them. (Those
/// that it does define stand in host/AlgoConstants.h and host/ImportTable.h.)
namespace columns {

inline const QString Style = QStringLiteral("风格参数");
inline const QString Code = QStringLiteral("代码");
inline const QString Limit = QStringLiteral("限价");
inline const QString OrderDirection = QStringLiteral("委托方向");

} // namespace columns

/// Keys of a parameter map that are no column's identifier.
namespace instance_keys {

inline const QString SysNodeId = QStringLiteral("sysnodeid");
inline const QString BatchCreate = QStringLiteral("BatchCreate");
/// The sealing amount in units of ten thousand.
inline const QString SealingAmountInTenThousands = QStringLiteral("封单金额1");

} // namespace instance_keys

using SolveyConstants::MarketNameSection;
