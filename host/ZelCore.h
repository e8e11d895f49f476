#pragma once

#include "host/HostApi.h"

#include <QSettings>
#include <QString>
#include <QVariant>

class IZelSkin;

/// The user's settings and the skin. GUI thread only; every call returns at once.
class ALGO_HOST_API ZelCore {
public:
    /// Never null, never owned by the caller.
    static ZelCore* instance();

    /// A stored value, with the type that it was saved with; an invalid variant when it was never saved. An
    /// empty group and file are the default store. The dialog asks for the user's scope; a host that knows
    /// one user may take both scopes for the same store.
    QVariant settings(const QString& key, const QString& group, const QString& file, QSettings::Scope scope);
    void saveSetting(const QString& key, const QVariant& value, const QString& group, const QString& file,
                     QSettings::Scope scope);
    /// Gives the view the style sheet of that path now, before the call returns, and whenever the skin
    /// changes, until the view is destroyed. A host without a skin, or without that sheet, leaves the view as
    /// it is. The dialog calls it from its constructor.
    void addStyle2View(IZelSkin* view, const QString& cssPath);
};
