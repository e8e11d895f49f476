#include "desk/ledger/Ledger.h"

#include "desk/ledger/LedgerQueries.h"
#include "desk/ledger/LedgerSchema.h"
#include "desk/ledger/LedgerTexts.h"
#include "desk/ledger/OwnerLock.h"
#include "desk/ledger/SqliteFile.h"

#include <QDir>
#include <QFileInfo>

namespace ledger {

namespace {

/// The trading day of the exchanges begins at midnight in Shanghai.
constexpr int ExchangeUtcOffset = 8 * 3600;

QDateTime systemNow()
{
    return QDateTime::currentDateTimeUtc();
}

QDateTime startOfDay(const QDateTime& now)
{
    const QDate day = now.toOffsetFromUtc(ExchangeUtcOffset).date();
    return QDateTime(day, QTime(0, 0), Qt::OffsetFromUTC, ExchangeUtcOffset);
}

const QString WhereBatch = QStringLiteral("WHERE batch_number = ?");

bool isAllowed(InstanceState before, InstanceState after)
{
    switch (before) {
    case InstanceState::Created:
        return after == InstanceState::Running || after == InstanceState::Withdrawn;
    case InstanceState::Running:
        return after == InstanceState::Stopped || after == InstanceState::Finished;
    default:
        return false;
    }
}

/// What undo makes of each instance, without doing it.
UndoReport undoPlan(qint64 batch, const QList<Instance>& instances)
{
    UndoReport report;
    report.batch = batch;
    for (const Instance& instance : instances) {
        UndoneInstance undone{instance.id, {}, instance.state, instance.state};
        for (const Leg& leg : instance.legs) {
            undone.symbols.append(leg.symbol);
        }
        if (instance.state == InstanceState::Created) {
            undone.after = InstanceState::Withdrawn;
            report.withdrawn.append(undone);
        } else if (instance.state == InstanceState::Running) {
            undone.after = InstanceState::Stopped;
            report.stopped.append(undone);
        } else if (instance.state == InstanceState::Finished) {
            report.notReversed.append(undone);
        } else {
            ++report.alreadyUndone;
        }
    }
    report.state = report.notReversed.isEmpty() ? BatchState::Withdrawn : BatchState::PartlyReversed;
    return report;
}

Batch batchOfDraft(const BatchDraft& draft, qint64 number, const QDateTime& now)
{
    Batch batch;
    batch.number = number;
    batch.draftId = draft.id;
    batch.fileName = draft.fileName;
    batch.fileSha256 = draft.fileSha256;
    batch.account = draft.account;
    batch.strategy = draft.strategy;
    batch.rowCount = draft.instances.size();
    batch.expectedBuy = draft.expectedBuy;
    batch.expectedSell = draft.expectedSell;
    batch.createdAt = now.toUTC();
    batch.createdBy = draft.createdBy;
    return batch;
}

} // namespace

struct Ledger::Store {
    Store(const QString& path, const Options& chosen)
        : options(chosen), lock(path + QLatin1String(".lock")), file(path)
    {
    }

    QString open();
    QDateTime now() const { return options.clock ? options.clock() : systemNow(); }
    template <typename Value> Outcome<Value> outcome(const Value& value, const Statements& statements) const;

    const Options options;
    OwnerLock lock;
    SqliteFile file;

private:
    QString takeLock();
    QString openForWriting();
    QString openForReading();
    QString openNothing();
    static QString inspect(const QString& path);
};

template <typename Value>
Outcome<Value> Ledger::Store::outcome(const Value& value, const Statements& statements) const
{
    if (statements.failed()) {
        return {{}, file.sentenceFor(statements.error())};
    }
    return {value, QString()};
}

QString Ledger::Store::open()
{
    if (options.access == Access::Write) {
        return openForWriting();
    }
    const QFileInfo home(QFileInfo(file.path()).absolutePath());
    if (home.exists() && !home.isExecutable()) {
        return texts::unreadableFile(file.path()); // whether there is a ledger cannot be told
    }
    return SqliteFile::hasContent(file.path()) ? openForReading() : openNothing();
}

QString Ledger::Store::takeLock()
{
    if (!QDir().mkpath(QFileInfo(file.path()).absolutePath())) {
        return texts::readOnlyFile(file.path());
    }
    switch (lock.take()) {
    case OwnerLock::Answer::Taken:
        return QString();
    case OwnerLock::Answer::HeldByAnother:
        return texts::fileInUse(file.path(), lock.ownerProgram(), lock.ownerProcess());
    case OwnerLock::Answer::NotPermitted:
        return texts::readOnlyFile(file.path());
    case OwnerLock::Answer::Failed:
        break;
    }
    return texts::unreadableFile(file.path());
}

/// Looks at the file through a connection that cannot change it.
QString Ledger::Store::inspect(const QString& path)
{
    SqliteFile probe(path);
    QString fault = probe.open(SqliteFile::Mode::Read);
    if (fault.isEmpty()) {
        fault = probe.inspect();
    }
    const qint64 version = fault.isEmpty() ? versionOf(probe.database()) : 0;
    return version > schemaVersion() ? texts::newerFile(path, version, schemaVersion()) : fault;
}

QString Ledger::Store::openForWriting()
{
    QString fault = takeLock();
    if (fault.isEmpty() && SqliteFile::hasContent(file.path())) {
        fault = inspect(file.path());
    }
    if (fault.isEmpty()) {
        fault = file.open(SqliteFile::Mode::Write);
    }
    if (fault.isEmpty()) {
        fault = file.prepareForWriting(options.maxPages);
    }
    if (!fault.isEmpty() || versionOf(file.database()) == schemaVersion()) {
        return fault;
    }
    const QSqlError error = migrate(file.database());
    return error.isValid() ? file.sentenceFor(error) : QString();
}

QString Ledger::Store::openForReading()
{
    QString fault = inspect(file.path());
    if (fault.isEmpty()) {
        fault = file.open(SqliteFile::Mode::Read);
    }
    if (!fault.isEmpty()) {
        return fault;
    }
    const qint64 version = versionOf(file.database());
    return version < schemaVersion() ? texts::olderFile(file.path(), version) : QString();
}

QString Ledger::Store::openNothing()
{
    const QString fault = file.open(SqliteFile::Mode::Memory);
    const QSqlError error = fault.isEmpty() ? migrate(file.database()) : QSqlError();
    return error.isValid() ? file.sentenceFor(error) : fault;
}

Ledger::Ledger(std::unique_ptr<Store> store) : mStore(std::move(store)) {}

Ledger::~Ledger() = default;

QString Ledger::pathIn(const QString& home)
{
    return QDir(home).filePath(QStringLiteral("ledger.sqlite"));
}

Outcome<std::shared_ptr<Ledger>> Ledger::open(const QString& home)
{
    return open(home, Options());
}

Outcome<std::shared_ptr<Ledger>> Ledger::open(const QString& home, const Options& options)
{
    auto store = std::make_unique<Store>(pathIn(home), options);
    const QString fault = store->open();
    if (!fault.isEmpty()) {
        return {nullptr, fault};
    }
    return {std::shared_ptr<Ledger>(new Ledger(std::move(store))), QString()};
}

QString Ledger::path() const
{
    return mStore->file.path();
}

Outcome<Batch> Ledger::createBatch(const BatchDraft& draft)
{
    if (mStore->options.access == Access::Read) {
        return {{}, texts::openedForReading(path())};
    }
    if (draft.id.isNull() || draft.instances.isEmpty()) {
        return {{}, draft.id.isNull() ? texts::draftWithoutId() : texts::emptyDraft()};
    }
    Transaction transaction(mStore->file.database());
    if (!transaction.isOpen()) {
        return {{}, mStore->file.sentenceFor(transaction.error())};
    }
    Statements statements(mStore->file.database());
    const QList<Batch> known = selectBatches(statements, QStringLiteral("WHERE draft_id = ?"),
                                             {draft.id.toString(QUuid::WithoutBraces)});
    if (!known.isEmpty()) {
        return {known.first(), QString()};
    }
    const Batch batch = batchOfDraft(draft, takeNumber(statements), mStore->now());
    insertBatch(statements, batch);
    insertInstances(statements, batch, draft.instances);
    insertTable(statements, batch.number, draft.table);
    if (!statements.failed() && !transaction.commit()) {
        return {{}, mStore->file.sentenceFor(transaction.error())};
    }
    return mStore->outcome(batch, statements);
}

Outcome<QList<Batch>> Ledger::batches() const
{
    Statements statements(mStore->file.database());
    return mStore->outcome(selectBatches(statements), statements);
}

Outcome<Batch> Ledger::batch(qint64 number) const
{
    Statements statements(mStore->file.database());
    const QList<Batch> found = selectBatches(statements, QStringLiteral("WHERE number = ?"), {number});
    if (!statements.failed() && found.isEmpty()) {
        return {{}, texts::noSuchBatch(path(), number)};
    }
    return mStore->outcome(found.value(0), statements);
}

Outcome<QList<Instance>> Ledger::instances(std::optional<qint64> batchNumber) const
{
    Statements statements(mStore->file.database());
    return mStore->outcome(batchNumber ? selectInstances(statements, WhereBatch, {*batchNumber})
                                       : selectInstances(statements),
                           statements);
}

Outcome<BatchTable> Ledger::tableOf(qint64 batchNumber) const
{
    const Outcome<Batch> found = batch(batchNumber);
    if (!found.ok()) {
        return {{}, found.error};
    }
    Statements statements(mStore->file.database());
    const std::optional<BatchTable> table = selectTable(statements, batchNumber);
    if (!statements.failed() && !table) {
        return {{}, texts::noTableKept(batchNumber)};
    }
    return mStore->outcome(table.value_or(BatchTable()), statements);
}

Outcome<QList<EarlierBatch>> Ledger::createdToday(const QString& account) const
{
    Statements statements(mStore->file.database());
    return mStore->outcome(selectEarlier(statements, account, startOfDay(mStore->now())), statements);
}

Outcome<UndoReport> Ledger::undo(qint64 batchNumber)
{
    if (mStore->options.access == Access::Read) {
        return {{}, texts::openedForReading(path())};
    }
    const Outcome<Batch> found = batch(batchNumber);
    if (!found.ok()) {
        return {{}, found.error};
    }
    Transaction transaction(mStore->file.database());
    Statements statements(mStore->file.database());
    const QDateTime now = mStore->now();
    const UndoReport report = undoPlan(batchNumber, selectInstances(statements, WhereBatch, {batchNumber}));
    updateInstanceStates(statements, batchNumber, InstanceState::Created, InstanceState::Withdrawn, now);
    updateInstanceStates(statements, batchNumber, InstanceState::Running, InstanceState::Stopped, now);
    updateBatchState(statements, batchNumber, report.state);
    if (!statements.failed() && !transaction.commit()) {
        return {{}, mStore->file.sentenceFor(transaction.error())};
    }
    return mStore->outcome(report, statements);
}

QString Ledger::changeState(const InstanceId& instance, InstanceState state)
{
    if (mStore->options.access == Access::Read) {
        return texts::openedForReading(path());
    }
    Transaction transaction(mStore->file.database());
    Statements statements(mStore->file.database());
    const QList<Instance> found = selectInstances(statements, WhereBatch + QLatin1String(" AND row_no = ?"),
                                                  {instance.batch, instance.row});
    if (!statements.failed() && found.isEmpty()) {
        return texts::noSuchInstance(instance.text());
    }
    if (!statements.failed() && !isAllowed(found.first().state, state)) {
        return texts::forbiddenChange(instance.text(), shownName(found.first().state), shownName(state));
    }
    updateInstanceState(statements, instance, state, mStore->now());
    if (statements.failed()) {
        return mStore->file.sentenceFor(statements.error());
    }
    return transaction.commit() ? QString() : mStore->file.sentenceFor(transaction.error());
}

} // namespace ledger
