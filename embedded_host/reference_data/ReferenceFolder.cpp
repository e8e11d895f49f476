#include "embedded_host/reference_data/ReferenceFolder.h"

#include "embedded_host/reference_data/CsvTable.h"
#include "embedded_host/reference_data/StrategyCatalogue.h"

#include <QFileInfo>

namespace {

QString pathIn(const QString& folder, const QString& fileName)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + fileName : folder + QLatin1Char('/') + fileName;
}

} // namespace

QStringList referenceFileNames()
{
    QStringList names{QStringLiteral("strategies.json")};
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
    const auto readTable = [&](const auto& table) {
        using Table = std::decay_t<decltype(table)>;
        const QString path = pathIn(folder, table.fileName());
        if (table.presence == Table::Optional && !QFileInfo::exists(path)) {
            return true;
        }
        return CsvTable(table, path).read(tables.*table.rows, error);
    };
    if (!readStrategyCatalogue(pathIn(folder, QStringLiteral("strategies.json")), tables.strategies, error) ||
        !forEachCsvTable(readTable)) {
        return std::nullopt;
    }
    tables.everythingAllowed = !QFileInfo::exists(pathIn(folder, authorityTable().fileName()));
    return tables;
}
