#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <QJsonObject>

using namespace ledger;

TEST(Ledger, KeepsABatchWithItsInstancesLegsAndTable)
{
    SampleLedger ledger;
    const BatchDraft draft = sampleDraft(2);
    const Outcome<Batch> created = ledger->createBatch(draft);
    ASSERT_EQ(created.error, QString());
    ASSERT_EQ(ledger.reopen(), QString());

    const Batch batch = ledger->batch(created.value.number).value;
    EXPECT_EQ(batch.number, 1);
    EXPECT_EQ(batch.draftId, draft.id);
    EXPECT_EQ(batch.fileName, "早盘.csv"_s);
    EXPECT_EQ(batch.fileSha256, draft.fileSha256);
    EXPECT_EQ(batch.account, "1001"_s);
    EXPECT_EQ(batch.strategy, "AITWAP"_s);
    EXPECT_EQ(batch.rowCount, 2);
    EXPECT_EQ(batch.expectedBuy, 10000);
    EXPECT_EQ(batch.createdAt, sampleMorning());
    EXPECT_EQ(batch.createdBy, "trader"_s);
    EXPECT_EQ(batch.state, BatchState::Created);

    const QList<Instance> instances = ledger->instancesOf(1).value;
    ASSERT_EQ(instances.size(), 2);
    EXPECT_EQ(instances.at(1).id.text(), "1-2"_s);
    EXPECT_EQ(instances.at(1).parameters, draft.instances.at(1).parameters);
    ASSERT_EQ(instances.at(1).legs.size(), 1);
    EXPECT_EQ(instances.at(1).legs.first().symbol, "600001.SH"_s);
    EXPECT_EQ(instances.at(1).legs.first().direction, "Buy"_s);
    EXPECT_EQ(instances.at(1).legs.first().quantity, 1000);
    EXPECT_EQ(ledger->tableOf(1).value.columns, draft.table.columns);
    EXPECT_EQ(ledger->tableOf(1).value.rows, draft.table.rows);
}

TEST(Ledger, KeepsWhatWasChangedInTheFileAndEntersIt)
{
    SampleLedger ledger;
    BatchDraft draft = sampleDraft(1);
    draft.fileEdits = {QJsonObject{{"edit"_s, "leaveOut"_s}, {"lines"_s, QJsonArray{3}}}};
    ASSERT_EQ(ledger->createBatch(draft).error, QString());
    ASSERT_EQ(ledger->createBatch(sampleDraft(1)).error, QString());
    ASSERT_EQ(ledger.reopen(), QString());
    EXPECT_EQ(ledger->batch(1).value.fileEdits, draft.fileEdits);
    EXPECT_TRUE(ledger->batch(2).value.fileEdits.isEmpty());
    const QList<AuditEntry> entries = ledger->audit(0).value;
    QStringList edits;
    for (const AuditEntry& entry : entries) {
        if (entry.what == "edit"_s) {
            edits.append(entry.subject);
            EXPECT_TRUE(entry.detail.contains("leaveOut"_s)) << entry.detail.toStdString();
            EXPECT_TRUE(entry.detail.contains(draft.fileSha256)) << entry.detail.toStdString();
        }
    }
    EXPECT_EQ(edits, QStringList{"1"_s});
}

TEST(Ledger, KeepsBothLegsOfAPairInTheirOrder)
{
    SampleLedger ledger;
    BatchDraft draft = sampleDraft(1);
    draft.instances[0].legs.append(draft.instances[0].legs.first());
    draft.instances[0].legs[1].direction = "Sell"_s;
    ASSERT_EQ(ledger->createBatch(draft).error, QString());
    const QList<Leg> legs = allInstances(*ledger).value.first().legs;
    ASSERT_EQ(legs.size(), 2);
    EXPECT_EQ(legs.at(0).direction, "Buy"_s);
    EXPECT_EQ(legs.at(1).direction, "Sell"_s);
}

TEST(Ledger, GivesTheSameBatchWhenADraftIsTriedAgain)
{
    SampleLedger ledger;
    const BatchDraft draft = sampleDraft(3);
    const Batch first = ledger->createBatch(draft).value;
    ASSERT_EQ(ledger.reopen(), QString());
    const Outcome<Batch> again = ledger->createBatch(draft);
    EXPECT_EQ(again.error, QString());
    EXPECT_EQ(again.value.number, first.number);
    EXPECT_EQ(allBatches(*ledger).value.size(), 1);
    EXPECT_EQ(allInstances(*ledger).value.size(), 3);
}

TEST(Ledger, RefusesADraftWithoutIdOrInstances)
{
    SampleLedger ledger;
    BatchDraft nameless = sampleDraft(1);
    nameless.id = QUuid();
    EXPECT_NE(ledger->createBatch(nameless).error, QString());
    EXPECT_NE(ledger->createBatch(sampleDraft(0)).error, QString());
    EXPECT_TRUE(allBatches(*ledger).value.isEmpty());
}

TEST(Ledger, KeepsTheOrderOfCreationWhenTheClockJumpsBack)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    ledger.now = sampleMorning().addDays(-400);
    ledger->createBatch(sampleDraft(1));
    ledger.now = sampleMorning().addSecs(60);
    ledger->createBatch(sampleDraft(1));
    const QList<Batch> batches = allBatches(*ledger).value;
    ASSERT_EQ(batches.size(), 3);
    EXPECT_EQ(batches.at(0).number, 1);
    EXPECT_EQ(batches.at(1).number, 2);
    EXPECT_EQ(batches.at(1).createdAt, sampleMorning().addDays(-400));
    EXPECT_EQ(batches.at(2).number, 3);
}

TEST(Ledger, StartsInstancesThatAreToStartAtCreation)
{
    SampleLedger ledger;
    SampleRow started;
    started.startsNow = true;
    ledger->createBatch(sampleDraft({SampleRow(), started}));
    const QList<Instance> instances = allInstances(*ledger).value;
    EXPECT_EQ(instances.at(0).state, InstanceState::Created);
    EXPECT_EQ(instances.at(1).state, InstanceState::Running);
}

TEST(Ledger, MovesAnInstanceOnlyAlongItsLife)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    const InstanceId id{1, 1};
    EXPECT_NE(ledger->changeState(id, InstanceState::Finished).error, QString());
    EXPECT_EQ(ledger->changeState(id, InstanceState::Running).error, QString());
    ledger.now = sampleMorning().addSecs(5);
    EXPECT_EQ(ledger->changeState(id, InstanceState::Finished).error, QString());
    EXPECT_NE(ledger->changeState(id, InstanceState::Running).error, QString());
    EXPECT_NE(ledger->changeState({1, 9}, InstanceState::Running).error, QString());
    EXPECT_EQ(allInstances(*ledger).value.first().state, InstanceState::Finished);
    EXPECT_EQ(allInstances(*ledger).value.first().changedAt, ledger.now);
}

TEST(Ledger, TakesTextsOfAFileAsTextsAndNeverAsSql)
{
    SampleLedger ledger;
    BatchDraft draft = sampleDraft(1);
    const QString hostile = "x'); DROP TABLE batch; --"_s;
    draft.fileName = hostile;
    draft.account = hostile;
    draft.instances[0].legs[0].symbol = hostile;
    draft.instances[0].parameters.insert(hostile, hostile);
    draft.table.rows[0][0] = hostile;
    ASSERT_EQ(ledger->createBatch(draft).error, QString());
    EXPECT_EQ(allBatches(*ledger).value.first().fileName, hostile);
    EXPECT_EQ(allInstances(*ledger).value.first().legs.first().symbol, hostile);
    EXPECT_EQ(allInstances(*ledger).value.first().parameters.value(hostile).toString(), hostile);
    EXPECT_EQ(ledger->tableOf(1).value.rows.first().first(), hostile);
    EXPECT_EQ(ledger->standingOf(draft).value.duplicates.size(), 1);
}

TEST(Ledger, NamesTheFileAndTheBatchThatIsNotThere)
{
    SampleLedger ledger;
    for (const QString& error : {ledger->batch(7).error, ledger->tableOf(7).error, ledger->undo(7).error}) {
        EXPECT_TRUE(error.contains(ledger->path())) << error.toStdString();
        EXPECT_TRUE(error.contains("批次 7"_s)) << error.toStdString();
    }
}

TEST(Ledger, HandsOutBatchesAndInstancesAPageAtATimeNewestFirst)
{
    SampleLedger ledger;
    for (int i = 0; i < 3; ++i) {
        ledger->createBatch(sampleDraft(2));
    }
    const QList<Batch> first = ledger->batchesBefore(std::nullopt, 2).value;
    ASSERT_EQ(first.size(), 2);
    EXPECT_EQ(first.at(0).number, 3);
    const QList<Batch> rest = ledger->batchesBefore(first.last().number, 2).value;
    ASSERT_EQ(rest.size(), 1);
    EXPECT_EQ(rest.first().number, 1);

    QStringList seen;
    std::optional<InstanceId> last;
    for (int page = 0; page < 3; ++page) {
        const QList<Instance> instances = ledger->instancesBehind(last, 2 + page).value;
        for (const Instance& instance : instances) {
            seen.append(instance.id.text());
            EXPECT_EQ(instance.legs.size(), 1);
            last = instance.id;
        }
    }
    EXPECT_EQ(seen, (QStringList{"3-1"_s, "3-2"_s, "2-1"_s, "2-2"_s, "1-1"_s, "1-2"_s}));
}

TEST(Ledger, CountsInstancesByTheirStates)
{
    SampleLedger ledger;
    SampleRow started;
    started.startsNow = true;
    ledger->createBatch(sampleDraft({SampleRow(), started}));
    ledger->createBatch(sampleDraft(3));
    EXPECT_EQ(ledger->counts().value.value(InstanceState::Created), 4);
    EXPECT_EQ(ledger->counts(1).value.value(InstanceState::Running), 1);
    EXPECT_EQ(ledger->counts(1).value.value(InstanceState::Created), 1);
}

TEST(Ledger, StartsAndStopsWhatIsNamedAllOrNone)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(3));
    EXPECT_FALSE(ledger->start({{{1, 1}, {1, 9}}, std::nullopt}).ok());
    EXPECT_EQ(ledger->counts().value.value(InstanceState::Created), 3);
    EXPECT_EQ(ledger->start({{{1, 1}}, std::nullopt}).value.value(0).after, InstanceState::Running);
    EXPECT_FALSE(ledger->start({{{1, 1}}, std::nullopt}).ok()) << "it runs";
    EXPECT_EQ(ledger->start({{}, 1}).value.size(), 2) << "those that it applies to";
    EXPECT_EQ(ledger->stop({{{1, 2}}, std::nullopt}).value.value(0).after, InstanceState::Stopped);
    EXPECT_FALSE(ledger->withdraw({{{1, 2}}, std::nullopt}).ok());
    EXPECT_FALSE(ledger->start({{}, 7}).ok());
}

TEST(Ledger, WithdrawsWhatHasNotStarted)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(2));
    EXPECT_EQ(ledger->withdraw({{{1, 2}}, std::nullopt}).value.value(0).after, InstanceState::Withdrawn);
    EXPECT_EQ(ledger->status().value.days.size(), 1);
    EXPECT_EQ(ledger->status().value.days.value(0).instances, 1);
}

TEST(Ledger, KnowsAnInstanceByItsName)
{
    EXPECT_EQ(InstanceId::fromText("12-3"_s)->text(), "12-3"_s);
    for (const QString& text : {""_s, "12"_s, "12-0"_s, "0-1"_s, "a-1"_s, "1-2-3"_s, "-1-2"_s}) {
        EXPECT_FALSE(InstanceId::fromText(text).has_value()) << text.toStdString();
    }
}
