#pragma once

#include <QString>

/// Keys of a cell map: the decimal texts of Qt's item data roles.
namespace cell_roles {

inline const QString Shown = QString::number(Qt::DisplayRole);
inline const QString Value = QString::number(Qt::UserRole);

} // namespace cell_roles
