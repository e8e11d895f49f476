#pragma once

#include "dialog/AlgoBatchImportParamSetting.h"
#include "embedded_host/RecordingPrompts.h"

#include <QJsonArray>
#include <QJsonObject>

/// What the dialog shows, as JSON.
namespace runner {

/// Keys columns, hiddenColumns, records, parameterMaps, expected and okEnabled.
QJsonObject dialogToJson(AlgoBatchImportParamSetting& dialog);
QJsonArray boxesToJson(const QList<ShownBox>& boxes);

} // namespace runner
