#pragma once

#include "gateway/handoff/FolderEngine.h"
#include "ledger/guard/Limits.h"
#include "ledger/store/Address.h"

#include <QIODevice>
#include <QList>
#include <QString>

#include <functional>

/// `algodesk gateway`: what the ledger holds goes to a counterparty, by FIX or as files, and what that
/// answers comes back.
namespace gateway {

enum Status {
    Ended = 0,
    Refused = 2, ///< wrong configuration or profile; a line on `err` for each thing that is wrong
    Served = 3,  ///< the accounts are served by another gateway
};

struct GatewayOptions {
    QString settingsFile;  ///< of the FIX session
    FolderOptions handOff; ///< with a path: by files instead
    QString profileFile;
    ledger::Address ledger;
    QList<ledger::LimitScope> limits; ///< of which ordersPerSecond is kept
    QString dictionaryFolder;
    QString storeFolder; ///< of sequence numbers, where the settings name none
    bool resetsSequence = false;
    std::function<bool()> isAskedToEnd;
};

/// Until it is asked to end. JSON lines of sessions and instances on `out`.
int run(const GatewayOptions& options, QIODevice& out, QIODevice& err);

/// Prints the messages of a batch and sends nothing: a JSON line each, {"id", "clOrdId", "message"} with bars
/// between fields, or {"id", "clOrdId", "reason"} of one that the profile refuses. By files {"id", "clOrdId",
/// "file", "content"}.
int dryRun(const GatewayOptions& options, qint64 batch, QIODevice& out, QIODevice& err);

/// Takes the registration back; refused (2) while anything is queued or open, (3) while a gateway serves.
int forget(const GatewayOptions& options, QIODevice& err);

/// True from SIGTERM or SIGINT on; installs the handlers when first asked.
bool isAskedToEndBySignal();

} // namespace gateway
