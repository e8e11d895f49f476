#include "schema/RecordBuilding.h"

#include "amounts/WholeNumbers.h"
#include "host/AlgoConstants.h"
#include "host/SolveyBusinessDataInterface.h"
#include "schema/Logging.h"
#include "strategy/CellRoles.h"

namespace schema {

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;

/// The file counts units; the host counts in the security's displayed quantity.
QString displayedQuantity(const QString& units, const QString& symbol)
{
    const int factor =
        amounts::guardedDivisor(SolveyBusinessDataInterface::GetDispFactorBySymbol(symbol), symbol);
    const qint32 quantity = amounts::tolerantTruncation(units.toDouble());
    return QString::number(amounts::quotient(quantity, factor));
}

} // namespace

void writeCell(RecordData& record, int column, const QString& shown, const QString& value)
{
    QMap<QString, QVariant>& cell = record[column];
    cell[cell_roles::Shown] = shown;
    cell[cell_roles::Value] = value;
}

void fileValue(const ParameterLists& lists, const ParameterName& name, const QString& value,
               QMap<QString, QVariant>& securityEntry, QMap<QString, QVariant>& paramMap)
{
    if (lists.ofSecurity.contains(name.title)) {
        securityEntry[name.id] = value;
        if (name.title == Info::Quantity) {
            securityEntry[name.id] = displayedQuantity(value, securityEntry.value(Info::Symbol).toString());
        }
    } else {
        qCDebug(lcSchema) << " colName: " << name.title << " userRole: " << value
                          << " mSymbolParamLst: " << lists.ofSecurity;
    }
    if (!lists.ofInstance.contains(name.title)) {
        qCDebug(lcSchema) << " colName: " << name.title << " userRole: " << value
                          << " mInsParamLst: " << lists.ofInstance;
        return;
    }
    paramMap[name.id] = value;
}

} // namespace schema
