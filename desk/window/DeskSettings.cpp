#include "desk/window/DeskSettings.h"

#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/settings/SettingsStore.h"

namespace {

const QString File = QStringLiteral("desk");
const QString Group = QStringLiteral("window");

} // namespace

QByteArray DeskSettings::bytes(const char* key) const
{
    return mHost.settings().value(QString::fromLatin1(key), Group, File).toByteArray();
}

QString DeskSettings::text(const char* key) const
{
    return mHost.settings().value(QString::fromLatin1(key), Group, File).toString();
}

void DeskSettings::save(const char* key, const QByteArray& value)
{
    mHost.settings().setValue(QString::fromLatin1(key), value, Group, File);
}

void DeskSettings::save(const char* key, const QString& value)
{
    mHost.settings().setValue(QString::fromLatin1(key), value, Group, File);
}
