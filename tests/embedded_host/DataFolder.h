#pragma once

#include "embedded_host/reference_data/ReferenceFolder.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <optional>

/// A reference data folder of a test: at first the four compulsory files with one row each.
class DataFolder {
public:
    DataFolder();

    void write(const QString& name, const QByteArray& content) const;
    void remove(const QString& name) const;
    void link(const QString& target, const QString& name) const;
    QString path() const { return mFolder.path(); }
    QString filePath(const QString& name) const { return mFolder.filePath(name); }

    /// The folder's tables; a fault fails the test.
    ReferenceTables tables() const;
    /// What is wrong with the folder; empty when nothing is.
    QString fault() const;

private:
    QTemporaryDir mFolder;
};
