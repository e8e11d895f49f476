// The dialog's own name of what splits the rows of a lock strategy.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "validation/LegSplitting.h"
#include "validation/Logging.h"

void AlgoBatchImportParamSetting::processParams4AILOCK(RecordDataList& records, QMap<int, QString>& errors)
{
    const QString error = table::sentence(table::fault(table::rule::BadPairedFields));
    for (const int index : validation::splitInstances(mAllParamVarMapLst, records)) {
        errors[index] = error;
    }
    qCDebug(lcValidation) << Q_FUNC_INFO << mAllParamVarMapLst;
}
