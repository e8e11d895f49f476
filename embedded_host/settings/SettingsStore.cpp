#include "embedded_host/settings/SettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(lcSettings, "algo.host.settings")

constexpr int FirstPatienceMs = 2000;

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

void store(QSettings& settings, const QString& path, const QVariant& value)
{
    settings.setValue(path, value);
    if (losesType(value)) {
        settings.setValue(TypesGroup + path, QString::fromLatin1(value.typeName()));
    } else {
        settings.remove(TypesGroup + path);
    }
}

} // namespace

SettingsStore::SettingsStore(const QString& home) : mHome(home), mPatienceMs(FirstPatienceMs) {}

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
    const Values unsaved = mMemory.value(iniName(file));
    if (mHome.isEmpty() || unsaved.contains(path)) {
        return unsaved.value(path);
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
    Values& unsaved = mMemory[iniName(file)];
    unsaved.insert(pathInFile(group, key), value);
    if (mHome.isEmpty()) {
        return;
    }
    if (save(file, unsaved)) {
        unsaved.clear();
    } else {
        qCInfo(lcSettings) << "settings cannot be written, they last until the end of this run:"
                           << pathOf(file);
    }
}

// QSettings waits for its lock file for ever, even for that of a program that was stopped while it held it.
// So it gets a value only when that lock is free, and only one of us at a time looks whether it is.
bool SettingsStore::save(const QString& file, const Values& values)
{
    const QString path = pathOf(file);
    QDir().mkpath(mHome);
    QLockFile ours(path + QStringLiteral(".writer.lock"));
    QLockFile its(path + QStringLiteral(".lock"));
    if (!ours.tryLock(mPatienceMs) || !its.tryLock(mPatienceMs)) {
        mPatienceMs = 0; // whoever holds it for so long will hold it longer
        return false;
    }
    its.unlock();
    QSettings& settings = ini(file);
    for (auto value = values.constBegin(); value != values.constEnd(); ++value) {
        store(settings, value.key(), value.value());
    }
    settings.sync(); // another process, or the next run after a crash, sees the choice
    return settings.status() == QSettings::NoError;
}
