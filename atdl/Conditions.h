#pragma once

#include "atdl/Loss.h"
#include "atdl/Parameters.h"
#include "atdl/XmlTree.h"

#include <QJsonArray>
#include <QList>

/// The document's StrategyEdits as conditions on a row.
namespace atdl {

/// Entries of strategy_rules.json: {"message", "holds": NODE}. A node is {"logic": "AND" | "OR" | "XOR" |
/// "NOT", "of": [NODE…]}, {"operator": "EX" | "NX", "field"}, {"operator": "EQ" | …, "kind": "number" |
/// "text", "field", "value" or "field2"}, or {"always": true | false}. Fields are paramIds, values as they
/// stand in a row. One that asks for something that no row has is a loss, by its message.
QJsonArray conditionsOf(const XmlElement& document, const XmlElement& strategy,
                        const QList<Parameter>& parameters, LossBook& losses);

} // namespace atdl
