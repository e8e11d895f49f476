#pragma once

#include "ledger/store/Address.h"
#include "ledger/store/Statements.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

/// What is a dialect, and nothing else: each store is one file beside this one. The statements themselves are
/// standard SQL (Statements.h) and run on either.
namespace ledger {

class NewRows;

/// Accounts that one gateway serves, while it lives. The store's lock ends with the process.
class AccountClaim {
public:
    virtual ~AccountClaim() = default;
};

class Store {
public:
    enum class Mode { Write, Read };
    enum class Begin { Read, Write };
    enum class Failure {
        Final,    ///< trying again helps nothing
        Conflict, ///< another change came first: the transaction may be run again
        Lost,     ///< the connection: reconnect, then see what became of it
    };

    struct Settings {
        Mode mode = Mode::Write;
        int waitSeconds = 5;
        int maxPages = 0;
    };

    static std::unique_ptr<Store> make(const Address& address, const Settings& settings);
    virtual ~Store() = default;

    /// Opens, or opens again after a connection was lost. Tells a foreign, a damaged and an unreachable
    /// ledger apart; migrates an older one where it may write. Empty, or the sentence that says what is
    /// wrong.
    virtual QString open() = 0;
    virtual QSqlDatabase database() const = 0;
    /// What the open connection keeps prepared.
    PreparedStatements& prepared() { return mPrepared; }
    virtual QString name() const = 0; ///< as messages name it
    /// Who this is, by the store's own word; empty where it knows nobody, and the system's user stands in.
    virtual QString user() const { return QString(); }
    /// Whether the store itself keeps what accounts did in a day (account_day), so that nobody writes it.
    virtual bool keepsDays() const { return false; }
    /// Whether the store itself holds ceilings against every program (ledger_limit).
    virtual bool holdsCeilings() const { return false; }

    /// A transaction. Of Begin::Write no two run at the same time, or one of them ends in Failure::Conflict.
    virtual QSqlError begin(Begin kind) = 0;
    virtual QSqlError commit() = 0;
    virtual void rollback() = 0;
    /// After a commit that failed: opens anew and makes sure that what can be read now stays so. Empty, or a
    /// sentence where that cannot be had; then the outcome is not known.
    virtual QString settle() = 0;

    virtual Failure failureOf(const QSqlError& error) const = 0;
    virtual QString sentenceFor(const QSqlError& error) const = 0;

    /// Inserts rows into a table, as fast as the store can.
    virtual QSqlError insertRows(const NewRows& rows) = 0;

    /// The type of a column of exact decimals.
    virtual QString decimalType() const = 0;
    /// An aggregate: the whole numbers of a column as one text, with commas between them.
    virtual QString listOf(const QString& column) const = 0;
    /// Behind a SELECT of rows that the transaction is about to change.
    virtual QString forUpdate() const = 0;
    /// Tells other programs that something changed; at the end of a transaction.
    virtual void notify() = 0;
    /// Calls back, from the event loop, when another program has changed something: a hint that may be lost,
    /// also with the connection. False where the store has no such thing. Ask changeCount() in any case.
    virtual bool listen(const std::function<void()>&) { return false; }

    /// Around rows that are carried over from another ledger, in a transaction: what is checked of a change
    /// does not fit them.
    virtual QSqlError beginLoading(const QStringList& /*tables*/) { return {}; }
    virtual QSqlError endLoading(const QStringList& /*tables*/) { return {}; }

    /// Null, with `holder` as who has them, where another gateway has one of the accounts.
    virtual std::unique_ptr<AccountClaim> claim(const QStringList& accounts, QString& holder) = 0;
    /// Whether a gateway has an account now, "*": all of them in one claim. Nothing where whoever asks may
    /// not know. In a transaction or outside.
    virtual std::optional<bool> isClaimed(const QString& account) const = 0;

    /// Reads everything; empty, or what is wrong.
    virtual QString verify() = 0;
    virtual QString backup(const QString& file) = 0;
    virtual QString vacuum() = 0;

protected:
    PreparedStatements mPrepared; ///< cleared by whoever ends the connection, behind it
};

} // namespace ledger
