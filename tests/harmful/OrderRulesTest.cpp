#include "desk/verdict/OrderRules.h"

#include "desk/verdict/Desk.h"
#include "desk/verdict/Judgement.h"
#include "embedded_host/reference_data/CalendarFile.h"
#include "table/FaultCatalogue.h"
#include "table/GuardRules.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <random>

using namespace verdict;
using ledger::BatchDraft;
using ledger::Decimal;
using ledger::Leg;

namespace {

constexpr int ShanghaiOffset = 8 * 3600;

/// As files write it: a wall clock's.
QDateTime wall(const char* text)
{
    return QDateTime::fromString(QString::fromLatin1(text), "yyyy-MM-dd HH:mm:ss"_s);
}

/// A moment of the exchanges' clock.
QDateTime moment(const char* text)
{
    const QDateTime time = wall(text);
    return QDateTime(time.date(), time.time(), Qt::OffsetFromUTC, ShanghaiOffset).toUTC();
}

class OrderRules : public testing::Test {
protected:
    OrderRules()
    {
        calendar = Calendar({{"*"_s,
                              QDate(2026, 1, 1),
                              QDate(2026, 12, 31),
                              {{QTime(9, 15), QTime(11, 30)}, {QTime(13, 0), QTime(15, 0)}},
                              false,
                              false,
                              {}},
                             {"*"_s, QDate(2026, 11, 25), QDate(2026, 11, 25), {}, false, false, "假日"_s}});
        draft.table.columns = QStringList{"交易方向"_s};
        draft.instances[0].start = wall("2026-11-23 09:35:00");
        draft.instances[0].end = wall("2026-11-23 14:50:00");
    }

    /// "rule row", a line each.
    std::string found() const
    {
        Orders orders{draft, limits, calendar, now};
        orders.isFutures = isFutures;
        orders.isBondRepo = [this](const QString&) { return isRepo; };
        orders.lastRate = [](const QString&) { return Decimal::fromText("1.785"_s); };
        orders.isAccount = [](const QString& text) { return text == "1001"_s || text == "1002"_s; };
        orders.typed = [this](int, const QString& column) {
            const bool isTyped =
                (column == "开始时间"_s && typesStart) || (column == "结束时间"_s && typesEnd);
            return isTyped ? column : cells.value(column);
        };
        std::string text;
        for (const table::Fault& fault : faultsOfOrders(orders)) {
            text += fault.rule.toStdString() + " " + std::to_string(fault.row) + "\n";
        }
        return text;
    }

    Leg& leg(int row = 0, int at = 0) { return draft.instances[row].legs[at]; }

    BatchDraft draft = sampleDraft(1);
    ledger::Limits limits;
    Calendar calendar;
    QDateTime now = moment("2026-11-23 09:00:00");
    bool isFutures = false;
    bool isRepo = false;
    bool typesStart = true;
    bool typesEnd = true;
    QMap<QString, QString> cells; ///< of the file, by title
};

} // namespace

TEST_F(OrderRules, AnOrdinaryOrderIsNothingToSpeakOf)
{
    EXPECT_EQ("", found());
}

TEST_F(OrderRules, StartAndEndAtOneMomentRefuse)
{
    draft.instances[0].end = draft.instances[0].start;
    EXPECT_EQ("time.none 1\n", found());
}

/// Held at every second around the clock's own.
TEST_F(OrderRules, AnEndThatIsPastRefusesAndAStartThatIsPastAsks)
{
    for (int second = -2; second <= 2; ++second) {
        now = moment("2026-11-23 14:50:00").addSecs(second);
        const bool isOver = second >= 0;
        EXPECT_EQ(isOver ? "time.ended 1\ntime.started 1\n" : "time.started 1\n", found()) << second;
        now = moment("2026-11-23 09:35:00").addSecs(second);
        EXPECT_EQ(second > 0 ? "time.started 1\n" : "", found()) << second;
    }
    now = moment("2026-11-23 10:00:00");
    typesStart = false;
    EXPECT_EQ("", found()) << "the import fills in now";
}

TEST_F(OrderRules, TheMachinesZoneDoesNotCount)
{
    now = QDateTime(QDate(2026, 11, 23), QTime(6, 49, 59), Qt::UTC);
    typesStart = false;
    EXPECT_EQ("", found()) << "14:49:59 in Shanghai";
    now = now.addSecs(1);
    EXPECT_EQ("time.ended 1\n", found());
}

TEST_F(OrderRules, TimesOutsideTheMarketsHoursAndDaysAreAskedFor)
{
    draft.instances[0].start = wall("2026-11-23 09:14:59");
    EXPECT_EQ("time.hours 1\n", found());
    draft.instances[0].start = wall("2026-11-23 09:15:00");
    draft.instances[0].end = wall("2026-11-23 15:00:01");
    EXPECT_EQ("time.hours 1\n", found());
    draft.instances[0].end = wall("2026-11-23 15:00:00");
    EXPECT_EQ("", found());
    draft.instances[0].start = wall("2026-11-25 09:35:00");
    draft.instances[0].end = wall("2026-11-25 14:50:00");
    EXPECT_EQ("time.closed 1\ntime.closed 1\n", found());
    draft.instances[0].start = wall("2026-11-28 09:35:00");
    draft.instances[0].end = wall("2026-11-30 14:50:00");
    EXPECT_EQ("time.closed 1\n", found()) << "a Saturday";
}

/// Sound ends alone do not make an order that anything can be done with.
TEST_F(OrderRules, ASpanThatIsShortOfSeveralDaysOrOnlyOfTheRestIsAskedFor)
{
    for (const int seconds : {ShortSeconds - 1, ShortSeconds}) {
        draft.instances[0].end = draft.instances[0].start.addSecs(seconds);
        EXPECT_EQ(seconds < ShortSeconds ? "time.short 1\n" : "", found()) << seconds;
    }
    draft.instances[0].end = wall("2026-11-24 14:50:00");
    EXPECT_EQ("time.days 1\n", found());
    typesEnd = false;
    EXPECT_EQ("", found());
    typesEnd = true;
    draft.instances[0].start = wall("2026-11-23 11:30:00");
    draft.instances[0].end = wall("2026-11-23 13:00:00");
    EXPECT_EQ("time.hours 1\n", found());
    draft.instances[0].end = wall("2026-11-23 13:00:01");
    EXPECT_EQ("", found());
    draft.instances[0].start = wall("2026-11-23 11:29:59");
    draft.instances[0].end = wall("2026-11-23 13:00:00");
    EXPECT_EQ("", found());
}

/// The account that a file names, though the import does not read it.
TEST_F(OrderRules, AnAccountOtherThanTheChosenOneIsAskedFor)
{
    for (const char* title : {"交易账号", "资金账号", "账户"}) {
        cells = {{QString::fromUtf8(title), "1002"_s}};
        EXPECT_EQ("account.other 1\n", found()) << title;
        cells = {{QString::fromUtf8(title), draft.account}};
        EXPECT_EQ("", found()) << title;
        cells = {{QString::fromUtf8(title), "甲"_s}};
        EXPECT_EQ("", found()) << "nobody's account";
    }
}

TEST_F(OrderRules, ADayThatTheCalendarDoesNotKnowIsNotJudged)
{
    calendar = Calendar();
    draft.instances[0].start = wall("2026-11-28 03:35:00");
    draft.instances[0].end = wall("2026-11-28 23:50:00");
    EXPECT_EQ("", found());
}

TEST_F(OrderRules, YearsAheadAndADateAloneAreAskedFor)
{
    calendar = Calendar();
    draft.instances[0].start = wall("2027-11-23 09:35:00");
    draft.instances[0].end = wall("2027-11-23 14:50:00");
    EXPECT_EQ("time.far 1\ntime.far 1\n", found());
    for (const int days : {FarDays, FarDays + 1}) {
        draft.instances[0].start = wall("2026-11-23 09:35:00").addDays(days);
        draft.instances[0].end = wall("2026-11-23 14:50:00").addDays(days);
        EXPECT_EQ(days > FarDays ? "time.far 1\ntime.far 1\n" : "", found()) << days;
    }
    draft.instances[0].start = wall("2026-11-24 00:00:00");
    draft.instances[0].end = wall("2026-11-24 14:50:00");
    EXPECT_EQ("time.midnight 1\n", found());
    typesStart = false;
    EXPECT_EQ("", found());
}

TEST_F(OrderRules, AnEmptyDirectionAndOneThatFuturesDoNotHaveRefuse)
{
    leg().direction.clear();
    EXPECT_EQ("direction.empty 1\n", found());
    leg().direction = "Buy"_s;
    isFutures = true;
    EXPECT_EQ("direction.foreign 1\n", found());
    leg().direction = "BuyOpen"_s;
    EXPECT_EQ("", found());
    leg().direction.clear();
    draft.table.columns.clear();
    EXPECT_EQ("", found()) << "the strategy has no such column";
}

TEST_F(OrderRules, BothLegsOnOneSideAndHalfAPairRefuse)
{
    draft = sampleDraft(3);
    leg(0).direction = "Buy"_s;
    leg(1).direction = "Sell"_s;
    leg(2).direction = "Buy"_s;
    for (int i = 0; i < 3; ++i) {
        draft.instances[i].parameters["配对编号"_s] = i < 2 ? "P1"_s : "P2"_s;
    }
    EXPECT_EQ("pair.half 3\n", found());
    leg(1).direction = "Buy"_s;
    EXPECT_EQ("pair.side 1\npair.side 2\npair.half 3\n", found());
    leg(0).direction = "SellOpen"_s;
    leg(1).direction = "SellClose"_s;
    draft.instances.removeLast();
    EXPECT_EQ("pair.side 1\npair.side 2\n", found());

    leg(1).direction = "BuyClose"_s;
    EXPECT_EQ("", found());
    draft.instances[1].parameters["配对编号"_s] = " P1"_s;
    EXPECT_EQ("pair.half 2\npair.half 1\n", found()) << "sent as it stands";
    draft.instances[1].parameters["配对编号"_s] = "P1"_s;
    draft.instances[1].end = wall("2026-11-23 14:00:00");
    EXPECT_EQ("pair.times 1\npair.times 2\n", found());

    draft = sampleDraft(1);
    draft.instances[0].legs.append(leg());
    leg(0, 0).direction = leg(0, 1).direction = "Sell"_s;
    EXPECT_EQ("pair.side 1\n", found());
    leg(0, 1).direction = "Buy"_s;
    EXPECT_EQ("", found());
}

TEST_F(OrderRules, ARateFarFromTheLastOneIsAskedFor)
{
    const QList<QPair<const char*, const char*>> rates = {
        {"7.14", ""}, {"7.141", "price.rate.day 1\n"}, {"0.44625", ""}, {"0.446", "price.rate.day 1\n"}};
    for (const auto& rate : rates) {
        leg().limitPrice = Decimal::fromText(QString::fromLatin1(rate.first));
        EXPECT_EQ("", found()) << "a share";
        isRepo = true;
        EXPECT_EQ(rate.second, found()) << rate.first;
        isRepo = false;
    }
}

TEST_F(OrderRules, AQuantityThatIsWorthTenTimesWhatLooksLikeMoneyRefuses)
{
    limits.moneyLikeAmount = 1000;
    leg().amount = 9999;
    EXPECT_EQ("", found());
    leg().amount = 10000;
    EXPECT_EQ("quantity.money 1\n", found());
    leg().typedAmount = 10000;
    EXPECT_EQ("", found()) << "an amount";
}

/// Whatever the clock and the times: what is past is never let pass, and what lies ahead within hours is.
TEST_F(OrderRules, RandomTimesAreJudgedByTheClockAlone)
{
    std::mt19937 random(2026);
    const QDateTime morning = wall("2026-11-23 09:15:00");
    for (int i = 0; i < 2000; ++i) {
        const int length = 5 * 3600 + 45 * 60; // 15:00
        const int start = int(random() % unsigned(length));
        const int end = int(random() % unsigned(length));
        const int clock = int(random() % unsigned(length));
        draft.instances[0].start = morning.addSecs(start);
        draft.instances[0].end = morning.addSecs(end);
        now = moment("2026-11-23 09:15:00").addSecs(clock);
        const std::string text = found();
        EXPECT_EQ(start == end, text.find("time.none") != std::string::npos);
        EXPECT_EQ(end <= clock, text.find("time.ended") != std::string::npos);
        EXPECT_EQ(start < clock, text.find("time.started") != std::string::npos);
        EXPECT_EQ(std::string::npos, text.find("time.hours 1\ntime.hours 1"));
    }
}

// ---- what is done about it

namespace {

table::Fault fault(const QString& rule, int line = 0, table::Severity severity = table::Severity::Warning)
{
    table::Fault made;
    made.rule = rule;
    made.line = line;
    made.severity = severity;
    return made;
}

QString errorOf(const QByteArray& csv)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("rules.csv"_s));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(csv);
    file.close();
    return RuleActions::read(folder.path()).error.section(QLatin1Char('/'), -1);
}

RuleActions actionsOf(const QByteArray& csv)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("rules.csv"_s));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(csv);
    file.close();
    const Outcome<RuleActions> read = RuleActions::read(folder.path());
    EXPECT_EQ("", read.error.toStdString());
    return read.value;
}

} // namespace

TEST(RuleActionsTest, TheProductSetsAFloorThatADeskMayRaise)
{
    const RuleActions own;
    EXPECT_EQ(Action::Ask, own.of(fault("row.hidden"_s)));
    EXPECT_EQ(Action::Refuse, own.of(fault("time.ended"_s)));
    EXPECT_EQ(Action::Tell, own.of(fault("title.unknown"_s)));
    EXPECT_EQ(Action::Tell, own.of(fault("quantity.odd"_s, 0, table::Severity::Notice)));
    const RuleActions strict =
        actionsOf("rule,action\nrow.hidden,refuse\ntitle.unknown,ask\nsameFile,refuse\n");
    EXPECT_EQ(Action::Refuse, strict.of(fault("row.hidden"_s)));
    EXPECT_EQ(Action::Ask, strict.of(fault("title.unknown"_s)));
    EXPECT_EQ(Action::Refuse, strict.of("sameFile"_s, Action::Ask));
    EXPECT_EQ(Action::Ask, strict.of("sameRows"_s, Action::Ask));
    EXPECT_EQ(Action::Refuse,
              actionsOf("rule,action\nsameFileElsewhere,refuse\n").of("sameFileElsewhere"_s, Action::Ask));
}

TEST(RuleActionsTest, NobodyLowersAFloor)
{
    EXPECT_EQ("rules.csv:2: 规则“time.ended”不能低于 refuse",
              errorOf("rule,action\ntime.ended,ask\n").toStdString());
    EXPECT_EQ("rules.csv:2: 规则“row.hidden”不能低于 ask",
              errorOf("rule,action\nrow.hidden,tell\n").toStdString());
    EXPECT_EQ("rules.csv:3: 没有规则“row.hiden”",
              errorOf("rule,action\nrow.hidden,ask\nrow.hiden,ask\n").toStdString());
    EXPECT_EQ("rules.csv:2: action 应为 refuse、ask 或 tell：no",
              errorOf("rule,action\nrow.hidden,no\n").toStdString());
    EXPECT_EQ(Action::Refuse, actionsOf("rule,action\nsameFile,tell\n").of("sameFile"_s, Action::Refuse))
        << "of the ledger";
}

/// What ships holds everybody to careful ceilings, and looser rules than the product's do not ship.
TEST(ShippedDesk, HasACeilingForEverythingThatMoneyCanBeLostBy)
{
    const Outcome<Desk> desk = Desk::read(QStringLiteral(ALGO_PROJECT_DIR "/reference_data"));
    ASSERT_EQ("", desk.error.toStdString());
    const ledger::Limits limits = limitsFor(desk.value.limits, "80010001"_s, "AITWAP"_s);
    for (const ledger::Ceiling& ceiling : ledger::ceilings()) {
        const bool mayBeAbsent = QByteArray(ceiling.column) == "approvalAmount"; // needs a second person
        EXPECT_TRUE((limits.*ceiling.value).has_value() || mayBeAbsent) << ceiling.column;
    }
    EXPECT_TRUE(optedOut(desk.value.limits, "80010001"_s, "AITWAP"_s).isEmpty());
}

TEST(JudgementTest, OneLineARuleWithItsRowsMissingRowsFirst)
{
    Judgement judgement;
    table::Faults faults = {fault("row.hidden"_s, 3), fault("time.ended"_s, 4), fault("row.hidden"_s, 5)};
    faults.append(table::fault(table::rule::MissingRows, {"300"_s, "13"_s}));
    judgement.lines = inOrder(linesOf(faults, RuleActions()));
    ASSERT_EQ(3, judgement.lines.size());
    EXPECT_EQ("文件的 300 行委托中有 13 行没有导入", judgement.lines.at(0).text.toStdString());
    EXPECT_EQ("time.ended"_s, judgement.lines.at(1).rule);
    EXPECT_EQ("该行是隐藏行，但仍会被导入（2 处：第 3、5 行）", judgement.lines.at(2).text.toStdString());
    EXPECT_TRUE(judgement.refuses());
}

TEST(JudgementTest, EveryQuestionIsAnsweredByItsOwnName)
{
    Judgement judgement;
    judgement.lines = linesOf({fault("row.hidden"_s, 3), fault("title.strategy"_s)}, RuleActions());
    EXPECT_EQ((QStringList{"row.hidden"_s, "title.strategy"_s}), judgement.openRules({}));
    EXPECT_EQ(QStringList{"title.strategy"_s}, judgement.openRules({"row.hidden"_s}));
    EXPECT_EQ((QStringList{"row.hidden"_s, "title.strategy"_s}), judgement.openRules({"yes"_s, "*"_s, ""_s}));
    EXPECT_NE("", objection(judgement, {{"row.hidden"_s}, {}}).toStdString());
    EXPECT_EQ("", objection(judgement, {{"row.hidden"_s, "title.strategy"_s}, {}}).toStdString());
    judgement.lines[0].action = Action::Refuse;
    EXPECT_NE("", objection(judgement, {{"row.hidden"_s, "title.strategy"_s}, {}}).toStdString());
}
