#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

/// One row of the parameter table: column index -> cell map. A cell map holds the shown text under "0" (Qt's
/// display role) and the value text under "256" (Qt's user role).
using RecordData = QMap<int, QMap<QString, QVariant>>;

/// The table's contents, one record a row, in table order.
using RecordDataList = QList<RecordData>;
