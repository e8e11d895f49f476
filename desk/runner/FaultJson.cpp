#include "desk/runner/FaultJson.h"

#include "table/FaultCatalogue.h"

#include <QJsonObject>

namespace runner {

QJsonArray toJson(const table::Faults& faults)
{
    QJsonArray array;
    for (const table::Fault& fault : faults) {
        array.append(QJsonObject{{QStringLiteral("rule"), fault.rule},
                                 {QStringLiteral("severity"), table::nameOf(fault.severity)},
                                 {QStringLiteral("line"), fault.line},
                                 {QStringLiteral("row"), fault.row},
                                 {QStringLiteral("column"), fault.column},
                                 {QStringLiteral("cell"), fault.cell},
                                 {QStringLiteral("arguments"), QJsonArray::fromStringList(fault.arguments)},
                                 {QStringLiteral("text"), table::sentence(fault)}});
    }
    return array;
}

} // namespace runner
