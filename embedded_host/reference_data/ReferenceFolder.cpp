#include "embedded_host/reference_data/ReferenceFolder.h"

#include "embedded_host/reference_data/CsvTable.h"
#include "embedded_host/reference_data/StrategyCatalogue.h"

#include <QFile>
#include <QFileInfo>

namespace {

const QString StrategiesFile = QStringLiteral("strategies.json");

QString pathIn(const QString& folder, const QString& fileName)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + fileName : folder + QLatin1Char('/') + fileName;
}

bool readWholeFile(const QString& path, QByteArray& bytes, QString& error)
{
    QFile file(path);
    if (!QFile::exists(path)) {
        error = reference_faults::at(path, 1, reference_faults::missingFile());
        return false;
    }
    if (file.open(QIODevice::ReadOnly)) {
        bytes = file.readAll();
    }
    if (file.error() != QFileDevice::NoError) {
        error = reference_faults::at(path, 1, reference_faults::unreadableFile(file.errorString()));
        return false;
    }
    return true;
}

bool readStrategies(const QString& folder, QList<AesStrategy>& strategies, QString& error)
{
    const QString path = pathIn(folder, StrategiesFile);
    QByteArray json;
    return readWholeFile(path, json, error) && readStrategyCatalogue(json, path, strategies, error);
}

template <typename Row>
bool readTable(const QString& folder, const ReferenceTable<Row>& table, QList<Row>& rows, QString& error)
{
    const QString path = pathIn(folder, table.fileName());
    if (table.presence == ReferenceTable<Row>::Optional && !isReferenceFileThere(path)) {
        return true;
    }
    QByteArray csv;
    return readWholeFile(path, csv, error) && CsvTable(table, path).read(csv, rows, error);
}

} // namespace

QStringList referenceFileNames()
{
    QStringList names{StrategiesFile};
    forEachCsvTable([&names](const auto& table) {
        names.append(table.fileName());
        return true;
    });
    return names;
}

bool isReferenceFileThere(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

std::optional<ReferenceTables> readReferenceFolder(const QString& folder, QString& error)
{
    ReferenceTables tables;
    error.clear();
    const bool isSound =
        readStrategies(folder, tables.strategies, error) && forEachCsvTable([&](const auto& table) {
            return readTable(folder, table, tables.*table.rows, error);
        });
    if (!isSound) {
        return std::nullopt;
    }
    tables.everythingAllowed = !isReferenceFileThere(pathIn(folder, authorityTable().fileName()));
    return tables;
}
