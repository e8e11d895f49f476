#pragma once

#include "ledger/Ledger.h"
#include "ledger/LedgerTexts.h"
#include "ledger/operations/Change.h"

namespace ledger {

/// The open ledger. For the ledger's own files.
struct Ledger::Core {
    Core(const Address& address, const Options& chosen);

    /// Empty, or the sentence that says what is wrong.
    QString open();
    QDateTime now() const;
    QString name() const { return store->name(); }
    QString user() const; ///< who changes it

    /// What `body(Statements&)` reads, of one state of the ledger.
    template <typename Value, typename Body> Outcome<Value> read(Body body) const
    {
        Outcome<Value> done;
        const QString error = runRead([&](Statements& statements) {
            done = body(statements);
            return done.error;
        });
        return error.isEmpty() ? done : Outcome<Value>{{}, error};
    }

    /// What `body(Change&)` does, in one transaction: an error of it or of a statement undoes all. It may run
    /// again, where another program's change came between.
    template <typename Value, typename Body> Outcome<Value> change(Body body)
    {
        Outcome<Value> done;
        const QString error = runChange([&](Change& change) {
            done = body(change);
            return done.error;
        });
        return error.isEmpty() ? done : Outcome<Value>{{}, error};
    }

    const Options options;
    std::unique_ptr<Store> store; ///< null: there is none for such an address

private:
    using ReadBody = std::function<QString(Statements&)>;
    using ChangeBody = std::function<QString(Change&)>;

    enum class Ending { Done, Refused, Failed, Again };

    QString reopenIfClosed() const;
    QString runRead(const ReadBody& body) const;
    QString runChange(const ChangeBody& body);
    Ending attempt(const ChangeBody& body, QString& error);
    Ending settle(const AuditEntry& last, const QSqlError& failure, QString& error);
    Ending afterFailure(const QSqlError& failure, QString& error);
};

/// Limits of an account as one text, for the digest of what is approved.
QString textOf(const Limits& limits);
/// A verdict as JSON text.
QString textOf(const Verdict& verdict);

namespace operations {

/// Takes what is withdrawn out of the sums of a day.
void release(AccountDay& day, const QList<Instance>& withdrawn, bool isWholeBatch);
/// Takes what was withdrawn out of what its account did on the day of the batch.
void releaseDay(Change& change, const Batch& batch, const QList<Instance>& withdrawn, bool isWholeBatch);
/// Fails with a sentence where there is no such batch.
Outcome<Batch> batchNumbered(Change& change, qint64 number);
/// A batch whose place another one can take, and its instances once they are withdrawn.
struct Replaceable {
    Batch batch;
    QList<Instance> withdrawn;
};
/// Fails with a sentence where it is not of that account, was taken back already, or where anything of it may
/// have been sent.
Outcome<Replaceable> replaceable(Statements& statements, const Store& store, qint64 number,
                                 const QString& account);
/// Withdraws it.
Outcome<Replaceable> withdrawForAnother(Change& change, qint64 number, const QString& account);
/// The accounts of batches that are known by their numbers alone, each asked for once.
class AccountsOfBatches {
public:
    explicit AccountsOfBatches(Statements& statements) : mStatements(statements) {}

    QString of(qint64 batch); ///< empty: there is no such batch
    void know(qint64 batch, const QString& account) { mAccounts[batch] = account; }

private:
    Statements& mStatements;
    QHash<qint64, QString> mAccounts;
};

/// The state that a started instance of the account is in.
InstanceState startedState(Statements& statements, const QString& account);
ChangedInstance changedInstance(const Instance& instance, InstanceState before);
/// "12-1 12-2 …", as an audit entry lists instances.
QString namesOf(const QList<Instance>& instances);

} // namespace operations

} // namespace ledger
