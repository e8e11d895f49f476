// Carrying a ledger over to another store.

#include "ledger/LedgerCopy.h"
#include "ledger/LedgerTexts.h"
#include "ledger/store/AuditTrail.h"
#include "ledger/store/NewRows.h"
#include "ledger/store/postgres/ServerTexts.h"
#include "ledger/store/PostgresStore.h"
#include "ledger/store/Schema.h"
#include "ledger/store/Statements.h"

#include <QCryptographicHash>
#include <QSet>
#include <QSqlRecord>

#include <array>

namespace ledger {

namespace {

const QString Numbers = QStringLiteral("ledger_number");
/// What a ledger that was ever used holds.
const QStringList TracesOfUse{QStringLiteral("batch"), QStringLiteral("audit_entry"), QStringLiteral("halt"),
                              QStringLiteral("gateway"), QStringLiteral("stray_report")};

/// Rows go over in pieces of this size.
constexpr int BytesOfGo = 1 << 20;

/// Rows of a table, whatever their order: the sum of the hashes of all.
struct TableSum {
    qint64 rows = 0;
    std::array<quint64, 4> sum{};

    void add(const QStringList& texts)
    {
        QCryptographicHash hash(QCryptographicHash::Sha256);
        for (const QString& text : texts) {
            const QByteArray bytes = text.toUtf8();
            hash.addData(QByteArray::number(bytes.size()) + ':' + bytes);
        }
        const QByteArray result = hash.result();
        for (size_t i = 0; i < sum.size(); ++i) {
            quint64 part = 0;
            memcpy(&part, result.constData() + i * sizeof part, sizeof part);
            sum[i] += part;
        }
        ++rows;
    }
    bool operator==(const TableSum& other) const { return rows == other.rows && sum == other.sum; }
};

QStringList columnsOf(Statements& statements, const QString& table)
{
    const QSqlQuery query = statements.select(QStringLiteral("SELECT * FROM %1 LIMIT 0").arg(table));
    QStringList columns;
    for (int i = 0; i < query.record().count(); ++i) {
        columns.append(query.record().fieldName(i));
    }
    return columns;
}

/// Decimals have one form, however a store writes them: 10 and 10.00 are the same.
QString textOf(const QVariant& value, bool isDecimal)
{
    return isDecimal ? column::decimalOf(value).text() : value.toString();
}

/// Reads a table; `take` sees the texts of each row.
template <typename Take>
void eachRow(Statements& statements, const QString& table, const QStringList& columns, Take take)
{
    static const QSet<QString> decimals = decimalColumns();
    QSqlQuery query =
        statements.select(QStringLiteral("SELECT %1 FROM %2").arg(columns.join(QLatin1Char(',')), table));
    while (statements.next(query)) {
        QStringList texts;
        for (int i = 0; i < columns.size(); ++i) {
            texts.append(textOf(query.value(i), decimals.contains(columns.at(i))));
        }
        take(texts);
    }
}

/// Copies a table; false where what is read again is not what was written.
bool copyTable(Statements& from, Statements& to, Store& target, const QString& table)
{
    const QStringList columns = columnsOf(from, table);
    NewRows rows(table, columns);
    TableSum written;
    eachRow(from, table, columns, [&](const QStringList& texts) {
        written.add(texts);
        for (const QString& text : texts) {
            rows << text;
        }
        if (rows.bytes() >= BytesOfGo) {
            insertRows(to, target, rows);
            rows.clear();
        }
    });
    insertRows(to, target, rows);
    TableSum read;
    eachRow(to, table, columns, [&](const QStringList& texts) { read.add(texts); });
    return written == read;
}

/// Counters go over, the schema's version and what a server adds stay.
void copyNumbers(Statements& from, Statements& to)
{
    eachRow(from, Numbers, {QStringLiteral("name"), QStringLiteral("value")}, [&](const QStringList& row) {
        if (row.first().startsWith(QLatin1String("last_"))) {
            to.run(QStringLiteral("UPDATE ledger_number SET value = ? WHERE name = ?"),
                   {row.last().toLongLong(), row.first()});
        }
    });
}

bool isUnused(Statements& to)
{
    qint64 rows = 0;
    for (const QString& table : TracesOfUse) {
        rows += to.single(QStringLiteral("SELECT COUNT(*) FROM ") + table).toLongLong();
    }
    return rows == 0;
}

/// Everything but the tables' rules, which are off meanwhile. Empty, or what is wrong.
QString carryRows(Statements& from, Statements& to, Store& target, Copied& copied)
{
    for (const QString& table : tableNames()) {
        if (table != Numbers && !copyTable(from, to, target, table)) {
            return texts::copyDiffers(target.name(), table);
        }
    }
    copyNumbers(from, to);
    const AuditVerdict before = audit::verify(from);
    const AuditVerdict after = audit::verify(to);
    copied.batches = to.single(QStringLiteral("SELECT COUNT(*) FROM batch")).toLongLong();
    copied.instances = to.single(QStringLiteral("SELECT COUNT(*) FROM instance")).toLongLong();
    copied.entries = after.entries;
    copied.head = after.head;
    const bool isSame = before.head == after.head && before.broken == after.broken;
    return isSame ? QString() : texts::copyDiffers(target.name(), QStringLiteral("audit_entry"));
}

/// In open transactions of both.
QString carry(Store& source, Store& target, Copied& copied)
{
    Statements from(source.database());
    Statements to(target.database());
    QString fault = isUnused(to) ? QString() : texts::targetInUse(target.name());
    QSqlError loading = fault.isEmpty() ? target.beginLoading(tableNames()) : QSqlError();
    if (fault.isEmpty() && !loading.isValid()) {
        fault = carryRows(from, to, target, copied);
        loading = to.failed() ? to.error() : target.endLoading(tableNames());
    }
    if (from.failed()) {
        return source.sentenceFor(from.error());
    }
    return loading.isValid() ? target.sentenceFor(loading) : fault;
}

} // namespace

Outcome<void> initLedger(const Address& address)
{
    if (address.kind == Address::Kind::File) {
        return {Store::make(address, {})->open()};
    }
    return {PostgresStore(address, {}).initialise()};
}

Outcome<Copied> copyLedger(const Address& from, const Address& to)
{
    Store::Settings reading;
    reading.mode = Store::Mode::Read;
    const std::unique_ptr<Store> source = Store::make(from, reading);
    const std::unique_ptr<Store> target = Store::make(to, {});
    QString fault = source->open();
    fault = fault.isEmpty() ? target->open() : fault;
    if (!fault.isEmpty()) {
        return {{}, fault};
    }
    Copied copied;
    QSqlError error = source->begin(Store::Begin::Read);
    if (error.isValid()) {
        return {{}, source->sentenceFor(error)};
    }
    error = target->begin(Store::Begin::Write);
    fault = error.isValid() ? target->sentenceFor(error) : carry(*source, *target, copied);
    source->rollback();
    if (!fault.isEmpty()) {
        target->rollback();
        return {{}, fault};
    }
    error = target->commit();
    return {copied, error.isValid() ? target->sentenceFor(error) : QString()};
}

} // namespace ledger
