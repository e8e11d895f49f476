// The dialog's own names of what translates and files cells, on its own tables.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "schema/CellTranslation.h"
#include "schema/RecordBuilding.h"
#include "strategy/Traits.h"
#include "table/FaultCatalogue.h"

QString AlgoBatchImportParamSetting::transColData2ColDataName(const QString& symbol, const QString& colName,
                                                              QString& colData, QString& error)
{
    strategy::Column column;
    column.title = colName;
    column.editor = mColUiTypeMap.value(colName);
    column.options = mColOptionMap.value(colName);
    column.accepted = mColValueNameMap.value(colName);
    column.wholeNumber = mNumericColNameLst.contains(colName);
    const schema::Translator translator = {strategy::traitsOf(mStrategy.name()).has(strategy::Lock),
                                           mDateTimeFormat};
    const schema::Translation translation = translator.translated(column, symbol, colData);
    colData = translation.value;
    if (translation.fault) {
        error = table::sentence(*translation.fault);
    }
    return translation.shown;
}

QString AlgoBatchImportParamSetting::getDateTime(QString& dt)
{
    const QString sent = schema::sentDateTimeOf(dt, mDateTimeFormat);
    if (sent.isEmpty()) {
        return schema::TranslationError;
    }
    dt = sent;
    return sent;
}

QString
AlgoBatchImportParamSetting::transNotSupportParamsForNameAndValue(const QMap<QString, QString>& options) const
{
    return schema::acceptedOptions(options);
}

QString
AlgoBatchImportParamSetting::transNotSupportParamsForValueAndName(QMap<QString, QString>& values) const
{
    return schema::acceptedValues(values);
}

void AlgoBatchImportParamSetting::transRecordMap(RecordData& record, int column, QString& shownText,
                                                 QString& value)
{
    schema::writeCell(record, column, shownText, value);
}

/// A listed column without an identifier gets the empty one.
void AlgoBatchImportParamSetting::transColData2ParamMap(const QString& colName, const QString& value,
                                                        QMap<QString, QVariant>& securityEntry,
                                                        QMap<QString, QVariant>& paramMap)
{
    const bool listed = mSymbolParamLst.contains(colName) || mInsParamLst.contains(colName);
    const QString id = listed ? mColParamIdMap[colName].toString() : QString();
    schema::fileValue({mSymbolParamLst, mInsParamLst}, {colName, id}, value, securityEntry, paramMap);
}
