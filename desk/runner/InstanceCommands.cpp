// Starting, stopping, withdrawing and settling instances.

#include "desk/runner/LedgerAccess.h"
#include "desk/runner/LedgerJson.h"
#include "desk/runner/Runner.h"
#include "words/Words.h"

namespace runner {

namespace {

using ledger::InstanceId;
using ledger::Ledger;
using Changes = Outcome<QList<ledger::ChangedInstance>>;

QString noInstance(const QString& text)
{
    return Words::tr("实例以批次和行表示，例如 12-3，而不是“%1”").arg(text);
}

/// Which instances the arguments name; an error where they name none, or in two ways.
Outcome<ledger::Selection> selectionOf(const CommandLine& line)
{
    if (line.files.isEmpty() == line.batch.isEmpty()) {
        return {{}, Words::tr("实例以 ID… 或 --batch N 指定")};
    }
    ledger::Selection selection;
    selection.batch = batchNumber(line.batch);
    if (!line.batch.isEmpty() && !selection.batch) {
        return {{}, refuseNumber(line.batch).error};
    }
    for (const QString& text : line.files) {
        const std::optional<InstanceId> id = InstanceId::fromText(text);
        if (!id) {
            return {{}, noInstance(text)};
        }
        if (!selection.ids.contains(*id)) {
            selection.ids.append(*id);
        }
    }
    return {selection, QString()};
}

/// All that was named is changed, or nothing.
Result change(const CommandLine& line, Changes (Ledger::*act)(const ledger::Selection&))
{
    const Outcome<ledger::Selection> selection = selectionOf(line);
    if (!selection.ok()) {
        return refuse(selection.error);
    }
    const auto opened = openExistingLedger(line, Ledger::Access::Write);
    if (!opened.ok()) {
        return complain(opened.error);
    }
    const Changes changed = ((*opened.value).*act)(selection.value);
    return changed.ok() ? print(Done, QJsonDocument(toJson(changed.value))) : complain(changed.error);
}

/// The state of that name, where a person may settle an instance as that.
std::optional<ledger::InstanceState> settlementNamed(const QString& name)
{
    using State = ledger::InstanceState;
    for (const State state :
         {State::Running, State::Stopped, State::Finished, State::Rejected, State::Queued}) {
        if (nameOf(state) == name) {
            return state;
        }
    }
    return std::nullopt;
}

} // namespace

Result startInstances(const CommandLine& line)
{
    return change(line, &Ledger::start);
}

Result stopInstances(const CommandLine& line)
{
    return change(line, &Ledger::stop);
}

Result withdrawInstances(const CommandLine& line)
{
    return change(line, &Ledger::withdraw);
}

Result settleInstance(const CommandLine& line)
{
    const std::optional<InstanceId> id = InstanceId::fromText(line.files.first());
    if (!id) {
        return refuse(noInstance(line.files.first()));
    }
    const std::optional<ledger::InstanceState> state = settlementNamed(line.settleAs);
    if (!state) {
        return refuse(Words::tr("--as 应为 running、stopped、finished、rejected 或 queued，而不是“%1”")
                          .arg(line.settleAs));
    }
    if (line.reason.trimmed().isEmpty()) {
        return refuse(Words::tr("请以 --reason TEXT 说明原因"));
    }
    const auto opened = openExistingLedger(line, Ledger::Access::Write);
    if (!opened.ok()) {
        return complain(opened.error);
    }
    const Outcome<ledger::ChangedInstance> settled = opened.value->settle(*id, *state, line.reason);
    return settled.ok() ? print(Done, QJsonDocument(toJson(settled.value))) : complain(settled.error);
}

} // namespace runner
