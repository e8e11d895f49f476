#include "desk/mapping/MappingMemory.h"

#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/settings/SettingsStore.h"

#include <QCryptographicHash>
#include <QJsonDocument>

namespace mapping {

namespace {

const QString File = QStringLiteral("mappings");
const QString Group = QStringLiteral("header");

bool isBlank(const QStringList& row)
{
    return row.join(QString()).trimmed().isEmpty();
}

/// Under which a sheet is found that holds no table: its first row that is not blank.
QStringList firstRow(const table::Table& table)
{
    for (const QStringList& row : table.rows) {
        if (!isBlank(row)) {
            return row;
        }
    }
    return {};
}

} // namespace

QString fingerprint(const QString& strategy, const QStringList& header)
{
    QStringList titles = header;
    while (!titles.isEmpty() && titles.last().trimmed().isEmpty()) {
        titles.removeLast();
    }
    const QString text = (QStringList{strategy} + titles).join(QChar(0x1F));
    return QString::fromLatin1(QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256).toHex());
}

std::optional<Mapping> MappingMemory::find(const QString& strategy, const table::Table& table) const
{
    for (int row = 0; row < table.rows.size() && row < MostTitleRows; ++row) {
        const QString key = fingerprint(strategy, table.rows.at(row));
        const QByteArray json = isBlank(table.rows.at(row))
                                    ? QByteArray()
                                    : mHost.settings().value(key, Group, File).toByteArray();
        Outcome<Mapping> known = json.isEmpty() ? Outcome<Mapping>{{}, key} : fromJson(json);
        if (known.ok()) {
            const bool isThisSheet = known.value.sheet.isEmpty() || known.value.sheet == table.sheet;
            known.value.headerLine = isThisSheet ? table.lineOf(row) : 0;
            return known.value;
        }
    }
    return std::nullopt;
}

void MappingMemory::remember(const Mapping& mapping, const table::Table& chosen, const table::Table& first)
{
    const int header = headerRow(mapping, chosen);
    const QByteArray json = QJsonDocument(toJson(mapping)).toJson(QJsonDocument::Compact);
    QList<QStringList> keys{chosen.rows.value(header)};
    if (chosen.sheet != first.sheet) {
        keys.append(firstRow(first));
    }
    for (const QStringList& key : qAsConst(keys)) {
        mHost.settings().setValue(fingerprint(mapping.strategy, key), json, Group, File);
    }
}

void MappingMemory::forget(const Mapping& mapping, const table::Table& table)
{
    const QStringList header = table.rows.value(headerRow(mapping, table));
    for (const QStringList& key : {header, firstRow(table)}) {
        mHost.settings().setValue(fingerprint(mapping.strategy, key), QByteArray(), Group, File);
    }
}

} // namespace mapping
