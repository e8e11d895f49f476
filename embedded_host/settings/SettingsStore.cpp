#include "embedded_host/settings/SettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(lcSettings, "algo.host.settings")

/// An ini file knows texts only; the types of other values stand beside them in this group.
const QString TypesGroup = QStringLiteral("value_types/");

QString pathInFile(const QString& group, const QString& key)
{
    return group.isEmpty() ? key : group + QLatin1Char('/') + key;
}

/// Types that an ini file turns into texts; all others it keeps by itself.
bool losesType(const QVariant& value)
{
    switch (static_cast<QMetaType::Type>(value.userType())) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

QVariant withType(const QVariant& stored, const QByteArray& typeName)
{
    const int type = QMetaType::type(typeName);
    QVariant typed = stored;
    return type != QMetaType::UnknownType && typed.convert(type) ? typed : stored;
}

} // namespace

SettingsStore::SettingsStore(const QString& home) : mHome(home) {}

SettingsStore::~SettingsStore() = default;

QString SettingsStore::pathOf(const QString& file) const
{
    if (mHome.isEmpty()) {
        return QString();
    }
    QString name = QFileInfo(file).fileName();
    if (name.isEmpty()) {
        name = QStringLiteral("settings");
    }
    const QLatin1String ending(".ini");
    return QDir(mHome).filePath(name.endsWith(ending) ? name : name + ending);
}

QSettings& SettingsStore::ini(const QString& file) const
{
    std::unique_ptr<QSettings>& settings = mIniFiles[pathOf(file)];
    if (!settings) {
        settings = std::make_unique<QSettings>(pathOf(file), QSettings::IniFormat);
        settings->setIniCodec("UTF-8");
    }
    return *settings;
}

QVariant SettingsStore::value(const QString& key, const QString& group, const QString& file) const
{
    if (key.isEmpty()) {
        return QVariant();
    }
    const QString path = pathInFile(group, key);
    if (mHome.isEmpty()) {
        return mMemory.value(file).value(path);
    }
    const QSettings& settings = ini(file);
    return withType(settings.value(path), settings.value(TypesGroup + path).toString().toLatin1());
}

void SettingsStore::setValue(const QString& key, const QVariant& value, const QString& group,
                             const QString& file)
{
    if (key.isEmpty()) {
        return;
    }
    const QString path = pathInFile(group, key);
    if (mHome.isEmpty()) {
        mMemory[file].insert(path, value);
        return;
    }
    QSettings& settings = ini(file);
    settings.setValue(path, value);
    if (losesType(value)) {
        settings.setValue(TypesGroup + path, QString::fromLatin1(value.typeName()));
    } else {
        settings.remove(TypesGroup + path);
    }
    settings.sync(); // another process, or the next run after a crash, sees the choice
    if (settings.status() != QSettings::NoError) {
        qCInfo(lcSettings) << "settings cannot be written, they last until the end of this run:"
                           << pathOf(file);
    }
}
