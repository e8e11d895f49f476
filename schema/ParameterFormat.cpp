// Reads a strategy's parameter format document into the table head and the schema tables.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "host/AlgoConstants.h"
#include "schema/Logging.h"
#include "strategy/Strategy.h"

namespace UiType = Algo_Values::AlgoParamUiType;

namespace {

QVariantList jsonOf(const strategy::Strategy& schema)
{
    QVariantList elements;
    for (const strategy::Element& element : schema.document) {
        elements.append(element.json);
    }
    return elements;
}

} // namespace

QStringList AlgoBatchImportParamSetting::initTableHeadList(const QString& paramFormats, QString& error)
{
    qCDebug(lcSchema) << "###tag-error: " << Q_FUNC_INFO;
    const Outcome<strategy::Strategy> parsed =
        strategy::Strategy::parse(mStrategy.name(), mStrategy.alias(), paramFormats);
    if (!parsed.ok()) {
        qCDebug(lcSchema) << " jsonErr.errorString(): " << parsed.error;
        error = parsed.error;
        mSchema = std::make_shared<const strategy::Strategy>(
            strategy::Strategy::withoutParameters(mStrategy.name(), mStrategy.alias()));
        return QStringList();
    }
    mSchema = std::make_shared<const strategy::Strategy>(parsed.value);
    qCDebug(lcSchema) << " paramFmtLst: " << jsonOf(*mSchema);
    for (const strategy::Element& element : mSchema->document) {
        saveElement(element);
    }
    return mSchema->visibleNames();
}

void AlgoBatchImportParamSetting::saveElement(const strategy::Element& element)
{
    qCDebug(lcSchema) << " varParam: " << element.json;
    if (element.isTable) {
        qCDebug(lcSchema) << " columnParamLst cnt: " << element.parameters.count();
    }
    for (const strategy::Parameter& parameter : element.parameters) {
        if (parameter.entry.isEmpty()) {
            qCDebug(lcSchema) << " tableParamMap: " << parameter.entry;
        } else {
            saveParameter(parameter);
        }
    }
}

/// Files one parameter under its name; a name that the document repeats keeps the last entry in the tables.
void AlgoBatchImportParamSetting::saveParameter(const strategy::Parameter& parameter)
{
    if (parameter.editor == UiType::ComboBox) {
        saveComboxParamValue(mColOptionMap, parameter.entry, parameter.name);
    }
    qCDebug(lcSchema) << (parameter.ofSecurity ? "###tag-column: " : "###tag-params: ")
                      << " paramName: " << parameter.name << " paramId: " << parameter.id;
    mColUiTypeMap[parameter.name] = parameter.editor;
    (parameter.ofSecurity ? mSymbolParamLst : mInsParamLst).append(parameter.name);
    mColParamIdMap[parameter.name] = parameter.id;
    mColParamFmtMap[parameter.name] = parameter.entry;
}

void AlgoBatchImportParamSetting::saveComboxParamValue(QMap<QString, QMap<QString, QString>>& options,
                                                       const QVariantMap& entry, const QString& paramName)
{
    for (const strategy::Option& option : strategy::optionsOf(entry)) {
        qCDebug(lcSchema) << "###tag-params-1: "
                          << " paramName: " << paramName << " optionDisp: " << option.shown
                          << " optionValue: " << option.value;
        options[paramName][option.shown] = option.value;
    }
}
