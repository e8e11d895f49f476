#include "desk/ledger/LedgerJson.h"

#include "tests/ledger/SampleDrafts.h"
#include "tests/ledger/SchemaCheck.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

void expectValid(const QJsonValue& value, const QString& schemaFile)
{
    const QStringList faults = faultsBySchema(value, schemaFile);
    EXPECT_TRUE(faults.isEmpty()) << faults.join(u"\n"_s).toStdString();
}

/// A verdict with a refusal and warnings.
Verdict severeVerdict()
{
    BatchDraft draft = sampleDraft({SampleRow(), {u"600000.SH"_s, u"Sell"_s}});
    Limits limits;
    limits.rowAmount = 1.0;
    limits.confirmAmount = 1.0;
    valueLegs(draft, {});
    return checkBatch(draft, limits, {}, {});
}

} // namespace

TEST(SchemaCheck, FindsWhatIsWrong)
{
    EXPECT_FALSE(faultsBySchema(QJsonObject(), u"batch.schema.json"_s).isEmpty());
    EXPECT_FALSE(faultsBySchema(QJsonObject(), u"batches.schema.json"_s).isEmpty());
    EXPECT_FALSE(faultsBySchema(QJsonArray(), u"no such file"_s).isEmpty());
    QJsonObject batch = toJson(SampleLedger()->createBatch(sampleDraft(1)).value);
    batch[u"state"_s] = u"lost"_s;
    EXPECT_EQ(faultsBySchema(batch, u"batch.schema.json"_s),
              QStringList{u"$.state: not in the enumeration"_s});
    batch[u"state"_s] = u"created"_s;
    batch[u"surplus"_s] = 1;
    EXPECT_EQ(faultsBySchema(batch, u"batch.schema.json"_s), QStringList{u"$.surplus: is not described"_s});
}

TEST(LedgerJson, OfBatchesAndInstancesMatchesItsSchema)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(2));
    ledger->createBatch(sampleDraft(1));
    ledger->undo(2);
    const QJsonArray batches = toJson(ledger->batches().value);
    const QJsonArray instances = toJson(ledger->instances().value);
    ASSERT_EQ(batches.size(), 2);
    ASSERT_EQ(instances.size(), 3);
    expectValid(batches, u"batches.schema.json"_s);
    expectValid(instances, u"instances.schema.json"_s);
    EXPECT_EQ(batches.at(0)[u"createdAt"_s].toString(), u"2025-11-03T02:00:00.000Z"_s);
    EXPECT_EQ(batches.at(1)[u"state"_s].toString(), u"withdrawn"_s);
    EXPECT_EQ(instances.at(1)[u"id"_s].toString(), u"1-2"_s);
    EXPECT_EQ(instances.at(0)[u"parameters"_s][u"交易方向"_s].toString(), u"Buy"_s);
}

TEST(LedgerJson, OfUndoMatchesItsSchema)
{
    SampleLedger ledger;
    SampleRow started;
    started.startsNow = true;
    ledger->createBatch(sampleDraft({SampleRow(), started, started}));
    ledger->changeState({1, 3}, InstanceState::Finished);
    const QJsonObject report = toJson(ledger->undo(1).value);
    expectValid(report, u"undo.schema.json"_s);
    EXPECT_EQ(report[u"withdrawn"_s].toArray().size(), 1);
    EXPECT_EQ(report[u"stopped"_s].toArray().size(), 1);
    EXPECT_EQ(report[u"notReversed"_s].toArray().size(), 1);
}

TEST(LedgerJson, OfADiffMatchesItsSchema)
{
    const BatchTable before{{u"证券代码"_s, u"委托数量"_s}, {{u"A"_s, u"1"_s}, {u"B"_s, u"2"_s}}};
    const BatchTable after{{u"证券代码"_s, u"委托数量"_s}, {{u"A"_s, u"9"_s}, {u"C"_s, u"2"_s}}};
    const QJsonObject diff = toJson(compareTables(before, after), 3, u"改.csv"_s);
    expectValid(diff, u"diff.schema.json"_s);
    EXPECT_EQ(diff[u"cellsChanged"_s].toArray().size(), 1);
    EXPECT_EQ(diff[u"rowsAdded"_s][0][u"cells"_s][u"证券代码"_s].toString(), u"C"_s);
    EXPECT_EQ(diff[u"rowsRemoved"_s][0][u"cells"_s][u"证券代码"_s].toString(), u"B"_s);
}

TEST(LedgerJson, OfTheGuardMatchesItsSchema)
{
    const QJsonObject verdict = toJson(severeVerdict());
    expectValid(verdict, u"guard.schema.json"_s);
    EXPECT_EQ(verdict[u"refusals"_s].toArray().size(), 1);
    EXPECT_EQ(verdict[u"warnings"_s].toArray().size(), 1);
    EXPECT_EQ(verdict[u"confirmationAmount"_s].toInt(), 20000);
}

TEST(LedgerJson, OfACreationMatchesItsSchemaWhetherThereIsABatchOrNot)
{
    SampleLedger ledger;
    const QJsonObject made = creationToJson({}, ledger->createBatch(sampleDraft(1)));
    expectValid(made, u"create.schema.json"_s);
    EXPECT_EQ(made[u"batch"_s][u"number"_s].toInt(), 1);
    const QJsonObject refused = creationToJson(severeVerdict(), {{}, u"超过上限"_s});
    expectValid(refused, u"create.schema.json"_s);
    EXPECT_TRUE(refused[u"batch"_s].isNull());
    EXPECT_EQ(refused[u"error"_s].toString(), u"超过上限"_s);
}

TEST(LedgerJson, KeepsEveryKindOfParameter)
{
    const QMap<QString, QVariant> parameters{
        {u"text"_s, u"<b>\"'\\\n"_s},
        {u"number"_s, 123.4567},
        {u"flag"_s, true},
        {u"empty"_s, u""_s},
        {u"list"_s, QVariantList{QMap<QString, QVariant>{{u"a"_s, u"b"_s}}}},
    };
    EXPECT_EQ(parametersFromText(parametersToText(parameters)), parameters);
}
