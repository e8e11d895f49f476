#pragma once

#include "ledger/Ledger.h"
#include "ledger/LedgerTexts.h"
#include "ledger/store/LedgerQueries.h"
#include "ledger/store/OwnerLock.h"
#include "ledger/store/SqliteFile.h"

namespace ledger {

/// The open file of a ledger. For the ledger's own files.
struct Ledger::Store {
    Store(const QString& path, const Options& chosen)
        : options(chosen), lock(path + QLatin1String(".lock")), file(path)
    {
    }

    /// Empty, or the sentence that says what is wrong.
    QString open();

    /// A value that was read, or the sentence for the statements' error.
    template <typename Value> Outcome<Value> outcome(const Value& value, const Statements& statements) const
    {
        return statements.failed() ? Outcome<Value>{{}, file.sentenceFor(statements.error())}
                                   : Outcome<Value>{value, QString()};
    }

    /// What `body(statements)` does, in one transaction: an error of it or of a statement undoes all.
    template <typename Value, typename Body> Outcome<Value> change(Body body)
    {
        if (options.access == Access::Read) {
            return {{}, texts::openedForReading(file.path())};
        }
        Transaction transaction(file.database());
        if (!transaction.isOpen()) {
            return {{}, file.sentenceFor(transaction.error())};
        }
        Statements statements(file.database());
        const Outcome<Value> done = body(statements);
        if (statements.failed() || !done.ok()) {
            return statements.failed() ? outcome(Value(), statements) : done;
        }
        return transaction.commit() ? done : Outcome<Value>{{}, file.sentenceFor(transaction.error())};
    }

    const Options options;
    OwnerLock lock;
    SqliteFile file;

private:
    QString takeLock();
    QString openForWriting();
    QString openForReading();
    QString openNothing();
    static QString inspect(const QString& path, qint64& version);
};

} // namespace ledger
