#pragma once

#include "desk/check/ImportedFile.h"
#include "desk/mapping/Mapping.h"
#include "desk/runner/CommandLine.h"

#include <QJsonArray>
#include <QJsonObject>

#include <optional>

class ReferenceData;

namespace runner {

/// What the arguments say of how a file is read.
struct ImportSource {
    std::optional<mapping::Mapping> mapping;

    /// The error is a line for whoever typed the arguments.
    static Outcome<ImportSource> of(const CommandLine& line);

    /// Through the mapping where there is one, else the sheet that is the strategy's.
    ImportedFile read(const QString& path, const CommandLine& line, const ReferenceData& data) const;

    /// For the batch: that the file was told by a mapping.
    QJsonArray edits() const;
    /// Adds "mapping" where one was used, as it was.
    void addTo(QJsonObject& json) const;
};

/// Adds "mapping" and "mappingGaps" where the header does not fit the strategy: what `--mapping` may take,
/// and what it leaves open.
void addSuggestion(QJsonObject& json, const table::Table& table, const CommandLine& line,
                   const ReferenceData& data);

} // namespace runner
