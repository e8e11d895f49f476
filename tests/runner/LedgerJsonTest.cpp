#include "desk/runner/LedgerJson.h"

#include "gateway/program/Printer.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/support/SchemaCheck.h"

#include <gtest/gtest.h>

#include <QBuffer>

using namespace ledger;
using namespace runner;

namespace {

void expectValid(const QJsonValue& value, const QString& schemaFile)
{
    const QStringList faults = faultsBySchema(value, schemaFile);
    EXPECT_TRUE(faults.isEmpty()) << faults.join("\n"_s).toStdString();
}

template <typename Row> QJsonArray arrayOf(const QList<Row>& rows)
{
    QJsonArray array;
    for (const Row& row : rows) {
        array.append(toJson(row));
    }
    return array;
}

/// A verdict with a refusal and warnings.
Verdict severeVerdict()
{
    BatchDraft draft = sampleDraft({SampleRow(), {"600000.SH"_s, "Sell"_s}});
    Limits limits;
    limits.rowAmount = 1;
    limits.confirmAmount = 1;
    valueLegs(draft, {});
    return checkBatch(draft, limits, {}, {});
}

} // namespace

TEST(SchemaCheck, FindsWhatIsWrong)
{
    EXPECT_FALSE(faultsBySchema(QJsonObject(), "batch.schema.json"_s).isEmpty());
    EXPECT_FALSE(faultsBySchema(QJsonObject(), "batches.schema.json"_s).isEmpty());
    EXPECT_FALSE(faultsBySchema(QJsonArray(), "no such file"_s).isEmpty());
    QJsonObject batch = toJson(SampleLedger()->createBatch(sampleDraft(1)).value);
    batch["state"_s] = "lost"_s;
    EXPECT_EQ(faultsBySchema(batch, "batch.schema.json"_s), QStringList{"$.state: not in the enumeration"_s});
    batch["state"_s] = "created"_s;
    batch["surplus"_s] = 1;
    EXPECT_EQ(faultsBySchema(batch, "batch.schema.json"_s), QStringList{"$.surplus: is not described"_s});
}

TEST(LedgerJson, OfBatchesAndInstancesMatchesItsSchema)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(2));
    ledger->createBatch(sampleDraft(1));
    ledger->undo(2);
    const QJsonArray batches = arrayOf(allBatches(*ledger).value);
    const QJsonArray instances = arrayOf(allInstances(*ledger).value);
    ASSERT_EQ(batches.size(), 2);
    ASSERT_EQ(instances.size(), 3);
    expectValid(batches, "batches.schema.json"_s);
    expectValid(instances, "instances.schema.json"_s);
    EXPECT_EQ(batches.at(0)["createdAt"_s].toString(), "2025-11-03T02:00:00.000Z"_s);
    EXPECT_EQ(batches.at(1)["state"_s].toString(), "withdrawn"_s);
    EXPECT_EQ(instances.at(1)["id"_s].toString(), "1-2"_s);
    EXPECT_EQ(instances.at(0)["parameters"_s]["交易方向"_s].toString(), "Buy"_s);
}

TEST(LedgerJson, OfUndoMatchesItsSchema)
{
    SampleLedger ledger;
    SampleRow started;
    started.startsNow = true;
    ledger->createBatch(sampleDraft({SampleRow(), started, started}));
    ledger->changeState({1, 3}, InstanceState::Finished);
    const QJsonObject report = toJson(ledger->undo(1).value);
    expectValid(report, "undo.schema.json"_s);
    EXPECT_EQ(report["withdrawn"_s].toArray().size(), 1);
    EXPECT_EQ(report["stopped"_s].toArray().size(), 1);
    EXPECT_EQ(report["notReversed"_s].toArray().size(), 1);
}

TEST(LedgerJson, OfADiffMatchesItsSchema)
{
    const BatchTable before{{"证券代码"_s, "委托数量"_s}, {{"A"_s, "1"_s}, {"B"_s, "2"_s}}};
    const BatchTable after{{"证券代码"_s, "委托数量"_s}, {{"A"_s, "9"_s}, {"C"_s, "2"_s}}};
    const QJsonObject diff = toJson(compareTables(before, after, {"证券代码"_s}), 3, "改.csv"_s);
    QJsonObject printed = diff;
    printed["messageBoxes"_s] = QJsonArray(); // the runner's
    printed["fileEdits"_s] = QJsonArray();    // likewise
    expectValid(printed, "diff.schema.json"_s);
    EXPECT_EQ(diff["cellsChanged"_s].toArray().size(), 1);
    EXPECT_EQ(diff["rowsAdded"_s][0]["cells"_s]["证券代码"_s].toString(), "C"_s);
    EXPECT_EQ(diff["rowsRemoved"_s][0]["cells"_s]["证券代码"_s].toString(), "B"_s);
}

TEST(LedgerJson, OfTheGuardMatchesItsSchema)
{
    const QJsonObject verdict = toJson(severeVerdict());
    expectValid(verdict, "guard.schema.json"_s);
    EXPECT_EQ(verdict["refusals"_s].toArray().size(), 1);
    EXPECT_EQ(verdict["warnings"_s].toArray().size(), 1);
    EXPECT_EQ(verdict["confirmationAmount"_s].toInt(), 20000);
}

TEST(LedgerJson, OfACreationMatchesItsSchemaWhetherThereIsABatchOrNot)
{
    SampleLedger ledger;
    const QJsonObject made = creationToJson({}, ledger->createBatch(sampleDraft(1)));
    expectValid(made, "create.schema.json"_s);
    EXPECT_EQ(made["batch"_s]["number"_s].toInt(), 1);
    expectValid(noCreationToJson("台账正忙"_s), "create.schema.json"_s);
    const QJsonObject refused = creationToJson(severeVerdict(), {{}, "超过上限"_s});
    expectValid(refused, "create.schema.json"_s);
    EXPECT_TRUE(refused["batch"_s].isNull());
    EXPECT_EQ(refused["error"_s].toString(), "超过上限"_s);
}

TEST(GatewayLines, MatchTheirSchema)
{
    QBuffer out;
    out.open(QIODevice::ReadWrite);
    gateway::Printer printer(out);
    printer.session("FIX.4.4:DESK->BROKER"_s, "loggedOn"_s, QString());
    gateway::Standing pair;
    pair.legs = {{"300"_s, "11.5"_s}, {QString(), QString()}};
    printer.instance({12, 3}, "NW66-3"_s, pair);
    printer.kept({QString(), "E1"_s, "不是本台账的订单"_s});
    const QList<QByteArray> lines = out.data().trimmed().split('\n');
    ASSERT_EQ(3, lines.size());
    for (const QByteArray& line : lines) {
        expectValid(QJsonDocument::fromJson(line).object(), "gateway-event.schema.json"_s);
    }
    QJsonObject wrong = QJsonDocument::fromJson(lines.first()).object();
    wrong["state"_s] = "gone"_s;
    EXPECT_FALSE(faultsBySchema(wrong, "gateway-event.schema.json"_s).isEmpty());
}
