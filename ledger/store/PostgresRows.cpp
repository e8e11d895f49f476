// New rows go to a server by COPY: it neither parses a statement of a megabyte nor plans it, and its triggers
// and constraints look at the rows all the same.

#include "ledger/store/NewRows.h"
#include "ledger/store/PostgresStore.h"

#include <libpq-fe.h>

#include <QSqlDriver>

#include <memory>

namespace ledger {

namespace {

struct Clearer {
    void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, Clearer>;

PGconn* postgresOf(const QSqlDatabase& database)
{
    const QVariant handle = database.driver()->handle();
    return qstrcmp(handle.typeName(), "PGconn*") == 0 ? *static_cast<PGconn* const*>(handle.constData())
                                                      : nullptr;
}

/// Of a connection that was lost there is no code.
QSqlError errorOf(PGconn* connection, const PGresult* result)
{
    return QSqlError(QString(), QString::fromUtf8(PQerrorMessage(connection)), QSqlError::StatementError,
                     QString::fromLatin1(PQresultErrorField(result, PG_DIAG_SQLSTATE)));
}

/// As COPY reads it: cells with a tab behind them, the last with a line end, and what they hold of either
/// behind a backslash.
void appendCell(QByteArray& lines, NewRows::Cell cell, char end)
{
    const int before = lines.size();
    lines.resize(before + 2 * cell.size + 1);
    char* to = lines.data() + before;
    for (int i = 0; i < cell.size; ++i) {
        const char byte = cell.text[i];
        switch (byte) {
        case '\\':
        case '\t':
        case '\n':
        case '\r':
            *to++ = '\\';
            *to++ = byte == '\t' ? 't' : byte == '\n' ? 'n' : byte == '\r' ? 'r' : byte;
            break;
        default:
            *to++ = byte;
        }
    }
    *to++ = end;
    lines.resize(static_cast<int>(to - lines.constData()));
}

QByteArray linesOf(const NewRows& rows)
{
    const int last = rows.columns().size() - 1;
    QByteArray lines;
    lines.reserve(2 * rows.bytes());
    for (int row = 0; row < rows.count(); ++row) {
        for (int column = 0; column <= last; ++column) {
            appendCell(lines, rows.cell(row, column), column == last ? '\n' : '\t');
        }
    }
    return lines;
}

/// The answer to what was sent, read to its end: the first error of it.
QSqlError answerOf(PGconn* connection)
{
    QSqlError error;
    for (Result result(PQgetResult(connection)); result; result.reset(PQgetResult(connection))) {
        if (PQresultStatus(result.get()) != PGRES_COMMAND_OK && !error.isValid()) {
            error = errorOf(connection, result.get());
        }
    }
    return error;
}

} // namespace

QSqlError PostgresStore::insertRows(const NewRows& rows)
{
    PGconn* const connection = postgresOf(database());
    if (connection == nullptr) {
        return QSqlError(QString(), QStringLiteral("not connected"), QSqlError::ConnectionError);
    }
    const QString copy =
        QStringLiteral("COPY %1 (%2) FROM STDIN").arg(rows.table(), rows.columns().join(QLatin1Char(',')));
    const Result begun(PQexec(connection, copy.toUtf8().constData()));
    if (PQresultStatus(begun.get()) != PGRES_COPY_IN) {
        return errorOf(connection, begun.get());
    }
    const QByteArray lines = linesOf(rows);
    const bool isSent = PQputCopyData(connection, lines.constData(), lines.size()) == 1;
    const bool isEnded = PQputCopyEnd(connection, isSent ? nullptr : "not sent") == 1;
    const QSqlError error = answerOf(connection);
    return error.isValid() || (isSent && isEnded) ? error : errorOf(connection, nullptr);
}

} // namespace ledger
