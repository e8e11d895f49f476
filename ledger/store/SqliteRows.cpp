// New rows go to SQLite by its own functions: of each cell the bytes that are there already, while Qt's
// driver takes a QVariant and SQLite would translate its text.

#include "ledger/store/NewRows.h"
#include "ledger/store/SqliteStore.h"

#include <sqlite3.h>

#include <QSqlDriver>

#include <algorithm>
#include <memory>

namespace ledger {

namespace {

struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;

sqlite3* sqliteOf(const QSqlDatabase& database)
{
    const QVariant handle = database.driver()->handle();
    return qstrcmp(handle.typeName(), "sqlite3*") == 0 ? *static_cast<sqlite3* const*>(handle.constData())
                                                       : nullptr;
}

QSqlError errorOf(sqlite3* connection)
{
    return QSqlError(QString(), QString::fromUtf8(sqlite3_errmsg(connection)), QSqlError::StatementError,
                     QString::number(sqlite3_extended_errcode(connection)));
}

/// Rows of one statement: more of them find their place in the indexes by the row before.
constexpr int RowsOfGo = 50;

QByteArray insertionOf(const NewRows& rows, int count)
{
    const QString cells = QStringLiteral("?,").repeated(rows.columns().size());
    const QString row = QLatin1Char('(') + cells.leftRef(cells.size() - 1) + QLatin1String("),");
    const QString all = row.repeated(count);
    return QStringLiteral("INSERT INTO %1 (%2) VALUES %3")
        .arg(rows.table(), rows.columns().join(QLatin1Char(',')), all.left(all.size() - 1))
        .toUtf8();
}

Statement compiled(sqlite3* connection, const QByteArray& text)
{
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection, text.constData(), text.size(), &statement, nullptr);
    return Statement(statement);
}

bool insert(sqlite3_stmt* statement, const NewRows& rows, int first, int count)
{
    int at = 0;
    for (int row = first; row < first + count; ++row) {
        for (int column = 0; column < rows.columns().size(); ++column) {
            const NewRows::Cell cell = rows.cell(row, column);
            sqlite3_bind_text(statement, ++at, cell.text, cell.size, SQLITE_STATIC);
        }
    }
    return sqlite3_step(statement) == SQLITE_DONE && sqlite3_reset(statement) == SQLITE_OK;
}

} // namespace

QSqlError SqliteStore::insertRows(const NewRows& rows)
{
    sqlite3* const connection = sqliteOf(database());
    if (connection == nullptr) {
        return QSqlError(QString(), QStringLiteral("not connected"), QSqlError::ConnectionError);
    }
    Statement statement;
    for (int row = 0; row < rows.count(); row += RowsOfGo) {
        const int count = std::min(RowsOfGo, rows.count() - row);
        if (row == 0 || count < RowsOfGo) {
            statement = compiled(connection, insertionOf(rows, count));
        }
        if (!statement || !insert(statement.get(), rows, row, count)) {
            return errorOf(connection);
        }
    }
    return QSqlError();
}

} // namespace ledger
