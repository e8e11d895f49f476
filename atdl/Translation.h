#pragma once

#include "atdl/Loss.h"
#include "table/Outcome.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>

/// A broker's FIXatdl 1.1 document as what the desk works with.
namespace atdl {

struct Translation {
    QJsonArray strategies; ///< entries of strategies.json
    QJsonObject profile;   ///< of the gateway
    QJsonObject rules;     ///< strategy_rules.json
    QJsonArray
        summaries; ///< {"code", "alias", "parameters", "constants", "conditions", "exchanges"}, in order
    Losses losses;
};

/// The error tells of a document that is none: not well-formed, of another namespace, too large, with a
/// document type declaration. A strategy that would not go out as the broker asks is a loss as a whole.
Outcome<Translation> translate(const QByteArray& document);

} // namespace atdl
