#include "embedded_host/reference_data/ReferenceFolder.h"

#include "embedded_host/reference_data/CsvTable.h"
#include "embedded_host/reference_data/StrategyCatalogue.h"

#include <QFile>

namespace {

const QString StrategiesFile = QStringLiteral("strategies.json");

QString pathIn(const QString& folder, const QString& fileName)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + fileName : folder + QLatin1Char('/') + fileName;
}

bool readWholeFile(const QString& path, QByteArray& bytes, QString& error)
{
    QFile file(path);
    if (!file.exists()) {
        error = reference_faults::at(path, 1, reference_faults::missingFile());
        return false;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        error = reference_faults::at(path, 1, reference_faults::unreadableFile(file.errorString()));
        return false;
    }
    bytes = file.readAll();
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
    if (table.presence == ReferenceTable<Row>::Optional && !QFile::exists(path)) {
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
    tables.everythingAllowed = !QFile::exists(pathIn(folder, authorityTable().fileName()));
    return tables;
}
