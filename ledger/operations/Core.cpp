#include "ledger/operations/Core.h"

#include "ledger/store/AuditTrail.h"
#include "ledger/store/BatchQueries.h"
#include "ledger/store/ControlQueries.h"

#include <pwd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QThread>

namespace ledger {

namespace {

/// Another program's change comes between only where both touch the same account at the same moment.
constexpr int MostAttempts = 20;
constexpr int LongestPauseMs = 50;

/// Who runs the program, by the system's word and not by a variable that anyone sets.
QString systemUser()
{
    const passwd* user = getpwuid(geteuid());
    return user ? QString::fromLocal8Bit(user->pw_name) : QString::number(geteuid());
}

Ledger::Options completed(Ledger::Options options)
{
    if (options.user.isEmpty()) {
        options.user = systemUser();
    }
    if (options.program.isEmpty()) {
        options.program =
            (QCoreApplication::applicationName() + QLatin1Char(' ') + QCoreApplication::applicationVersion())
                .trimmed();
    }
    return options;
}

Store::Settings settingsOf(const Ledger::Options& options)
{
    return {options.access == Ledger::Access::Write ? Store::Mode::Write : Store::Mode::Read,
            options.waitSeconds, options.maxPages};
}

} // namespace

void Change::note(const QString& what, const QString& subject, const QJsonObject& detail)
{
    AuditEntry entry;
    entry.at = at;
    entry.by = by;
    entry.program = program;
    entry.what = what;
    entry.subject = subject;
    entry.detail = QString::fromUtf8(QJsonDocument(detail).toJson(QJsonDocument::Compact));
    entries.append(entry);
}

Ledger::Core::Core(const Address& address, const Options& chosen)
    : options(completed(chosen)), store(Store::make(address, settingsOf(options)))
{
}

QString Ledger::Core::open()
{
    return store ? store->open() : texts::noServerSupport();
}

QDateTime Ledger::Core::now() const
{
    return (options.clock ? options.clock() : QDateTime::currentDateTimeUtc()).toUTC();
}

/// After a failure nothing may be open any more: whoever goes on tries anew.
QString Ledger::Core::reopenIfClosed() const
{
    const bool isOpen = store->database().isOpen(); // no copy of it may live while it is replaced
    return isOpen ? QString() : store->open();
}

QString Ledger::Core::user() const
{
    const QString known = store->user();
    return known.isEmpty() ? options.user : known;
}

QString Ledger::Core::runRead(const ReadBody& body) const
{
    const QString fault = reopenIfClosed();
    if (!fault.isEmpty()) {
        return fault;
    }
    QSqlError error = store->begin(Store::Begin::Read);
    if (error.isValid()) {
        return store->sentenceFor(error);
    }
    QString refused;
    {
        Statements statements(store->database(), &store->prepared());
        refused = body(statements);
        error = statements.error();
    }
    store->rollback(); // nothing was changed
    return error.isValid() ? store->sentenceFor(error) : refused;
}

QString Ledger::Core::runChange(const ChangeBody& body)
{
    if (options.access == Access::Read) {
        return texts::openedForReading(name());
    }
    QString error;
    for (int tried = 1; attempt(body, error) == Ending::Again; ++tried) {
        if (tried == MostAttempts) {
            return error;
        }
        QThread::msleep(static_cast<unsigned long>(QRandomGenerator::global()->bounded(LongestPauseMs)));
    }
    return error;
}

Ledger::Core::Ending Ledger::Core::attempt(const ChangeBody& body, QString& error)
{
    error = reopenIfClosed();
    if (!error.isEmpty()) {
        return Ending::Failed;
    }
    QSqlError failure = store->begin(Store::Begin::Write);
    AuditEntry last;
    if (!failure.isValid()) {
        Statements statements(store->database(), &store->prepared());
        Change change{statements, *store, now(), user(), options.program, {}};
        const QString refused = body(change);
        for (AuditEntry& entry : change.entries) {
            audit::append(statements, entry);
            last = entry;
        }
        failure = statements.error();
        if (!failure.isValid() && !refused.isEmpty()) {
            store->rollback();
            error = refused;
            return Ending::Refused;
        }
    }
    if (failure.isValid()) {
        return afterFailure(failure, error);
    }
    store->notify();
    failure = store->commit();
    return failure.isValid() ? settle(last, failure, error) : Ending::Done;
}

Ledger::Core::Ending Ledger::Core::afterFailure(const QSqlError& failure, QString& error)
{
    error = store->sentenceFor(failure);
    const Store::Failure kind = store->failureOf(failure);
    store->rollback();
    if (kind == Store::Failure::Lost) {
        const QString fault = store->open();
        error = fault.isEmpty() ? error : fault;
        return fault.isEmpty() ? Ending::Again : Ending::Failed;
    }
    return kind == Store::Failure::Conflict ? Ending::Again : Ending::Failed;
}

/// A commit that was answered by an error may yet stand. Nothing is said before the ledger was asked: the
/// last entry that the change appended is there, or nothing of it is.
Ledger::Core::Ending Ledger::Core::settle(const AuditEntry& last, const QSqlError& failure, QString& error)
{
    const Store::Failure kind = store->failureOf(failure);
    if (kind == Store::Failure::Conflict) {
        return afterFailure(failure, error); // the server has said that it did not
    }
    const bool wasLost = kind == Store::Failure::Lost;
    error = store->sentenceFor(failure);
    const QString unsettled = store->settle();
    if (!unsettled.isEmpty()) {
        error = texts::outcomeUnknown(name(), unsettled);
        return Ending::Failed;
    }
    Statements statements(store->database(), &store->prepared());
    const bool stands = audit::stands(statements, last);
    if (statements.failed()) {
        error = texts::outcomeUnknown(name(), store->sentenceFor(statements.error()));
        return Ending::Failed;
    }
    if (stands) {
        error.clear();
    }
    const Ending ofNothing = wasLost ? Ending::Again : Ending::Failed;
    return stands ? Ending::Done : ofNothing;
}

QString textOf(const Limits& limits)
{
    QStringList parts{QStringLiteral("refuseUnpriced=%1").arg(limits.refusesUnpriced)};
    for (const Ceiling& ceiling : ceilings()) {
        const std::optional<Decimal>& value = limits.*ceiling.value;
        parts.append(QString::fromLatin1(ceiling.column) + QLatin1Char('=') +
                     (value ? value->text() : QString()));
    }
    return parts.join(QLatin1Char(' '));
}

QString textOf(const Verdict& verdict)
{
    const auto findings = [](const QList<Finding>& list) {
        QJsonArray array;
        for (const Finding& finding : list) {
            QJsonArray rows;
            for (const int row : finding.rows) {
                rows.append(row);
            }
            array.append(QJsonObject{{QStringLiteral("rule"), finding.rule},
                                     {QStringLiteral("count"), finding.count},
                                     {QStringLiteral("text"), finding.text()},
                                     {QStringLiteral("rows"), rows}});
        }
        return array;
    };
    const QJsonObject json{{QStringLiteral("refusals"), findings(verdict.refusals)},
                           {QStringLiteral("warnings"), findings(verdict.warnings)},
                           {QStringLiteral("grossBuy"), verdict.grossBuy.text()},
                           {QStringLiteral("grossSell"), verdict.grossSell.text()}};
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

namespace operations {

void release(AccountDay& day, const QList<Instance>& withdrawn, bool isWholeBatch)
{
    for (const Instance& instance : withdrawn) {
        for (const Leg& leg : instance.legs) {
            day.buy -= leg.buys() ? leg.amount : Decimal();
            day.sell -= leg.sells() ? leg.amount : Decimal();
        }
    }
    day.instances -= withdrawn.size();
    day.batches -= isWholeBatch ? 1 : 0;
}

void releaseDay(Change& change, const Batch& batch, const QList<Instance>& withdrawn, bool isWholeBatch)
{
    if (change.store.keepsDays()) {
        return;
    }
    AccountDay day =
        selectDay(change.statements, batch.account, exchangeDay(batch.createdAt), change.store.forUpdate());
    release(day, withdrawn, isWholeBatch);
    saveDay(change.statements, day);
}

Outcome<Batch> batchNumbered(Change& change, qint64 number)
{
    const std::optional<Batch> found = selectBatch(change.statements, number);
    return found ? Outcome<Batch>{*found, QString()}
                 : Outcome<Batch>{{}, texts::noSuchBatch(change.store.name(), number)};
}

QString AccountsOfBatches::of(qint64 batch)
{
    const auto known = mAccounts.constFind(batch);
    if (known != mAccounts.constEnd()) {
        return *known;
    }
    return mAccounts[batch] = selectBatch(mStatements, batch).value_or(Batch()).account;
}

InstanceState startedState(Statements& statements, const QString& account)
{
    return hasGateway(statements, account) ? InstanceState::Queued : InstanceState::Running;
}

ChangedInstance changedInstance(const Instance& instance, InstanceState before)
{
    ChangedInstance changed{instance.id, {}, before, instance.state};
    for (const Leg& leg : instance.legs) {
        changed.symbols.append(leg.symbol);
    }
    return changed;
}

QString namesOf(const QList<Instance>& instances)
{
    QStringList names;
    for (const Instance& instance : instances) {
        names.append(instance.id.text());
    }
    return names.join(QLatin1Char(' '));
}

} // namespace operations

} // namespace ledger
