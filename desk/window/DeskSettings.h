#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class EmbeddedHost;

/// What the desk remembers in the host's settings, in a file of its own.
class DeskSettings {
public:
    explicit DeskSettings(EmbeddedHost& host) : mHost(host) {}

    QByteArray geometry() const { return bytes("geometry"); }
    void setGeometry(const QByteArray& geometry) { save("geometry", geometry); }
    QByteArray importSplitter() const { return bytes("importSplitter"); }
    void setImportSplitter(const QByteArray& state) { save("importSplitter", state); }
    /// What the trader made of the import table's columns.
    QByteArray importColumns() const { return bytes("importColumns"); }
    void setImportColumns(const QByteArray& state) { save("importColumns", state); }
    /// Columns of the list of a page.
    QByteArray columns(int page) const { return bytes(columnsKey(page).constData()); }
    void setColumns(int page, const QByteArray& state) { save(columnsKey(page).constData(), state); }
    QString skin() const { return text("skin"); }
    void setSkin(const QString& skin) { save("skin", skin); }
    /// "en" or "zh"; empty: as the system's locale is.
    QString language() const { return text("language"); }
    void setLanguage(const QString& language) { save("language", language); }
    QString lastStrategy() const { return text("strategy"); }
    void setLastStrategy(const QString& strategy) { save("strategy", strategy); }
    QString lastAccount() const { return text("account"); }
    void setLastAccount(const QString& account) { save("account", account); }
    /// Paths of the files imported last, the newest first.
    QStringList recentFiles() const
    {
        return text("recentFiles").split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    void setRecentFiles(const QStringList& paths) { save("recentFiles", paths.join(QLatin1Char('\n'))); }
    int page() const { return text("page").toInt(); }
    void setPage(int page) { save("page", QString::number(page)); }

private:
    static QByteArray columnsKey(int page) { return "columns" + QByteArray::number(page); }
    QByteArray bytes(const char* key) const;
    QString text(const char* key) const;
    void save(const char* key, const QByteArray& value);
    void save(const char* key, const QString& value);

    EmbeddedHost& mHost;
};
