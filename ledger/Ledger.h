#pragma once

#include "ledger/guard/Guard.h"
#include "ledger/records/Records.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace ledger {

/// Now; tests set their own.
using Clock = std::function<QDateTime()>;

/// All batches ever created, and their instances: one SQLite file in the home.
///
///     auto opened = Ledger::open(home);
///     if (!opened.ok()) { … opened.error … }
///     Outcome<Batch> created = opened.value->createBatch(draft);
///
/// Every change is one transaction: killed at any moment, the ledger holds it whole or not at all. One
/// process at a time may write; any number may read meanwhile. Errors are Chinese sentences that name the
/// file. A file that is damaged, foreign, or of a newer program is left as it is. One thread per object.
class Ledger {
public:
    enum class Access {
        Write, ///< makes the file where there is none; holds the lock file beside it while it lives
        Read,  ///< changes nothing; where there is no file, an empty ledger
    };

    struct Options {
        Access access = Access::Write;
        Clock clock;      ///< null: the system's
        int maxPages = 0; ///< most pages of the file, for a disk that is full; 0: unlimited
    };

    static QString pathIn(const QString& home);
    static Outcome<std::shared_ptr<Ledger>> open(const QString& home);
    static Outcome<std::shared_ptr<Ledger>> open(const QString& home, const Options& options);
    ~Ledger();
    Ledger(const Ledger&) = delete;
    Ledger& operator=(const Ledger&) = delete;

    QString path() const;

    /// All instances of the draft or none. A draft whose id is known already gives the batch that it made.
    Outcome<Batch> createBatch(const BatchDraft& draft);

    /// Newest last.
    Outcome<QList<Batch>> batches() const;
    Outcome<Batch> batch(qint64 number) const;
    /// Of one batch, or of all; in order of batch and row.
    Outcome<QList<Instance>> instances(std::optional<qint64> batch = std::nullopt) const;
    /// The table that a batch was imported from; an error where the batch is older than such tables.
    Outcome<BatchTable> tableOf(qint64 batch) const;
    /// Batches of an account created today (the exchanges' day, UTC+8) that were not taken back.
    Outcome<QList<EarlierBatch>> createdToday(const QString& account) const;

    /// Withdraws what has not started, stops what runs, and lists what is finished. Harmless when repeated.
    /// The batch is withdrawn only where nothing of it ever ran.
    Outcome<UndoReport> undo(qint64 batch);

    /// created -> running -> finished or stopped; created -> withdrawn. Empty, or what forbids it.
    QString changeState(const InstanceId& instance, InstanceState state);

private:
    struct Store;
    explicit Ledger(std::unique_ptr<Store> store);

    std::unique_ptr<Store> mStore;
};

} // namespace ledger
