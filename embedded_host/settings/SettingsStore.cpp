#include "embedded_host/settings/SettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(lcSettings, "algo.host.settings")

/// An ini file knows texts only; the types of other values stand beside them in this group.
const QString TypesGroup = QStringLiteral("value_types/");

/// Folders are dropped, so that no name leads out of the home.
QString iniName(const QString& file)
{
    const QString name = QFileInfo(file).fileName();
    const QLatin1String ending(".ini");
    if (name.isEmpty()) {
        return QStringLiteral("settings.ini");
    }
    return name.endsWith(ending) ? name : name + ending;
}

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
    case QMetaType::QStringList: // of one text, or none
        return true;
    default:
        return false;
    }
}

QVariant withType(const QVariant& stored, const QByteArray& typeName)
{
    const int type = QMetaType::type(typeName);
    if (type == QMetaType::QStringList && !stored.isValid()) {
        return QStringList(); // an ini file keeps an empty list as nothing
    }
    QVariant typed = stored;
    return type != QMetaType::UnknownType && typed.convert(type) ? typed : stored;
}

} // namespace

SettingsStore::SettingsStore(const QString& home) : mHome(home) {}

SettingsStore::~SettingsStore() = default;

QString SettingsStore::pathOf(const QString& file) const
{
    return mHome.isEmpty() ? QString() : QDir(mHome).filePath(iniName(file));
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
        return mMemory.value(iniName(file)).value(path);
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
        mMemory[iniName(file)].insert(path, value);
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
