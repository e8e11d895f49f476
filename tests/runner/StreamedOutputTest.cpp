#include "desk/runner/Output.h"
#include "tests/ledger/LedgerPlace.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/runner/RunnerTest.h"

#include <QBuffer>
#include <QJsonArray>

#include <algorithm>

using namespace ledger;

namespace {

QJsonObject element(int number)
{
    return {{"number"_s, number}, {"text"_s, "a\nb"_s}, {"parts"_s, QJsonArray{1, QJsonObject{{"x"_s, 2}}}}};
}

/// Takes so many bytes and no more.
class SmallDevice : public QIODevice {
public:
    explicit SmallDevice(qint64 room) : mRoom(room) { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }
    int writes() const { return mWrites; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64 size) override
    {
        ++mWrites;
        const qint64 taken = std::min(size, mRoom);
        mRoom -= taken;
        return taken;
    }

private:
    qint64 mRoom;
    int mWrites = 0;
};

} // namespace

TEST(JsonArrayWriter, WritesWhatADocumentOfTheSameElementsIs)
{
    for (const int count : {0, 1, 2, 2000}) {
        QByteArray written;
        QBuffer out(&written);
        out.open(QIODevice::WriteOnly);
        runner::JsonArrayWriter writer(out);
        QJsonArray array;
        for (int i = 0; i < count; ++i) {
            array.append(element(i));
            EXPECT_TRUE(writer.add(element(i)));
        }
        EXPECT_TRUE(writer.end());
        EXPECT_EQ(written, QJsonDocument(array).toJson()) << count;
    }
}

TEST(JsonArrayWriter, WantsNoMoreOnceTheDeviceTakesNoMore)
{
    SmallDevice out(100000);
    runner::JsonArrayWriter writer(out);
    int taken = 0;
    while (taken < 100000 && writer.add(element(taken))) {
        ++taken;
    }
    EXPECT_LT(taken, 100000);
    EXPECT_EQ(out.writes(), 2);
    EXPECT_FALSE(writer.add(element(0)));
    EXPECT_FALSE(writer.end());
    EXPECT_EQ(out.writes(), 2) << "what the device refused is not given to it again";
}

/// Two batches, of three pages of instances.
class StreamedLists : public RunnerTest {
protected:
    static constexpr int Rows = 1250;

    void SetUp() override
    {
        RunnerTest::SetUp();
        const auto ledger = openIn(home()).value;
        ASSERT_EQ(ledger->createBatch(sampleDraft(Rows)).error, QString());
        ASSERT_EQ(ledger->createBatch(sampleDraft(Rows)).error, QString());
    }
};

TEST_F(StreamedLists, HaveEveryInstanceOnceAndInOrder)
{
    const QJsonArray all = atHome({"instances"_s}).json().array();
    ASSERT_EQ(all.size(), 2 * Rows);
    for (int i = 0; i < all.size(); ++i) {
        EXPECT_EQ(all.at(i)["id"_s].toString(), "%1-%2"_s.arg(i / Rows + 1).arg(i % Rows + 1));
    }
    const QJsonArray ofOne = atHome({"instances"_s, "--batch"_s, "2"_s}).json().array();
    ASSERT_EQ(ofOne.size(), Rows);
    EXPECT_EQ(ofOne.first(), all.at(Rows));
    EXPECT_EQ(ofOne.last(), all.last());
}

TEST_F(StreamedLists, StayOpenWhereTheRestCannotBeRead)
{
    // the rows of the second batch make the database fail
    tamperWith(home(), "ALTER TABLE instance RENAME TO kept"_s);
    tamperWith(home(),
               "CREATE VIEW instance AS SELECT batch_number, row_no, account, strategy, state, "
               "changed_at, CASE batch_number WHEN 2 THEN abs(-9223372036854775807 - 1) ELSE parameters "
               "END AS parameters, row_key, starts_now, taken_back, cl_ord_id, cancels, cancel_due, "
               "filled, average, reason FROM kept"_s);
    const Run cutOff = atHome({"instances"_s});
    EXPECT_EQ(cutOff.status, 1);
    EXPECT_TRUE(cutOff.out.startsWith("[\n")) << "the first page was good";
    EXPECT_TRUE(cutOff.json().isNull()) << "nobody takes it for whole";
    EXPECT_TRUE(cutOff.err.contains("integer overflow")) << cutOff.err.constData();

    const Run nothing = atHome({"instances"_s, "--batch"_s, "2"_s});
    EXPECT_EQ(nothing.status, 1);
    EXPECT_TRUE(nothing.object()["error"_s].toString().contains("integer overflow"_s));
    EXPECT_EQ(nothing.err, QByteArray());
}
