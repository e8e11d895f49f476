// A fault at every call of the system that a change of the ledger makes, one after the other, until none is
// left.

#include "tests/support/FaultyDisk.h"

#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <QSqlDatabase>

using namespace ledger;
using faulty_disk::Kind;

namespace {

struct Fault {
    Kind kind;
    const char* name;
    bool goesOn;
};

constexpr Fault Faults[] = {{Kind::NoSpace, "no_space", false},
                            {Kind::InputOutput, "input_output_error", false},
                            {Kind::Sync, "failed_sync", false},
                            {Kind::ShortWrite, "short_write", false},
                            {Kind::NoSpace, "no_space_from_then_on", true},
                            {Kind::InputOutput, "broken_from_then_on", true},
                            {Kind::Sync, "failed_syncs_from_then_on", true}};

constexpr int MostCalls = 2000;
constexpr int Rows = 5;

BatchDraft someDraft()
{
    return sampleDraft(Rows);
}

bool isUnknown(const QString& error)
{
    return error.contains("未能确认"_s);
}

Ledger::Options morning()
{
    Ledger::Options options;
    options.clock = [] { return sampleMorning(); };
    return options;
}

/// What stands in the ledger, seen by another program after the fault is gone.
int expectWhole(const QString& home)
{
    const auto opened = openIn(home, morning());
    EXPECT_EQ(opened.error, QString());
    if (!opened.ok()) {
        return -1;
    }
    EXPECT_EQ(opened.value->verify(), QString());
    EXPECT_FALSE(opened.value->verifyAudit().value.broken.has_value());
    const QList<Batch> batches = allBatches(*opened.value).value;
    for (const Batch& batch : batches) {
        EXPECT_EQ(opened.value->instancesOf(batch.number).value.size(), batch.rowCount);
        EXPECT_EQ(opened.value->tableOf(batch.number).value.rows.size(), batch.rowCount);
    }
    EXPECT_EQ(opened.value->status().value.days.value(0).batches,
              std::count_if(batches.begin(), batches.end(),
                            [](const Batch& batch) { return batch.state != BatchState::Withdrawn; }));
    return batches.size();
}

/// Runs `check(n)` with a fault at the n-th call, for every kind of fault and every n that there is.
void atEveryCall(const std::function<bool(const Fault& fault, int number)>& check)
{
    for (const Fault& fault : Faults) {
        int number = 1;
        while (number < MostCalls && check(fault, number) && !testing::Test::HasFailure()) {
            ++number;
        }
        EXPECT_GT(number, 1) << fault.name << ": no call was made to fail";
        EXPECT_LT(number, MostCalls);
        testing::Test::RecordProperty(fault.name, number - 1);
    }
}

} // namespace

TEST(FaultAtEveryCall, OfTheFirstCreationTellsTheTruthAndLeavesALedger)
{
    atEveryCall([](const Fault& fault, int number) {
        SCOPED_TRACE(std::string(fault.name) + " at call " + std::to_string(number));
        QTemporaryDir folder;
        const QString home = folder.filePath("home"_s);
        const BatchDraft draft = someDraft();
        faulty_disk::arm(folder.path(), fault.kind, number, fault.goesOn);
        QString error;
        {
            const auto opened = openIn(home, morning());
            error = opened.ok() ? opened.value->createBatch(draft).error : opened.error;
        }
        const bool wasReached = faulty_disk::disarm();
        const auto after = openIn(home, morning());
        EXPECT_EQ(after.error, QString());
        if (after.ok()) {
            const bool stands = after.value->batchOfDraft(draft.id).value.has_value();
            EXPECT_TRUE(isUnknown(error) ? fault.goesOn : stands == error.isEmpty())
                << "said: " << error.toStdString() << ", stands: " << stands;
            EXPECT_EQ(after.value->createBatch(draft).error, QString());
            EXPECT_EQ(expectWhole(home), 1) << "the same draft is made once";
        }
        return wasReached;
    });
}

TEST(FaultAtEveryCall, OfACreationTellsTheTruthAndKeepsTheBatchesBefore)
{
    atEveryCall([](const Fault& fault, int number) {
        SCOPED_TRACE(std::string(fault.name) + " at call " + std::to_string(number));
        QTemporaryDir home;
        const BatchDraft draft = someDraft();
        QString error;
        bool wasReached = false;
        {
            const auto opened = openIn(home.path(), morning());
            opened.value->createBatch(someDraft());
            faulty_disk::arm(home.path(), fault.kind, number, fault.goesOn);
            error = opened.value->createBatch(draft).error;
            wasReached = faulty_disk::disarm();
            EXPECT_EQ(opened.value->createBatch(someDraft()).error, QString()) << "the same program goes on";
        }
        const auto after = openIn(home.path(), morning());
        const bool stands = after.value->batchOfDraft(draft.id).value.has_value();
        EXPECT_TRUE(isUnknown(error) ? fault.goesOn : stands == error.isEmpty())
            << "said: " << error.toStdString() << ", stands: " << stands;
        EXPECT_EQ(expectWhole(home.path()), stands ? 3 : 2);
        return wasReached;
    });
}

TEST(FaultAtEveryCall, OfAnUndoTellsTheTruth)
{
    atEveryCall([](const Fault& fault, int number) {
        SCOPED_TRACE(std::string(fault.name) + " at call " + std::to_string(number));
        QTemporaryDir home;
        QString error;
        bool wasReached = false;
        {
            const auto opened = openIn(home.path(), morning());
            opened.value->createBatch(someDraft());
            faulty_disk::arm(home.path(), fault.kind, number, fault.goesOn);
            error = opened.value->undo(1).error;
            wasReached = faulty_disk::disarm();
        }
        const auto after = openIn(home.path(), morning());
        const bool isUndone = after.value->batch(1).value.state == BatchState::Withdrawn;
        EXPECT_TRUE(isUnknown(error) ? fault.goesOn : isUndone == error.isEmpty())
            << "said: " << error.toStdString() << ", undone: " << isUndone;
        const auto counts = after.value->counts(1).value;
        EXPECT_EQ(counts.value(isUndone ? InstanceState::Withdrawn : InstanceState::Created), Rows);
        expectWhole(home.path());
        return wasReached;
    });
}

TEST(FaultAtEveryCall, OfABackupLeavesAWholeOneOrNone)
{
    QTemporaryDir home;
    ASSERT_EQ(openIn(home.path(), morning()).value->createBatch(someDraft()).error, QString());
    atEveryCall([&](const Fault& fault, int number) {
        SCOPED_TRACE(std::string(fault.name) + " at call " + std::to_string(number));
        QTemporaryDir other;
        const QString file = Ledger::pathIn(other.path());
        const auto opened = openToRead(home.path());
        faulty_disk::arm(other.path(), fault.kind, number, fault.goesOn);
        const QString error = opened.value->backup(file).error;
        const bool wasReached = faulty_disk::disarm();
        EXPECT_EQ(QFile::exists(file), error.isEmpty()) << error.toStdString();
        if (error.isEmpty()) {
            EXPECT_EQ(expectWhole(other.path()), 1);
        }
        return wasReached;
    });
    EXPECT_EQ(expectWhole(home.path()), 1);
}

TEST(FaultAtEveryCall, OfARestoreLeavesTheOldLedgerOrTheBackup)
{
    QTemporaryDir other;
    const QString backup = other.filePath("backup.sqlite"_s);
    {
        QTemporaryDir home;
        const auto opened = openIn(home.path(), morning());
        opened.value->createBatch(someDraft());
        opened.value->createBatch(someDraft());
        ASSERT_EQ(opened.value->backup(backup).error, QString());
    }
    atEveryCall([&](const Fault& fault, int number) {
        SCOPED_TRACE(std::string(fault.name) + " at call " + std::to_string(number));
        QTemporaryDir home;
        EXPECT_EQ(openIn(home.path(), morning()).value->createBatch(someDraft()).error, QString());
        faulty_disk::arm(home.path(), fault.kind, number, fault.goesOn);
        const QString error = restoreLedger(backup, Ledger::pathIn(home.path())).error;
        const bool wasReached = faulty_disk::disarm();
        const bool isRestored = error.isEmpty() || error.startsWith("已恢复"_s);
        EXPECT_EQ(expectWhole(home.path()), isRestored ? 2 : 1) << error.toStdString();
        return wasReached;
    });
}

TEST(FaultAtEveryCall, OfAVacuumKeepsEverything)
{
    atEveryCall([](const Fault& fault, int number) {
        SCOPED_TRACE(std::string(fault.name) + " at call " + std::to_string(number));
        QTemporaryDir home;
        bool wasReached = false;
        {
            const auto opened = openIn(home.path(), morning());
            opened.value->createBatch(someDraft());
            faulty_disk::arm(home.path(), fault.kind, number, fault.goesOn);
            opened.value->vacuum();
            wasReached = faulty_disk::disarm();
        }
        EXPECT_EQ(expectWhole(home.path()), 1);
        return wasReached;
    });
}

TEST(FaultAtEveryCall, OfAStartTellsTheTruth)
{
    atEveryCall([](const Fault& fault, int number) {
        SCOPED_TRACE(std::string(fault.name) + " at call " + std::to_string(number));
        QTemporaryDir home;
        QString error;
        bool wasReached = false;
        {
            const auto opened = openIn(home.path(), morning());
            opened.value->createBatch(someDraft());
            faulty_disk::arm(home.path(), fault.kind, number, fault.goesOn);
            error = opened.value->start({{}, 1}).error;
            wasReached = faulty_disk::disarm();
        }
        const auto after = openIn(home.path(), morning());
        const auto counts = after.value->counts(1).value;
        const bool isStarted = counts.value(InstanceState::Running) == Rows;
        EXPECT_TRUE(isStarted || counts.value(InstanceState::Created) == Rows) << "half of it";
        EXPECT_TRUE(isUnknown(error) ? fault.goesOn : isStarted == error.isEmpty())
            << "said: " << error.toStdString() << ", started: " << isStarted;
        return wasReached;
    });
}
