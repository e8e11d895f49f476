#pragma once

#include "desk/mapping/Mapping.h"
#include "strategy/Strategy.h"

/// What a mapping may look like, and whether one is whole.
namespace mapping {

/// By what a column was found, the surest first. Quantities, amounts and prices are never found by content.
enum class Found { ByTitle, ByAlias, ByName, ByContent };

struct Suggestion {
    Mapping mapping;
    QMap<QString, Found> found; ///< by the strategy's column
};

/// The line that looks most like a header, each column under the strategy's that it is most surely, the
/// values whose meaning the trade agrees on, and the harmless constants: what the strategy has by default,
/// and no start. What is left open, gapsOf() tells.
Suggestion suggest(const strategy::Strategy& strategy, const table::Table& table,
                   const Surroundings& surroundings);
/// The same where sheet and header line are given. The table must have such a row.
Suggestion suggestAt(int headerRow, const strategy::Strategy& strategy, const table::Table& table,
                     const Surroundings& surroundings);
/// The row that looks most like a header; 0 where none does.
int likelyHeader(const strategy::Strategy& strategy, const table::Table& table);

/// How a column of the strategy wants its cells.
Form formFor(const strategy::Column& column);
/// The choices of a column, typed text as the value; empty where anything may be typed.
QList<strategy::Option> choicesOf(const strategy::Column& column);
/// What the trade means by a text in a column of choices; empty where it is not agreed on.
QString meaningOf(const QString& text, const strategy::Column& column, const Surroundings& surroundings);
/// The mapping's values for a column, completed by what the trade agrees on.
void suggestValues(Column& column, const strategy::Column& wanted, const QStringList& texts,
                   const Surroundings& surroundings);

/// What a mapping leaves open under a strategy.
struct Gaps {
    QStringList unknown;               ///< columns that it fills, and the strategy has not
    QStringList missing;               ///< columns that the import must have, and nothing gives
    QMap<QString, QStringList> values; ///< column -> texts of the file that it does not take
    QStringList unmapped;              ///< titles of the file that stay out

    bool isWhole() const { return unknown.isEmpty() && missing.isEmpty() && values.isEmpty(); }
};

/// Of a mapping whose header row the table has.
Gaps gapsOf(const Mapping& mapping, const strategy::Strategy& strategy, const table::Table& table,
            const Surroundings& surroundings);

/// The cells below a title of the header row, each text once, in their order, without empty ones.
QStringList textsBelow(int headerRow, int column, const table::Table& table);

/// Whether the import takes the first row for the strategy's header as it stands.
bool fitsAsItStands(const strategy::Strategy& strategy, const table::Table& table);

} // namespace mapping
