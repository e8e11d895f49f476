#pragma once

#include "ledger/store/Store.h"

#include <QTemporaryDir>

namespace ledger {

class FileLock;

/// A ledger in one SQLite file, written by any number of programs of one machine.
class SqliteStore : public Store {
public:
    SqliteStore(const QString& path, const Settings& settings);
    ~SqliteStore() override;
    SqliteStore(const SqliteStore&) = delete;
    SqliteStore& operator=(const SqliteStore&) = delete;

    QString open() override;
    QSqlDatabase database() const override;
    QString name() const override { return mPath; }
    QSqlError begin(Begin kind) override;
    QSqlError commit() override;
    void rollback() override;
    QString settle() override;
    Failure failureOf(const QSqlError& error) const override;
    QString sentenceFor(const QSqlError& error) const override;
    QSqlError insertRows(const NewRows& rows) override;
    QString decimalType() const override { return QStringLiteral("TEXT"); }
    QString listOf(const QString& column) const override
    {
        return QStringLiteral("group_concat(%1)").arg(column);
    }
    QString forUpdate() const override { return QString(); }
    void notify() override {} // whoever looks asks Ledger::changeCount()
    std::unique_ptr<AccountClaim> claim(const QStringList& accounts, QString& holder) override;
    std::optional<bool> isClaimed(const QString& account) const override;
    QString verify() override;
    QString backup(const QString& file) override;
    QString vacuum() override;
    /// Moves all of the log into the file, which only works where nobody else has it open. A file that is too
    /// damaged for that keeps its log.
    QString closeLog();

private:
    QString claimFile(const QString& account) const;
    QString openForWriting();
    QString openForReading();
    QString openAsStranger();
    QString openCopy();
    QString openNothing();
    QString connectTo(const QString& file, const QString& options);
    void disconnect();
    QString prepareFolder() const;
    QString prepareFile() const;
    QString inspectHeader() const;
    QString inspect(qint64& version) const;
    QString configure() const;
    QString migrate(qint64 from) const;
    QString waitOptions() const;
    QSqlError run(const QStringList& statements) const;

    const QString mPath;
    const Settings mSettings;
    const QString mConnection;
    std::unique_ptr<QTemporaryDir> mCopy; ///< of a reader that may leave nothing beside the file
};

} // namespace ledger
