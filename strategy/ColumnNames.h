#pragma once

#include <QString>

/// Columns of the parameter table that are the import's own: the host defines no constant for them. (Those
/// that it does define stand in host/AlgoConstants.h.)
namespace columns {

inline const QString SecurityName = QStringLiteral("证券名称");
inline const QString CreateAndStart = QStringLiteral("创建后是否立即启动");
inline const QString SealingAmount = QStringLiteral("封单金额");
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
