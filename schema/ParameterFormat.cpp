// Reads a strategy's parameter format document into the table head and the schema tables.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/Logging.h"
#include "host/AlgoConstants.h"

#include <QJsonDocument>

namespace Field = Algo_Fields::AlgoParamFields;
namespace UiType = Algo_Values::AlgoParamUiType;

namespace {

/// true in any letter case, as a JSON boolean or as text; an absent attribute counts as true.
bool isShown(const QVariantMap& entry)
{
    const QString yes = QStringLiteral("true");
    return entry.value(Field::visible, yes).toString().toUpper() == yes.toUpper();
}

} // namespace

QStringList AlgoBatchImportParamSetting::initTableHeadList(const QString& paramFormats, QString& error)
{
    qCDebug(lcSchema) << "###tag-error: " << Q_FUNC_INFO;
    QJsonParseError jsonError;
    const QJsonDocument document = QJsonDocument::fromJson(paramFormats.toUtf8(), &jsonError);
    if (jsonError.error != QJsonParseError::NoError) {
        qCDebug(lcSchema) << " jsonErr.errorString(): " << jsonError.errorString();
        error = jsonError.errorString();
        return QStringList();
    }
    const QVariantList parameters = document.toVariant().toList();
    qCDebug(lcSchema) << " paramFmtLst: " << parameters;

    QStringList tableHead;
    for (const QVariant& parameter : parameters) {
        qCDebug(lcSchema) << " varParam: " << parameter;
        const QVariantMap entry = parameter.toMap();
        if (entry.isEmpty()) {
            continue;
        }
        if (entry.value(Field::ui).toString() != UiType::Table) {
            saveParameter(entry, mInsParamLst, tableHead);
            continue;
        }
        const QVariantList tableColumns = entry.value(Field::columns).toList();
        qCDebug(lcSchema) << " columnParamLst cnt: " << tableColumns.count();
        for (const QVariant& column : tableColumns) {
            const QVariantMap columnEntry = column.toMap();
            if (columnEntry.isEmpty()) {
                qCDebug(lcSchema) << " tableParamMap: " << columnEntry;
                continue;
            }
            saveParameter(columnEntry, mSymbolParamLst, tableHead);
        }
    }
    return tableHead;
}

/// Files one parameter under its name; a name that the document repeats keeps the last entry in the tables.
void AlgoBatchImportParamSetting::saveParameter(const QVariantMap& entry, QStringList& names,
                                                QStringList& tableHead)
{
    const QString name = entry.value(Field::paramName).toString();
    const QString id = entry.value(Field::paramId).toString();
    const QString uiType = entry.value(Field::ui).toString();
    if (uiType == UiType::ComboBox) {
        saveComboxParamValue(mColOptionMap, entry, name);
    }
    qCDebug(lcSchema) << (&names == &mSymbolParamLst ? "###tag-column: " : "###tag-params: ")
                      << " paramName: " << name << " paramId: " << id;
    if (isShown(entry)) {
        tableHead.append(name);
    }
    mColUiTypeMap[name] = uiType;
    names.append(name);
    mColParamIdMap[name] = id;
    mColParamFmtMap[name] = entry;
}

void AlgoBatchImportParamSetting::saveComboxParamValue(QMap<QString, QMap<QString, QString>>& options,
                                                       const QVariantMap& entry, const QString& paramName)
{
    const QVariantList optionList = entry.value(Field::options).toList();
    for (const QVariant& option : optionList) {
        const QVariantMap optionMap = option.toMap();
        const QString display = optionMap.value(Field::display).toString();
        const QString value = optionMap.value(Field::value).toString();
        qCDebug(lcSchema) << "###tag-params-1: "
                          << " paramName: " << paramName << " optionDisp: " << display
                          << " optionValue: " << value;
        options[paramName][display] = value;
    }
}
