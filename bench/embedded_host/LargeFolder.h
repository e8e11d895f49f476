#pragma once

#include <QString>
#include <QTemporaryDir>

/// A reference data folder with as many securities and accounts as asked for, a quote for every security, and
/// two security accounts for every account.
class LargeFolder {
public:
    LargeFolder(int securities, int accounts);

    QString path() const { return mFolder.path(); }
    QString filePath(const QString& name) const { return mFolder.filePath(name); }

    /// Codes run from 000000 up, on SH and SZ in turn.
    static QString code(int position);
    static QString symbol(int position);

private:
    void write(const QString& name, const QString& content) const;

    QTemporaryDir mFolder;
};
