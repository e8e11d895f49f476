#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>

/// All that is SQLite's own about the ledger: how the file is opened, told from other files, and checked. The
/// statements elsewhere run on other databases as well.
namespace ledger {

class SqliteFile {
public:
    enum class Mode { Write, Read, Memory };

    explicit SqliteFile(const QString& path);
    /// Closes the file.
    ~SqliteFile();
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;

    /// Each returns an empty text, or the sentence that says what is wrong.
    QString open(Mode mode);
    /// Whether the open file is a sound ledger. An empty one is, too.
    QString inspect() const;
    /// Marks the file as a ledger, and turns on the write-ahead log.
    QString prepareForWriting(int maxPages) const;

    QSqlDatabase database() const;
    QString path() const { return mPath; }
    /// What an error of any statement means to the user.
    QString sentenceFor(const QSqlError& error) const;

    /// Whether there is anything at that path: a file killed before its first byte is none.
    static bool hasContent(const QString& path);

private:
    QString inspectHeader() const;

    const QString mPath;
    const QString mConnection;
};

/// Ends with a rollback unless it was committed.
class Transaction {
public:
    explicit Transaction(const QSqlDatabase& database) : mDatabase(database), mOpen(mDatabase.transaction())
    {
    }
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    bool isOpen() const { return mOpen; }
    bool commit();
    QSqlError error() const { return mDatabase.lastError(); }

private:
    QSqlDatabase mDatabase;
    bool mOpen;
};

} // namespace ledger
