#include "desk/runner/LedgerAccess.h"

#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "ledger/LedgerTexts.h"
#include "words/Words.h"

#include <QFileInfo>
#include <QJsonObject>

namespace runner {

using ledger::Ledger;

Outcome<ledger::Address> ledgerAddress(const CommandLine& line)
{
    return line.ledger.isEmpty()
               ? Outcome<ledger::Address>{ledger::Address::ofFile(Ledger::pathIn(homeFolder(line))),
                                          QString()}
               : ledger::Address::parse(line.ledger);
}

Outcome<LedgerPointer> openLedger(const CommandLine& line, Ledger::Access access)
{
    const Outcome<ledger::Address> address = ledgerAddress(line);
    if (!address.ok()) {
        return {{}, address.error};
    }
    Ledger::Options options;
    options.access = access;
    options.waitSeconds = line.wait.toInt();
    return Ledger::open(address.value, options);
}

Outcome<LedgerPointer> openExistingLedger(const CommandLine& line, Ledger::Access access)
{
    return isLedgerThere(line)
               ? openLedger(line, access)
               : Outcome<LedgerPointer>{{}, ledger::texts::noLedger(ledgerAddress(line).value.shown())};
}

bool isLedgerThere(const CommandLine& line)
{
    const ledger::Address address = ledgerAddress(line).value;
    return address.kind == ledger::Address::Kind::Server || QFileInfo::exists(address.path);
}

std::optional<qint64> batchNumber(const QString& text)
{
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    return isNumber && number > 0 ? std::optional<qint64>(number) : std::nullopt;
}

Result refuseNumber(const QString& text)
{
    return refuse(Words::tr("批次以编号表示，而不是“%1”").arg(text));
}

Result complain(const QString& error)
{
    return print(Complained, QJsonDocument(QJsonObject{{QStringLiteral("error"), error}}));
}

} // namespace runner
