#include "ledger/store/AuditTrail.h"

#include "ledger/store/BatchQueries.h"

#include <QCryptographicHash>

namespace ledger::audit {

namespace {

const QString Counter = QStringLiteral("last_audit");
constexpr int EntriesAtATime = 1000;

AuditEntry entryOf(const QSqlQuery& row)
{
    AuditEntry entry;
    entry.number = row.value(0).toLongLong();
    entry.at = column::timeOf(row.value(1));
    entry.by = row.value(2).toString();
    entry.program = row.value(3).toString();
    entry.what = row.value(4).toString();
    entry.subject = row.value(5).toString();
    entry.detail = row.value(6).toString();
    entry.hash = row.value(7).toString();
    return entry;
}

QString hashAt(Statements& statements, qint64 number)
{
    return number == 0
               ? genesis()
               : statements.single(QStringLiteral("SELECT hash FROM audit_entry WHERE number = ?"), {number})
                     .toString();
}

} // namespace

QString genesis()
{
    static const QString hash =
        QString::fromLatin1(QCryptographicHash::hash("algodesk audit 1", QCryptographicHash::Sha256).toHex());
    return hash;
}

/// Each part is preceded by its length, so that no two entries have the same parts in a row.
QString hashOf(const QString& before, const AuditEntry& entry)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString& part :
         {before, QString::number(entry.number), QString::number(entry.at.toMSecsSinceEpoch()), entry.by,
          entry.program, entry.what, entry.subject, entry.detail}) {
        const QByteArray bytes = part.toUtf8();
        hash.addData(QByteArray::number(bytes.size()) + ':' + bytes);
    }
    return QString::fromLatin1(hash.result().toHex());
}

void append(Statements& statements, AuditEntry& entry)
{
    entry.number = takeNumber(statements, Counter);
    entry.hash = hashOf(hashAt(statements, entry.number - 1), entry);
    statements.run(
        QStringLiteral("INSERT INTO audit_entry (number, entered_at, entered_by, program, what, subject, "
                       "detail, hash) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
        {entry.number, column::time(entry.at), column::text(entry.by), column::text(entry.program),
         column::text(entry.what), column::text(entry.subject), column::text(entry.detail), entry.hash});
}

QList<AuditEntry> select(Statements& statements, qint64 from, int most)
{
    QSqlQuery query = statements.select(
        QStringLiteral("SELECT number, entered_at, entered_by, program, what, subject, detail, hash "
                       "FROM audit_entry WHERE number >= ? ORDER BY number LIMIT %1")
            .arg(most),
        {from});
    QList<AuditEntry> entries;
    while (statements.next(query)) {
        entries.append(entryOf(query));
    }
    return entries;
}

AuditVerdict verify(Statements& statements)
{
    AuditVerdict verdict;
    verdict.head = genesis();
    QList<AuditEntry> entries;
    do {
        entries = select(statements, verdict.entries + 1, EntriesAtATime);
        for (const AuditEntry& entry : qAsConst(entries)) {
            const bool isNext = entry.number == verdict.entries + 1;
            if (!isNext || entry.hash != hashOf(verdict.head, entry)) {
                verdict.broken = verdict.entries + 1;
                return verdict;
            }
            verdict.head = entry.hash;
            ++verdict.entries;
        }
    } while (!entries.isEmpty());
    const qint64 counted =
        statements.single(QStringLiteral("SELECT value FROM ledger_number WHERE name = ?"), {Counter})
            .toLongLong();
    if (counted != verdict.entries) {
        verdict.broken = verdict.entries + 1; // the tail was cut off
    }
    return verdict;
}

bool stands(Statements& statements, const AuditEntry& entry)
{
    return entry.number > 0 && hashAt(statements, entry.number) == entry.hash;
}

} // namespace ledger::audit
