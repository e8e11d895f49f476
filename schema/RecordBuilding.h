#pragma once

#include "host/RecordDataList.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// Files a translated cell: shown text and value into the row's record, the value into the row's parameter
/// maps.
namespace schema {

/// Overwrites both texts of the cell and leaves its other keys.
void writeCell(RecordData& record, int column, const QString& shown, const QString& value);

/// Names of the parameters that a security and an instance have. A name may stand in both lists.
struct ParameterLists {
    const QStringList& ofSecurity;
    const QStringList& ofInstance;
};

struct ParameterName {
    const QString& title;
    const QString& id; ///< under which the value travels
};

/// Into the map of the security, the instance, both or neither, by the lists. A quantity of the security is
/// counted in what the host displays.
void fileValue(const ParameterLists& lists, const ParameterName& name, const QString& value,
               QMap<QString, QVariant>& securityEntry, QMap<QString, QVariant>& paramMap);

} // namespace schema
