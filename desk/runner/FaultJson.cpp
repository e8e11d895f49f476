#include "desk/runner/FaultJson.h"

#include "table/FaultCatalogue.h"
#include "words/Language.h"

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
                                 {QStringLiteral("text"), words::sentence(fault)}});
    }
    return array;
}

QJsonObject countsOf(const FileReport& report, int imported)
{
    const int skipped = report.lostOrders().size();
    return {{QStringLiteral("orders"), report.orderCount + skipped},
            {QStringLiteral("imported"), imported},
            {QStringLiteral("refused"), qMax(0, report.orderCount - imported)},
            {QStringLiteral("skipped"), skipped}};
}

} // namespace runner
