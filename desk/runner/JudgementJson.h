#pragma once

#include "desk/verdict/Judgement.h"

#include <QJsonObject>

namespace runner {

/// docs/schema/guard.schema.json.
QJsonObject toJson(const verdict::Judgement& judgement);
/// docs/schema/create.schema.json: the judgement and the batch that came of it, or the error.
QJsonObject creationToJson(const verdict::Judgement& judgement, const Outcome<ledger::Batch>& created);

} // namespace runner
