// Many writers of one ledger at the same moment.

#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

using namespace ledger;

namespace {

constexpr int Writers = 8;
constexpr int DraftsOfEach = 12;
constexpr int Amount = 1000;

/// Draft n is the same for every writer that tries it.
BatchDraft draftNumber(int number)
{
    BatchDraft draft = sampleDraft(3);
    draft.id =
        QUuid::createUuidV5(QUuid("{6f2c2f0e-2a55-4a1c-9a5e-0d5f1f0c7b11}"_s), QString::number(number));
    draft.fileName = QString::number(number);
    draft.instances[0].legs[0].amount = Amount;
    return draft;
}

} // namespace

TEST(Writers, NeverPassACeilingTogetherAndMakeNoDraftTwice)
{
    QTemporaryDir home;
    ASSERT_EQ(openIn(home.path()).error, QString());
    CreationTerms terms;
    constexpr int Ceiling = Writers * DraftsOfEach * Amount * 7 / 10;
    terms.limits.dayBuy = Ceiling;
    std::atomic<int> refused{0};
    std::vector<std::thread> threads;
    for (int writer = 0; writer < Writers; ++writer) {
        threads.emplace_back([&, writer] {
            Ledger::Options options;
            options.clock = [] { return sampleMorning(); };
            options.waitSeconds = 60;
            const auto opened = openIn(home.path(), options);
            ASSERT_EQ(opened.error, QString());
            for (int i = 0; i < DraftsOfEach; ++i) {
                const int own = writer * DraftsOfEach + i;
                const int neighbours = (own + DraftsOfEach) % (Writers * DraftsOfEach);
                for (const int number : {own, neighbours}) {
                    QList<Finding> refusals;
                    const QString error =
                        opened.value->createBatch(draftNumber(number), terms, &refusals).error;
                    ASSERT_EQ(error.isEmpty(), refusals.isEmpty()) << error.toStdString();
                    refused += refusals.isEmpty() ? 0 : 1;
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const auto opened = openIn(home.path());
    const QList<Batch> batches = allBatches(*opened.value).value;
    QSet<QUuid> drafts;
    for (int i = 0; i < batches.size(); ++i) {
        EXPECT_EQ(batches.at(i).number, i + 1);
        EXPECT_EQ(opened.value->instancesOf(i + 1).value.size(), 3);
        drafts.insert(batches.at(i).draftId);
    }
    EXPECT_EQ(drafts.size(), batches.size()) << "a draft was made twice";
    EXPECT_EQ(batches.size() * Amount, Ceiling / Amount * Amount) << "the ceiling is reached and not passed";
    EXPECT_GT(refused, 0);
    EXPECT_FALSE(opened.value->verifyAudit().value.broken.has_value());
    EXPECT_EQ(opened.value->verifyAudit().value.entries, batches.size());
}
