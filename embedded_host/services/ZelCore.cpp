#include "host/ZelCore.h"

#include "embedded_host/services/Record.h"
#include "embedded_host/settings/SettingsStore.h"
#include "embedded_host/skin/SkinService.h"

using services::record;

// This host knows one user, so that both scopes are the same store.

ZelCore* ZelCore::instance()
{
    static ZelCore core;
    return &core;
}

QVariant ZelCore::settings(const QString& key, const QString& group, const QString& file,
                           QSettings::Scope scope)
{
    record("ZelCore::settings", key, group, file, scope);
    return EmbeddedHost::current().settings().value(key, group, file);
}

void ZelCore::saveSetting(const QString& key, const QVariant& value, const QString& group,
                          const QString& file, QSettings::Scope scope)
{
    record("ZelCore::saveSetting", key, value, group, file, scope);
    EmbeddedHost::current().settings().setValue(key, value, group, file);
}

void ZelCore::addStyle2View(IZelSkin* view, const QString& cssPath)
{
    record("ZelCore::addStyle2View", cssPath);
    EmbeddedHost::current().skins().addView(view, cssPath);
}
