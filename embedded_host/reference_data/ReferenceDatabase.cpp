#include "embedded_host/reference_data/ReferenceDatabase.h"

#include "embedded_host/reference_data/ReferenceColumns.h"
#include "embedded_host/reference_data/ReferenceFile.h"
#include "embedded_host/reference_data/ReferenceFolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

namespace {

Q_LOGGING_CATEGORY(lcReference, "algo.host.reference")

/// Marks the file as ours in its header ("ABRD").
constexpr int ApplicationId = 0x41425244;

/// One line per file that is there: name, size, SHA-256. One that cannot be read has a line too, so that it
/// never counts as absent.
QString fingerprintOf(const QString& folder)
{
    QStringList lines;
    for (const QString& name : referenceFileNames()) {
        const QString path = QDir(folder).filePath(name);
        if (!isReferenceFileThere(path)) {
            continue;
        }
        const Outcome<QByteArray> file = readReferenceFile(path, reference_limits::CsvBytes);
        const QByteArray hash = QCryptographicHash::hash(file.value, QCryptographicHash::Sha256);
        const QString digest = file.ok() ? QString::fromLatin1(hash.toHex()) : QStringLiteral("unreadable");
        lines.append(QStringLiteral("%1 %2 %3").arg(name).arg(file.value.size()).arg(digest));
    }
    return lines.join(QLatin1Char('\n'));
}

/// An open SQLite file under a connection name of its own, closed with the object.
class Connection {
public:
    explicit Connection(const QString& path) : mName(QUuid::createUuid().toString())
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), mName);
        database.setDatabaseName(path);
        database.open();
    }

    ~Connection() { QSqlDatabase::removeDatabase(mName); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    QSqlDatabase database() const { return QSqlDatabase::database(mName, false); }

    bool run(const QString& statement) const
    {
        QSqlQuery query(database());
        if (query.exec(statement)) {
            return true;
        }
        qCInfo(lcReference) << "database:" << statement << query.lastError().text();
        return false;
    }

    /// The first field of the first row; invalid when there is none.
    QVariant single(const QString& statement) const
    {
        QSqlQuery query(database());
        return query.exec(statement) && query.next() ? query.value(0) : QVariant();
    }

private:
    const QString mName;
};

template <typename Table> QStringList columnNames(const Table& table, bool keysOnly = false)
{
    QStringList names;
    for (const auto& column : table.columns) {
        using Column = std::decay_t<decltype(column)>;
        if (!keysOnly || column.kind == Column::Key) {
            names.append(column.name);
        }
    }
    return names;
}

const QString Comma = QStringLiteral(", ");

// Reading.

bool isOfFolder(const Connection& connection, const QString& fingerprint)
{
    return connection.single(QStringLiteral("PRAGMA application_id")).toInt() == ApplicationId &&
           connection.single(QStringLiteral("PRAGMA user_version")).toInt() ==
               ReferenceDatabase::SchemaVersion &&
           connection.single(QStringLiteral("SELECT fingerprint FROM folder")).toString() == fingerprint;
}

template <typename Row> bool loadRow(const QSqlQuery& query, const ReferenceTable<Row>& table, Row& row)
{
    for (int i = 0; i < table.columns.size(); ++i) {
        const QString cell = query.value(i).toString();
        if (!cell.isEmpty() && !table.columns.at(i).read(row, cell).isEmpty()) {
            return false;
        }
    }
    return true;
}

template <typename Row>
bool loadTable(const Connection& connection, const ReferenceTable<Row>& table, QList<Row>& rows)
{
    QSqlQuery query(connection.database());
    query.setForwardOnly(true);
    const QString columns = columnNames(table).join(Comma);
    if (!query.exec(QStringLiteral("SELECT %1 FROM %2 ORDER BY rowid").arg(columns, table.name))) {
        return false;
    }
    while (query.next()) {
        Row row;
        if (!loadRow(query, table, row)) {
            return false;
        }
        rows.append(row);
    }
    return !query.lastError().isValid();
}

/// Nothing when the database is damaged, or was not made of a folder with that fingerprint.
std::optional<ReferenceTables> load(const QString& path, const QString& fingerprint)
{
    if (!QFileInfo::exists(path)) {
        return std::nullopt;
    }
    const Connection connection(path);
    ReferenceTables tables;
    const bool isSound =
        connection.database().isOpen() && isOfFolder(connection, fingerprint) &&
        forEachTable([&](const auto& table) { return loadTable(connection, table, tables.*table.rows); });
    if (!isSound) {
        return std::nullopt;
    }
    tables.everythingAllowed =
        connection.single(QStringLiteral("SELECT everything_allowed FROM folder")).toInt() != 0;
    return tables;
}

// Writing.

template <typename Row> bool createTable(const Connection& connection, const ReferenceTable<Row>& table)
{
    const bool isUnique = table.keys == ReferenceTable<Row>::Unique;
    const QString keys = columnNames(table, true).join(Comma);
    return connection.run(QStringLiteral("DROP TABLE IF EXISTS %1").arg(table.name)) &&
           connection.run(QStringLiteral("CREATE TABLE %1 (%2)")
                              .arg(table.name, columnNames(table).join(QLatin1String(" TEXT, ")) +
                                                   QLatin1String(" TEXT"))) &&
           connection.run(QStringLiteral("CREATE %1 INDEX %2_by_key ON %2 (%3)")
                              .arg(isUnique ? QStringLiteral("UNIQUE") : QString(), table.name, keys));
}

template <typename Row>
bool storeTable(const Connection& connection, const ReferenceTable<Row>& table, const QList<Row>& rows)
{
    QStringList places;
    for (int i = 0; i < table.columns.size(); ++i) {
        places.append(QStringLiteral("?"));
    }
    QSqlQuery query(connection.database());
    if (!createTable(connection, table) ||
        !query.prepare(QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(table.name, places.join(Comma)))) {
        return false;
    }
    for (const Row& row : rows) {
        for (int i = 0; i < table.columns.size(); ++i) {
            query.bindValue(i, table.columns.at(i).write(row));
        }
        if (!query.exec()) {
            return false;
        }
    }
    return true;
}

bool storeFolderRow(const Connection& connection, const QString& fingerprint, bool everythingAllowed)
{
    QSqlQuery query(connection.database());
    query.prepare(QStringLiteral("INSERT INTO folder VALUES (?, ?)"));
    query.bindValue(0, fingerprint);
    query.bindValue(1, everythingAllowed ? 1 : 0);
    return query.exec();
}

bool storeAll(const Connection& connection, const ReferenceTables& tables, const QString& fingerprint)
{
    return connection.run(QStringLiteral("PRAGMA application_id = %1").arg(ApplicationId)) &&
           connection.run(QStringLiteral("PRAGMA user_version = %1").arg(ReferenceDatabase::SchemaVersion)) &&
           connection.run(QStringLiteral("DROP TABLE IF EXISTS folder")) &&
           connection.run(
               QStringLiteral("CREATE TABLE folder (fingerprint TEXT, everything_allowed INTEGER)")) &&
           forEachTable(
               [&](const auto& table) { return storeTable(connection, table, tables.*table.rows); }) &&
           connection.run(QStringLiteral("CREATE INDEX securities_by_code ON securities (post, code)")) &&
           storeFolderRow(connection, fingerprint, tables.everythingAllowed);
}

bool store(const QString& path, const ReferenceTables& tables, const QString& fingerprint)
{
    const Connection connection(path);
    QSqlDatabase database = connection.database();
    if (!database.isOpen()) {
        return false;
    }
    const int owner = connection.single(QStringLiteral("PRAGMA application_id")).toInt();
    const bool isNew = connection.single(QStringLiteral("SELECT count(*) FROM sqlite_master")) == QVariant(0);
    if ((owner != ApplicationId && !isNew) || !database.transaction()) {
        return false;
    }
    if (storeAll(connection, tables, fingerprint) && database.commit()) {
        return true;
    }
    database.rollback();
    return false;
}

void removeDatabase(const QString& path)
{
    for (const char* ending : {"", "-journal", "-wal", "-shm"}) {
        QFile::remove(path + QLatin1String(ending));
    }
}

} // namespace

std::optional<ReferenceTables> ReferenceDatabase::refresh(const QString& folder, const QString& databasePath,
                                                          QString& error)
{
    error.clear();
    const QString fingerprint = fingerprintOf(folder);
    std::optional<ReferenceTables> tables = load(databasePath, fingerprint);
    if (tables) {
        return tables;
    }
    tables = readReferenceFolder(folder, error);
    if (!tables) {
        return std::nullopt;
    }
    QDir().mkpath(QFileInfo(databasePath).absolutePath());
    if (!store(databasePath, *tables, fingerprint)) {
        removeDatabase(databasePath);
        if (!store(databasePath, *tables, fingerprint)) {
            qCInfo(lcReference) << "the reference database cannot be written:" << databasePath;
        }
    }
    return tables;
}
