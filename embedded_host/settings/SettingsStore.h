#pragma once

#include <QHash>
#include <QSettings>
#include <QString>
#include <QVariant>

#include <map>
#include <memory>

/// The user's settings, by key within a group within a file. The empty group and the empty file are the
/// default ones. Without a home, settings live in memory as long as the store; with one, they are ini files
/// in that folder: settings.ini, and NAME.ini beside it for every other file name (folders in a name are
/// dropped).
///
/// A text, truth value, number or list of texts comes back with the type that it was saved with, after a
/// restart too. A home that cannot be written is not an error, nor is one in which another program keeps its
/// lock for seconds: the values then last as long as the store.
class SettingsStore {
public:
    explicit SettingsStore(const QString& home);
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    /// Invalid when it was never saved.
    QVariant value(const QString& key, const QString& group = QString(),
                   const QString& file = QString()) const;
    /// An empty key is ignored.
    void setValue(const QString& key, const QVariant& value, const QString& group = QString(),
                  const QString& file = QString());

    /// The ini file of a file name; empty when settings live in memory.
    QString pathOf(const QString& file) const;

private:
    using Values = QHash<QString, QVariant>; // by group/key

    QSettings& ini(const QString& file) const;
    bool save(const QString& file, const Values& values);

    QString mHome;
    QHash<QString, Values> mMemory; // ini name -> values; with a home, those that are not in it yet
    int mPatienceMs;                // with others that write
    mutable std::map<QString, std::unique_ptr<QSettings>> mIniFiles;
};
