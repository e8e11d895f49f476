// The second pair of eyes.

#include "desk/runner/LedgerAccess.h"
#include "desk/runner/LedgerJson.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "desk/verdict/Desk.h"
#include "words/Words.h"

#include <functional>

namespace runner {

namespace {

using Decision = std::function<Outcome<ledger::Batch>(ledger::Ledger& ledger, const ledger::Batch& batch)>;

/// Decides on the batch that the arguments name, and prints what became of it.
Result decide(const CommandLine& line, const Decision& decision)
{
    const std::optional<qint64> number = batchNumber(line.files.first());
    if (!number) {
        return refuseNumber(line.files.first());
    }
    const auto opened = openExistingLedger(line, ledger::Ledger::Access::Write);
    if (!opened.ok()) {
        return complain(opened.error);
    }
    const Outcome<ledger::Batch> known = opened.value->batch(*number);
    const Outcome<ledger::Batch> decided = known.ok() ? decision(*opened.value, known.value) : known;
    return decided.ok() ? print(Done, QJsonDocument(toJson(decided.value))) : complain(decided.error);
}

} // namespace

/// The ceilings are read anew: an approval holds for those that the batch was judged by.
Result approveBatch(const CommandLine& line)
{
    const Outcome<verdict::Desk> desk = verdict::Desk::read(referenceDataFolder(line));
    if (!desk.ok()) {
        return refuse(desk.error);
    }
    return decide(line, [&](ledger::Ledger& ledger, const ledger::Batch& batch) {
        return ledger.approve(batch.number,
                              ledger::limitsFor(desk.value.limits, batch.account, batch.strategy));
    });
}

Result refuseBatch(const CommandLine& line)
{
    if (line.reason.trimmed().isEmpty()) {
        return refuse(Words::tr("请以 --reason TEXT 说明原因"));
    }
    return decide(line, [&](ledger::Ledger& ledger, const ledger::Batch& batch) {
        return ledger.refuse(batch.number, line.reason);
    });
}

} // namespace runner
