#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <QSqlDatabase>
#include <QSqlQuery>

using namespace ledger;

namespace {

QStringList deedsOf(const QList<AuditEntry>& entries)
{
    QStringList deeds;
    for (const AuditEntry& entry : entries) {
        deeds.append(entry.what + QLatin1Char(' ') + entry.subject);
    }
    return deeds;
}

/// What somebody with the file does to it.
void tamper(const SampleLedger& ledger, const QString& statement)
{
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE"_s, "tamper"_s);
        database.setDatabaseName(ledger.path());
        ASSERT_TRUE(database.open());
        QSqlQuery query(database);
        ASSERT_TRUE(query.exec(statement)) << statement.toStdString();
        ASSERT_GT(query.numRowsAffected(), 0);
    }
    QSqlDatabase::removeDatabase("tamper"_s);
}

} // namespace

TEST(Audit, HasAnEntryOfEveryChange)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(2));
    ledger->start({{{1, 1}}, std::nullopt});
    ledger->halt("1001"_s, "行情异常"_s);
    ledger->resume("1001"_s, "恢复"_s);
    ledger->undo(1);
    const QList<AuditEntry> entries = ledger->audit().value;
    EXPECT_EQ(deedsOf(entries),
              (QStringList{"create 1"_s, "start 1-1"_s, "halt 1001"_s, "resume 1001"_s, "undo 1"_s}));
    EXPECT_EQ(entries.first().by, "trader"_s);
    EXPECT_EQ(entries.first().program, "algodesk 9.9"_s);
    EXPECT_EQ(entries.first().at, sampleMorning());
    EXPECT_EQ(deedsOf(ledger->audit(4).value), (QStringList{"resume 1001"_s, "undo 1"_s}));
}

TEST(Audit, HasNoneOfWhatChangedNothing)
{
    SampleLedger ledger;
    const BatchDraft draft = sampleDraft(1);
    ledger->createBatch(draft);
    ledger->createBatch(draft);
    ledger->undo(1);
    ledger->undo(1);
    ledger->undo(7);
    ledger->start({{{1, 1}}, std::nullopt});
    EXPECT_EQ(deedsOf(ledger->audit().value), (QStringList{"create 1"_s, "undo 1"_s}));
}

TEST(Audit, OfASoundLedgerIsWhole)
{
    SampleLedger ledger;
    const QString genesis = ledger->verifyAudit().value.head;
    for (int i = 0; i < 5; ++i) {
        ledger->createBatch(sampleDraft(1));
    }
    const AuditVerdict verdict = ledger->verifyAudit().value;
    EXPECT_EQ(verdict.entries, 5);
    EXPECT_FALSE(verdict.broken.has_value());
    EXPECT_NE(verdict.head, genesis);
    EXPECT_EQ(verdict.head, ledger->audit().value.last().hash);
}

TEST(Audit, FindsWhatWasChangedDroppedSwappedOrCutOff)
{
    const QList<QPair<QString, qint64>> cases{
        {"UPDATE audit_entry SET detail = '{}' WHERE number = 3"_s, 3},
        {"UPDATE audit_entry SET entered_by = 'nobody' WHERE number = 1"_s, 1},
        {"UPDATE audit_entry SET entered_at = entered_at + 1 WHERE number = 5"_s, 5},
        {"DELETE FROM audit_entry WHERE number = 2"_s, 2},
        {"UPDATE audit_entry SET number = 9 - number WHERE number IN (4, 5)"_s, 4},
        {"DELETE FROM audit_entry WHERE number = 5"_s, 5},
    };
    for (const auto& [statement, broken] : cases) {
        SampleLedger ledger;
        for (int i = 0; i < 5; ++i) {
            ledger->createBatch(sampleDraft(1));
        }
        if (statement.contains("9 - number"_s)) {
            tamper(ledger, "UPDATE audit_entry SET number = 100 WHERE number = 4"_s);
            tamper(ledger, "UPDATE audit_entry SET number = 4 WHERE number = 5"_s);
            tamper(ledger, "UPDATE audit_entry SET number = 5 WHERE number = 100"_s);
        } else {
            tamper(ledger, statement);
        }
        EXPECT_EQ(ledger->verifyAudit().value.broken.value_or(0), broken) << statement.toStdString();
    }
}
