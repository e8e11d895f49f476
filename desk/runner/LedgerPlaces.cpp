// Making a ledger on a server, and carrying one from a place to another.

#include "desk/runner/Commands.h"
#include "desk/runner/Runner.h"
#include "ledger/LedgerCopy.h"

#include <QJsonObject>

namespace runner {

namespace {

Result complain(const QString& error)
{
    return print(Complained, QJsonDocument(QJsonObject{{QStringLiteral("error"), error}}));
}

} // namespace

Result initLedger(const CommandLine& line)
{
    const Outcome<ledger::Address> address = ledger::Address::parse(line.files.first());
    if (!address.ok()) {
        return refuse(address.error);
    }
    const Outcome<void> made = ledger::initLedger(address.value);
    return made.ok()
               ? print(Done, QJsonDocument(QJsonObject{{QStringLiteral("ledger"), address.value.shown()}}))
               : complain(made.error);
}

Result copyLedger(const CommandLine& line)
{
    const Outcome<ledger::Address> from = ledger::Address::parse(line.files.first());
    const Outcome<ledger::Address> to = ledger::Address::parse(line.files.last());
    if (!from.ok() || !to.ok()) {
        return refuse(from.ok() ? to.error : from.error);
    }
    const Outcome<ledger::Copied> copied = ledger::copyLedger(from.value, to.value);
    if (!copied.ok()) {
        return complain(copied.error);
    }
    return print(Done, QJsonDocument(QJsonObject{{QStringLiteral("batches"), copied.value.batches},
                                                 {QStringLiteral("instances"), copied.value.instances},
                                                 {QStringLiteral("entries"), copied.value.entries},
                                                 {QStringLiteral("head"), copied.value.head}}));
}

} // namespace runner
