#pragma once

#include "ledger/guard/Guard.h"
#include "ledger/records/Records.h"
#include "ledger/store/Address.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace ledger {

/// Now; tests set their own.
using Clock = std::function<QDateTime()>;

/// What creating a batch is held against, inside its transaction.
struct CreationTerms {
    Limits limits;
    Verdict verdict; ///< of the guard: kept for the person who approves
    /// Batches of which whoever confirms has been told that they hold the same; another one refuses. Absent:
    /// nobody was asked, and nothing is compared.
    std::optional<QSet<qint64>> knownDuplicates;
    /// Withdrawn in the same transaction: both or neither. Refuses where anything of it may have been sent.
    std::optional<qint64> replaces;
};

/// Instances by their names, or those of a batch.
struct Selection {
    QList<InstanceId> ids;
    std::optional<qint64> batch; ///< of which those are taken that it applies to
    /// Of those that are named what can be changed is; the others are answered with why not
    /// (ChangedInstance::refusal). Else all are changed or none.
    bool isEachByItself = false;
};

/// All batches ever created, and their instances: an SQLite file, or a database on a server.
///
///     auto opened = Ledger::open(Address::ofFile(Ledger::pathIn(home)));
///     if (!opened.ok()) { … opened.error … }
///     Outcome<Batch> created = opened.value->createBatch(draft);
///
/// Every change is one transaction that also appends its entry to the audit trail: killed at any moment, the
/// ledger holds it whole or not at all. An answer is only given where the outcome is known: after a commit
/// that failed the ledger is read again. Any number of programs may read and write side by side. Errors are
/// Chinese sentences that name the ledger. One that is damaged, foreign, or of a newer program is left as it
/// is. One thread per object.
class Ledger {
public:
    enum class Access {
        Write, ///< makes the ledger where there is none
        Read,  ///< changes nothing; where there is no file, an empty ledger
    };

    struct Options {
        Access access = Access::Write;
        Clock clock;         ///< null: the system's
        QString user;        ///< who changes it; empty: the operating system's user
        QString program;     ///< with its version; empty: the application's
        int waitSeconds = 5; ///< for another program's change
        int maxPages = 0;    ///< most pages of a file, for a disk that is full; 0: unlimited
    };

    static QString pathIn(const QString& home);
    static Outcome<std::shared_ptr<Ledger>> open(const Address& address);
    static Outcome<std::shared_ptr<Ledger>> open(const Address& address, const Options& options);
    ~Ledger();
    Ledger(const Ledger&) = delete;
    Ledger& operator=(const Ledger&) = delete;

    QString path() const; ///< Address::shown()
    QDate today() const;  ///< of the exchanges (UTC+8)

    /// Waits while another program changes the ledger; an error where it still does after
    /// Options::waitSeconds.
    Outcome<void> awaitTurn();

    // Creating.

    /// What the ledger holds against a draft now, or would once the batch that it replaces was withdrawn; an
    /// error where that one cannot be (CreationTerms::replaces).
    Outcome<Standing> standingOf(const BatchDraft& draft, std::optional<qint64> replaces = {}) const;
    /// All instances of the draft or none. A draft whose id is known already gives the batch that it made.
    /// What the ledger refuses (a halt, a ceiling of the day, a duplicate nobody was told of) is in the
    /// error, and in `refusals` where that is given. From Limits::approvalAmount on the batch waits.
    Outcome<Batch> createBatch(const BatchDraft& draft, const CreationTerms& terms = {},
                               QList<Finding>* refusals = nullptr);
    /// The batch that a draft made; nothing where it made none. An empty account: not known.
    Outcome<std::optional<Batch>> batchOfDraft(const QUuid& draft, const QString& account = {}) const;

    // Looking.

    Outcome<Batch> batch(qint64 number) const;
    /// Newest first, those before a number.
    Outcome<QList<Batch>> batchesBefore(std::optional<qint64> number, int most = 200) const;
    /// Of one batch, in order of rows.
    Outcome<QList<Instance>> instancesOf(qint64 batch) const;
    /// Newest batch first, each in the order of its rows; those behind one.
    Outcome<QList<Instance>> instancesBehind(std::optional<InstanceId> id, int most = 200) const;
    /// All, oldest first, a page in memory at a time; `take` may end it by answering false.
    Outcome<void> eachBatch(const std::function<bool(const Batch&)>& take) const;
    Outcome<void> eachBatchOfDay(const QDate& day, const std::function<bool(const Batch&)>& take) const;
    Outcome<void> eachInstance(const std::function<bool(const Instance&)>& take,
                               std::optional<qint64> ofBatch = std::nullopt) const;
    /// How many instances there are in each state.
    Outcome<QMap<InstanceState, qint64>> counts(std::optional<qint64> batch = std::nullopt) const;
    Outcome<qint64> countIn(InstanceState state) const;
    /// The same of each of some batches.
    Outcome<QMap<qint64, QMap<InstanceState, qint64>>> countsOf(const QList<qint64>& batches) const;
    /// The table that a batch was imported from; an error where the batch is older than such tables.
    Outcome<BatchTable> tableOf(qint64 batch) const;
    Outcome<Status> status() const;
    /// Those that registered, with what has become of them.
    Outcome<QList<Gateway>> gateways() const;
    /// What gateways said and heard: the newest, at most so many lots of them, behind an audit entry; oldest
    /// first.
    Outcome<QList<WireMessage>> wireMessages(qint64 behind, int mostLots) const;
    /// What gateways heard that changed nothing: newest first.
    Outcome<QList<StrayReport>> strays(int most = 200) const;
    /// Moves when anything was changed, by whatever program: cheap to ask.
    Outcome<qint64> changeCount() const;
    /// Calls back, from the event loop of this thread, when another program has changed something: a hint
    /// that may be lost, and comes from a server alone. Ask changeCount() in any case.
    void listen(const std::function<void()>& changed);

    // Halting, approving.

    /// An empty account or "*": all. One that holds already keeps its first reason.
    Outcome<void> halt(const QString& account, const QString& reason);
    Outcome<void> resume(const QString& account, const QString& reason);
    Outcome<Approval> approvalOf(qint64 batch) const;
    /// `limits` are those in force now: others than those that the batch was judged by let it lapse.
    Outcome<Batch> approve(qint64 batch, const Limits& limits);
    Outcome<Batch> refuse(qint64 batch, const QString& reason);
    /// The ceilings that the store itself holds against every program, in place of those before: risk's
    /// matter, and only of a ledger on a server. Of a file the programs hold those of limits.csv.
    Outcome<void> setCeilings(const QList<LimitScope>& scopes);

    // Instances. Where one cannot be changed, none is.

    Outcome<QList<ChangedInstance>> start(const Selection& selection);
    Outcome<QList<ChangedInstance>> stop(const Selection& selection);
    Outcome<QList<ChangedInstance>> withdraw(const Selection& selection);
    /// What is unknown, by a person who has asked the broker.
    Outcome<ChangedInstance> settle(const InstanceId& instance, InstanceState state, const QString& reason);
    /// Withdraws what has not been sent, stops what runs, and lists what is over. Harmless when repeated. The
    /// batch is withdrawn only where nothing of it was ever sent.
    Outcome<UndoReport> undo(qint64 batch);
    /// What the market did, where no gateway tells.
    Outcome<void> changeState(const InstanceId& instance, InstanceState state);

    // Keeping.

    /// From an entry on, oldest first.
    Outcome<QList<AuditEntry>> audit(qint64 from = 1, int most = 1000) const;
    Outcome<AuditVerdict> verifyAudit() const;
    /// Reads everything: whether the store itself is sound. An empty text, or what is wrong.
    QString verify() const;
    /// A consistent copy in a new file, while others write.
    Outcome<void> backup(const QString& file) const;
    Outcome<void> vacuum();

private:
    friend class Outbox;
    struct Core;
    explicit Ledger(std::unique_ptr<Core> core);

    std::unique_ptr<Core> mCore;
};

/// Puts a backup in the place of a ledger that nobody has open; the old one is kept beside it.
Outcome<void> restoreLedger(const QString& backup, const QString& path);

} // namespace ledger
