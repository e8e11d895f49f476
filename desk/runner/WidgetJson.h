#pragma once

#include "dialog/AlgoBatchImportParamSetting.h"
#include "embedded_host/RecordingPrompts.h"

#include <QJsonArray>
#include <QJsonObject>

/// What the dialog shows, as JSON.
namespace runner {

/// A part of the dialog by its object name, which the dialog promises.
template <typename Widget> Widget& child(const AlgoBatchImportParamSetting& dialog, const char* name)
{
    return *dialog.findChild<Widget*>(QString::fromLatin1(name));
}

/// Keys columns, hiddenColumns, records, parameterMaps, expected and okEnabled.
QJsonObject dialogToJson(AlgoBatchImportParamSetting& dialog);
QJsonArray boxesToJson(const QList<ShownBox>& boxes);

} // namespace runner
