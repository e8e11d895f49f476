#include "desk/runner/ImportSource.h"

#include "desk/mapping/MappedFile.h"
#include "desk/mapping/Suggestion.h"
#include "embedded_host/reference_data/ReferenceData.h"
#include "words/Words.h"

namespace runner {

namespace {

QJsonObject toJson(const mapping::Gaps& gaps)
{
    QJsonObject values;
    for (auto value = gaps.values.cbegin(); value != gaps.values.cend(); ++value) {
        values[value.key()] = QJsonArray::fromStringList(*value);
    }
    return {{QStringLiteral("missing"), QJsonArray::fromStringList(gaps.missing)},
            {QStringLiteral("values"), values},
            {QStringLiteral("unmapped"), QJsonArray::fromStringList(gaps.unmapped)}};
}

} // namespace

Outcome<ImportSource> ImportSource::of(const CommandLine& line)
{
    if (line.mapping.isEmpty()) {
        return {};
    }
    const Outcome<mapping::Mapping> mapping = mapping::readFile(line.mapping);
    if (!mapping.ok()) {
        return {{}, mapping.error};
    }
    if (mapping.value.strategy != line.strategy) {
        return {{},
                Words::tr("%1: strategy：映射属于算法“%2”，而不是“%3”")
                    .arg(line.mapping, mapping.value.strategy, line.strategy)};
    }
    return {{mapping.value}, QString()};
}

ImportedFile ImportSource::read(const QString& path, const CommandLine& line, const ReferenceData& data) const
{
    return mapping ? mapping::readMapped(path, line.encoding, *mapping, mapping::surroundingsOf(data))
                   : mapping::readFor(path, line.strategy, data, line.encoding);
}

QJsonArray ImportSource::edits() const
{
    return mapping ? QJsonArray{mapping::asEdit(*mapping)} : QJsonArray();
}

void ImportSource::addTo(QJsonObject& json) const
{
    if (mapping) {
        json[QStringLiteral("mapping")] = mapping::toJson(*mapping);
    }
}

void addSuggestion(QJsonObject& json, const table::Table& table, const CommandLine& line,
                   const ReferenceData& data)
{
    const AesStrategy* offered = data.strategy(line.strategy);
    const auto strategy =
        offered ? strategy::Strategy::parse(offered->name(), offered->alias(), offered->paramFormats())
                : Outcome<strategy::Strategy>{{}, line.strategy};
    if (!strategy.ok() || table.rows.isEmpty() || mapping::fitsAsItStands(strategy.value, table)) {
        return;
    }
    const mapping::Surroundings surroundings = mapping::surroundingsOf(data);
    const mapping::Mapping suggested = mapping::suggest(strategy.value, table, surroundings).mapping;
    if (suggested.columns.isEmpty()) {
        return;
    }
    json[QStringLiteral("mapping")] = mapping::toJson(suggested);
    json[QStringLiteral("mappingGaps")] =
        toJson(mapping::gapsOf(suggested, strategy.value, table, surroundings));
}

} // namespace runner
