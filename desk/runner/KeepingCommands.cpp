// The audit trail, and keeping the ledger safe.

#include "desk/runner/LedgerAccess.h"
#include "desk/runner/LedgerJson.h"
#include "desk/runner/Runner.h"
#include "ledger/LedgerTexts.h"
#include "words/Words.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>

namespace runner {

namespace {

using ledger::Ledger;

/// How many entries are read at once.
constexpr int EntriesAPage = 1000;

Result verifyAudit(const Ledger& ledger)
{
    const Outcome<ledger::AuditVerdict> verdict = ledger.verifyAudit();
    return verdict.ok()
               ? print(verdict.value.broken ? Complained : Done, QJsonDocument(toJson(verdict.value)))
               : complain(verdict.error);
}

/// An empty page is the last one: a trail that lacks an entry is printed to its end.
Outcome<void> eachEntry(const Ledger& ledger, qint64 from, const TakeElement& take)
{
    while (true) {
        const Outcome<QList<ledger::AuditEntry>> page = ledger.audit(from, EntriesAPage);
        for (const ledger::AuditEntry& entry : page.value) {
            if (!take(toJson(entry))) {
                return {};
            }
            from = entry.number + 1;
        }
        if (page.value.isEmpty()) {
            return {page.error};
        }
    }
}

/// What was kept, and where.
Result kept(const Outcome<void>& done, const CommandLine& line)
{
    if (!done.ok()) {
        return complain(done.error);
    }
    QJsonObject json{{QStringLiteral("ledger"), ledgerAddress(line).value.shown()}};
    if (!line.files.isEmpty()) {
        json[QStringLiteral("file")] = QFileInfo(line.files.first()).absoluteFilePath();
    }
    return print(Done, QJsonDocument(json));
}

/// On a new machine there is no home yet; one that is made belongs to its owner alone.
void makeFolderOf(const QString& path)
{
    const QString folder = QFileInfo(path).absolutePath();
    if (!QFileInfo::exists(folder) && QDir().mkpath(folder)) {
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

} // namespace

Result auditLedger(const CommandLine& line)
{
    bool isNumber = true;
    const qint64 from = line.from.isEmpty() ? 1 : line.from.toLongLong(&isNumber);
    if (!isNumber || from < 1) {
        return refuse(Words::tr("--from 应为审计记录的编号，而不是“%1”").arg(line.from));
    }
    if (line.verify && !line.from.isEmpty()) {
        return refuse(Words::tr("--verify 不能带 --from：每条记录都涵盖前一条"));
    }
    const auto opened = openExistingLedger(line, Ledger::Access::Read);
    if (!opened.ok()) {
        return complain(opened.error);
    }
    if (line.verify) {
        return verifyAudit(*opened.value);
    }
    return printEach(
        [ledger = opened.value, from](const TakeElement& take) { return eachEntry(*ledger, from, take); });
}

Result backupLedger(const CommandLine& line)
{
    const auto opened = openExistingLedger(line, Ledger::Access::Read);
    return opened.ok() ? kept(opened.value->backup(line.files.first()), line) : complain(opened.error);
}

Result restoreBackup(const CommandLine& line)
{
    const ledger::Address address = ledgerAddress(line).value;
    if (address.kind == ledger::Address::Kind::Server) {
        return complain(ledger::texts::restoreOnServer(address.shown()));
    }
    const QString& backup = line.files.first();
    if (QFileInfo(backup).isFile()) {
        makeFolderOf(address.path);
    }
    return kept(ledger::restoreLedger(backup, address.path), line);
}

Result vacuumLedger(const CommandLine& line)
{
    const auto opened = openExistingLedger(line, Ledger::Access::Write);
    return opened.ok() ? kept(opened.value->vacuum(), line) : complain(opened.error);
}

} // namespace runner
