// Files a translated cell: shown text and value into the row's record, the value into the row's parameter
// maps.

#include "amounts/LotRounding.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/CellRoles.h"
#include "dialog/Logging.h"
#include "host/AlgoConstants.h"
#include "host/SolveyBusinessDataInterface.h"
#include "schema/TolerantTruncation.h"

namespace Info = Algo_Fields::AlgoInstContentInfo;

namespace {

/// The file counts units; the host counts in the security's displayed quantity.
QString displayedQuantity(const QString& units, const QString& symbol)
{
    const int factor =
        amounts::guardedDivisor(SolveyBusinessDataInterface::GetDispFactorBySymbol(symbol), symbol);
    const qint32 quantity = schema::tolerantTruncation(units.toDouble());
    return QString::number(amounts::quotient(quantity, factor));
}

} // namespace

void AlgoBatchImportParamSetting::transRecordMap(RecordData& record, int column, QString& shownText,
                                                 QString& value)
{
    QMap<QString, QVariant>& cell = record[column];
    cell[cell_roles::Shown] = shownText;
    cell[cell_roles::Value] = value;
}

void AlgoBatchImportParamSetting::transColData2ParamMap(const QString& colName, const QString& value,
                                                        QMap<QString, QVariant>& securityEntry,
                                                        QMap<QString, QVariant>& paramMap)
{
    if (mSymbolParamLst.contains(colName)) {
        const QString id = mColParamIdMap[colName].toString();
        securityEntry[id] = value;
        if (colName == Info::Quantity) {
            securityEntry[id] = displayedQuantity(value, securityEntry.value(Info::Symbol).toString());
        }
    } else {
        qCDebug(lcSchema) << " colName: " << colName << " userRole: " << value
                          << " mSymbolParamLst: " << mSymbolParamLst;
    }
    if (!mInsParamLst.contains(colName)) {
        qCDebug(lcSchema) << " colName: " << colName << " userRole: " << value
                          << " mInsParamLst: " << mInsParamLst;
        return;
    }
    paramMap[mColParamIdMap[colName].toString()] = value;
}
