// Making a ledger on a server, what it holds by itself, and carrying one from a place to another.

#include "desk/batch/LimitsFile.h"
#include "desk/runner/Commands.h"
#include "desk/runner/LedgerAccess.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "ledger/LedgerCopy.h"
#include "ledger/LedgerTexts.h"

#include <QJsonObject>

namespace runner {

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

/// What limits.csv says, without the reference data around it.
Result setLedgerLimits(const CommandLine& line)
{
    const Outcome<ledger::Address> address = ledger::Address::parse(line.files.first());
    if (!address.ok()) {
        return refuse(address.error);
    }
    QString error;
    const auto scopes = batch::readLimits(referenceDataFolder(line), error);
    if (!scopes) {
        return refuse(error);
    }
    if (address.value.kind == ledger::Address::Kind::File) {
        return complain(ledger::texts::ceilingsOfFile(address.value.shown()));
    }
    ledger::Ledger::Options options;
    options.waitSeconds = line.wait.toInt();
    const auto opened = ledger::Ledger::open(address.value, options);
    const QString fault = opened.ok() ? opened.value->setCeilings(*scopes).error : opened.error;
    return fault.isEmpty()
               ? print(Done, QJsonDocument(QJsonObject{{QStringLiteral("ledger"), address.value.shown()},
                                                       {QStringLiteral("limits"), scopes->size()}}))
               : complain(fault);
}

} // namespace runner
