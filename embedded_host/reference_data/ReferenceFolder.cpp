#include "embedded_host/reference_data/ReferenceFolder.h"

#include "embedded_host/reference_data/CsvTable.h"
#include "embedded_host/reference_data/ReferenceFile.h"
#include "embedded_host/reference_data/StrategyCatalogue.h"

#include <QFileInfo>

namespace {

const QString StrategiesFile = QStringLiteral("strategies.json");

QString pathIn(const QString& folder, const QString& fileName)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + fileName : folder + QLatin1Char('/') + fileName;
}

bool readStrategies(const QString& folder, QList<AesStrategy>& strategies, QString& error)
{
    const QString path = pathIn(folder, StrategiesFile);
    const Outcome<QByteArray> json = readReferenceFile(path, reference_limits::JsonBytes);
    error = json.error;
    return json.ok() && readStrategyCatalogue(json.value, path, strategies, error);
}

template <typename Row>
bool readTable(const QString& folder, const ReferenceTable<Row>& table, QList<Row>& rows, QString& error)
{
    const QString path = pathIn(folder, table.fileName());
    if (table.presence == ReferenceTable<Row>::Optional && !isReferenceFileThere(path)) {
        return true;
    }
    const Outcome<QByteArray> csv = readReferenceFile(path, reference_limits::CsvBytes);
    error = csv.error;
    return csv.ok() && CsvTable(table, path).read(csv.value, rows, error);
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
