// Halting, resuming, the state of things, and the report of a day.

#include "desk/report/DayReport.h"
#include "desk/runner/Commands.h"
#include "desk/runner/LedgerAccess.h"
#include "desk/runner/Runner.h"
#include "embedded_host/reference_data/Calendar.h"
#include "embedded_host/table_writer/TextTable.h"
#include "ledger/LedgerTexts.h"
#include "words/Words.h"

#include <QJsonArray>
#include <QJsonObject>

namespace runner {

namespace {

const char* const NoReason = QT_TRANSLATE_NOOP("Words", "请以 --reason TEXT 说明原因");

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

QString utc(const QDateTime& time)
{
    return time.isValid() ? time.toUTC().toString(Qt::ISODateWithMs) : QString();
}

QJsonObject toJson(const ledger::Status& status)
{
    QJsonArray halts;
    for (const ledger::Halt& halt : status.halts) {
        halts.append(QJsonObject{{key("account"), halt.account},
                                 {key("reason"), halt.reason},
                                 {key("by"), halt.by},
                                 {key("at"), utc(halt.at)}});
    }
    QJsonArray gateways;
    for (const ledger::Gateway& gateway : status.gateways) {
        gateways.append(QJsonObject{{key("session"), gateway.session},
                                    {key("accounts"), QJsonArray::fromStringList(gateway.accounts)},
                                    {key("host"), gateway.host},
                                    {key("pid"), gateway.pid},
                                    {key("state"), gateway.isGone ? key("gone") : gateway.state},
                                    {key("since"), utc(gateway.since)}});
    }
    QJsonArray days;
    for (const ledger::AccountDay& day : status.days) {
        days.append(QJsonObject{{key("account"), day.account},
                                {key("buy"), day.buy.toDouble()},
                                {key("sell"), day.sell.toDouble()},
                                {key("batches"), day.batches},
                                {key("instances"), day.instances}});
    }
    return {{key("halts"), halts},
            {key("gateways"), gateways},
            {key("waiting"), status.waiting},
            {key("day"), days}};
}

Result printStatus(const Outcome<ledger::Status>& status)
{
    return status.ok() ? print(Done, QJsonDocument(toJson(status.value))) : complain(status.error);
}

using Change = Outcome<void> (ledger::Ledger::*)(const QString& account, const QString& reason);

/// Does it, and prints what holds afterwards.
Result change(const CommandLine& line, const Outcome<LedgerPointer>& opened, Change act)
{
    if (!opened.ok()) {
        return complain(opened.error);
    }
    const Outcome<void> done = ((*opened.value).*act)(line.account, line.reason);
    return done.ok() ? printStatus(opened.value->status()) : complain(done.error);
}

QJsonObject toJson(const day_report::Count& count)
{
    return {{key("account"), count.account},         {key("strategy"), count.strategy},
            {key("first"), utc(count.first)},        {key("last"), utc(count.last)},
            {key("batches"), count.batches},         {key("orders"), count.orders},
            {key("buy"), count.buy.toDouble()},      {key("sell"), count.sell.toDouble()},
            {key("peakPerSecond"), count.peak},      {key("peakAt"), utc(count.peakAt)},
            {key("busySeconds"), count.busySeconds}, {key("highFrequency"), count.isHighFrequency()}};
}

} // namespace

/// Holds for the programs to come, too: it makes a ledger where there is none, and says so, since a halt in a
/// home that was mistyped holds nobody.
Result haltTrading(const CommandLine& line)
{
    if (line.reason.trimmed().isEmpty()) {
        return refuse(Words::tr(NoReason));
    }
    const bool isNew = !isLedgerThere(line);
    Result halted = change(line, openLedger(line, ledger::Ledger::Access::Write), &ledger::Ledger::halt);
    if (isNew && halted.status == Done) {
        halted.error = ledger::texts::newLedger(ledgerAddress(line).value.shown());
    }
    return halted;
}

Result resumeTrading(const CommandLine& line)
{
    return line.reason.trimmed().isEmpty()
               ? refuse(Words::tr(NoReason))
               : change(line, openExistingLedger(line, ledger::Ledger::Access::Write),
                        &ledger::Ledger::resume);
}

Result showStatus(const CommandLine& line)
{
    const auto opened = openLedger(line, ledger::Ledger::Access::Read);
    return opened.ok() ? printStatus(opened.value->status()) : complain(opened.error);
}

Result reportDay(const CommandLine& line)
{
    const QDate day = line.day.isEmpty() ? exchangeTime(QDateTime::currentDateTimeUtc()).date()
                                         : QDate::fromString(line.day, Qt::ISODate);
    if (!day.isValid()) {
        return refuse(Words::tr("--day 应为 yyyy-MM-dd，而不是“%1”").arg(line.day));
    }
    if (!line.out.isEmpty() && !isTableFile(line.out)) {
        return refuse(Words::tr("--out OUT 应以 .xlsx 或 .csv 结尾"));
    }
    const auto opened = openLedger(line, ledger::Ledger::Access::Read);
    if (!opened.ok()) {
        return complain(opened.error);
    }
    const Outcome<QList<day_report::Count>> counts = day_report::read(*opened.value, day);
    if (!counts.ok()) {
        return complain(counts.error);
    }
    const QString software = QStringLiteral("algodesk");
    const QString version = QStringLiteral(ALGODESK_VERSION);
    QString error;
    if (!line.out.isEmpty()) {
        error = table_writer::writeTable(line.out, day_report::table(counts.value, day, software, version));
    }
    QJsonArray accounts;
    for (const day_report::Count& count : counts.value) {
        accounts.append(toJson(count));
    }
    return print(error.isEmpty() ? Done : Complained,
                 QJsonDocument(QJsonObject{{key("day"), day.toString(Qt::ISODate)},
                                           {key("software"), software},
                                           {key("version"), version},
                                           {key("counts"), accounts},
                                           {key("file"), line.out},
                                           {key("error"), error}}));
}

} // namespace runner
