#include "ledger/BatchCreation.h"
#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

/// Every security of the samples at 10, without factors.
Prices pricesOf(const BatchDraft& draft, const Decimal& last = 10)
{
    Prices prices;
    for (const InstanceDraft& instance : draft.instances) {
        for (const Leg& leg : instance.legs) {
            prices[{leg.symbol, leg.exchange}].last = last;
        }
    }
    return prices;
}

Verdict verdictOn(BatchDraft draft, const Limits& limits = {}, const Standing& standing = {})
{
    const Prices prices = pricesOf(draft);
    valueLegs(draft, prices);
    return checkBatch(draft, limits, prices, standing);
}

QStringList rulesOf(const QList<Finding>& findings)
{
    QStringList rules;
    for (const Finding& finding : findings) {
        rules.append(finding.rule);
    }
    return rules;
}

SampleRow row(const QString& symbol, const QString& direction, const Decimal& quantity,
              const Decimal& limitPrice = 10)
{
    return {symbol, direction, quantity, limitPrice, false};
}

/// A ledger in which these batches of account 1001 hold the same.
Standing withDuplicates(const QList<Duplicate>& duplicates)
{
    Standing standing;
    standing.duplicates = duplicates;
    return standing;
}

Duplicate sameFile(qint64 batch, const QString& account = "1001"_s)
{
    return {batch, account, sampleMorning(), "trader"_s, true, {}};
}

Duplicate sameRows(qint64 batch, const QSet<int>& rows)
{
    return {batch, "1001"_s, sampleMorning(), "trader"_s, false, rows};
}

const QString A = "600000.SH"_s;
const QString B = "600001.SH"_s;

} // namespace

TEST(Guard, LetsAnOrdinaryBatchPassWithoutAWord)
{
    const Verdict verdict = verdictOn(sampleDraft({row(A, "Buy"_s, 1000), row(B, "Sell"_s, 500)}));
    EXPECT_TRUE(verdict.refusals.isEmpty());
    EXPECT_TRUE(verdict.warnings.isEmpty());
    EXPECT_EQ(verdict.grossBuy, 10000);
    EXPECT_EQ(verdict.grossSell, 5000);
    EXPECT_EQ(verdict.confirmationAmount, 0);
}

TEST(Guard, RefusesARowAboveItsCeilingsAndNamesIt)
{
    Limits limits;
    limits.rowQuantity = 900;
    limits.rowAmount = 6000;
    const Verdict verdict = verdictOn(sampleDraft({row(A, "Buy"_s, 600), row(B, "Buy"_s, 1000)}), limits);
    ASSERT_EQ(rulesOf(verdict.refusals), (QStringList{"rowQuantity"_s, "rowAmount"_s}));
    EXPECT_EQ(verdict.refusals.at(0).rows, QList<int>{2});
    EXPECT_EQ(verdict.refusals.at(1).rows, QList<int>{2});
    EXPECT_EQ(verdict.refusals.at(1).text(), "1 行金额超过单行上限 6,000 元"_s);
}

TEST(Guard, LetsARowThatMeetsItsCeilingExactlyPass)
{
    Limits limits;
    limits.rowQuantity = 1000;
    limits.rowAmount = 10000;
    limits.securityAmount = 10000;
    limits.grossBuy = 10000;
    EXPECT_FALSE(verdictOn(sampleDraft({row(A, "Buy"_s, 1000)}), limits).refuses());
}

TEST(Guard, AddsUpTheRowsOfOneSecurityOnEachSide)
{
    Limits limits;
    limits.securityAmount = 15000;
    const Verdict within = verdictOn(sampleDraft({row(A, "Buy"_s, 1000), row(B, "Buy"_s, 1000)}), limits);
    EXPECT_FALSE(within.refuses());
    const Verdict above = verdictOn(sampleDraft({row(A, "Buy"_s, 1000), row(A, "Buy"_s, 1000)}), limits);
    ASSERT_EQ(rulesOf(above.refusals), QStringList{"securityAmount"_s});
    EXPECT_TRUE(above.refusals.first().text().contains(A));
}

TEST(Guard, RefusesABatchWhoseGrossBuyOrSellIsAboveItsCeiling)
{
    Limits limits;
    limits.grossBuy = 15000;
    limits.grossSell = 15000;
    const BatchDraft buys = sampleDraft({row(A, "Buy"_s, 1000), row(B, "BuyOpen"_s, 1000)});
    EXPECT_EQ(rulesOf(verdictOn(buys, limits).refusals), QStringList{"grossBuy"_s});
    const BatchDraft sells = sampleDraft({row(A, "Sell"_s, 1000), row(B, "SellClose"_s, 1000)});
    EXPECT_EQ(rulesOf(verdictOn(sells, limits).refusals), QStringList{"grossSell"_s});
}

TEST(Guard, CountsADirectionThatNobodyKnowsOnBothSides)
{
    const Verdict verdict = verdictOn(sampleDraft({row(A, "?"_s, 1000)}));
    EXPECT_EQ(verdict.grossBuy, 10000);
    EXPECT_EQ(verdict.grossSell, 10000);
}

TEST(Guard, RefusesALimitPriceTooFarFromTheLastPriceOnEitherSide)
{
    Limits limits;
    limits.priceDistance = 10;
    const Verdict verdict = verdictOn(sampleDraft({row(A, "Buy"_s, 100, 11), row(A, "Buy"_s, 100, 11.01_d),
                                                   row(A, "Buy"_s, 100, 8.99_d), row(A, "Buy"_s, 100, 0)}),
                                      limits);
    ASSERT_EQ(rulesOf(verdict.refusals), QStringList{"priceDistance"_s});
    EXPECT_EQ(verdict.refusals.first().rows, (QList<int>{2, 3}));
}

TEST(Guard, ComparesNoInterestRateWithAFaceValue)
{
    Limits limits;
    limits.priceDistance = 10;
    BatchDraft draft = sampleDraft({row(A, "Sell"_s, 100, 1.85_d)});
    Prices prices = pricesOf(draft, 100);
    prices[{A, "SH"_s}].isNominal = true;
    valueLegs(draft, prices);
    EXPECT_FALSE(checkBatch(draft, limits, prices, {}).refuses());
}

TEST(Guard, WarnsThatThisVeryFileWasCreatedToday)
{
    const BatchDraft draft = sampleDraft(3);
    const Verdict verdict = verdictOn(draft, {}, withDuplicates({sameFile(6), sameFile(4)}));
    ASSERT_EQ(rulesOf(verdict.warnings), QStringList{"sameFile"_s});
    EXPECT_EQ(verdict.warnings.first().count, 2);
    EXPECT_EQ(verdict.warnings.first().text(), "该文件今天在此账号已创建过 2 次（批次 4、6）"_s);
}

TEST(Guard, WarnsOfRowsThatAnotherFileCreatedToday)
{
    const Verdict verdict = verdictOn(sampleDraft(3), {}, withDuplicates({sameRows(1, {3})}));
    ASSERT_EQ(rulesOf(verdict.warnings), QStringList{"sameRows"_s});
    EXPECT_EQ(verdict.warnings.first().count, 1);
    EXPECT_EQ(verdict.warnings.first().rows, QList<int>{3});
    EXPECT_EQ(verdict.warnings.first().text(), "1 行与今天在此账号已创建的委托相同（批次 1）"_s);
}

TEST(Guard, WarnsOfTheSameFileOnAnotherAccountAndOfOneOfLately)
{
    Standing standing = withDuplicates({sameFile(3, "1002"_s)});
    standing.lately = {sameFile(1)};
    const Verdict verdict = verdictOn(sampleDraft(1), {}, standing);
    ASSERT_EQ(rulesOf(verdict.warnings), (QStringList{"sameFileElsewhere"_s, "sameFileLately"_s}));
    EXPECT_TRUE(verdict.warnings.at(0).text().contains("批次 3，账号 1002"_s));
    EXPECT_TRUE(verdict.warnings.at(1).text().contains("11-03 10:00"_s));
}

TEST(Guard, RefusesWhileTheAccountIsHalted)
{
    Standing standing;
    standing.halts = {{"1001"_s, "行情异常"_s, "risk"_s, sampleMorning()}};
    const Verdict verdict = verdictOn(sampleDraft(1), {}, standing);
    ASSERT_EQ(rulesOf(verdict.refusals), QStringList{"halted"_s});
    EXPECT_EQ(verdict.refusals.first().text(), "账号 1001 已暂停交易（risk）：行情异常"_s);
}

TEST(Guard, HoldsTheDayWithThisBatchAgainstItsCeilings)
{
    Limits limits;
    limits.dayBuy = 30000;
    limits.daySell = 5000;
    limits.dayInstances = 4;
    Standing standing;
    standing.day.buy = 20000;
    standing.day.instances = 3;
    EXPECT_FALSE(verdictOn(sampleDraft({row(A, "Buy"_s, 1000)}), limits, standing).refuses());
    standing.day.buy = 20000.01_d;
    standing.day.instances = 4;
    EXPECT_EQ(rulesOf(verdictOn(sampleDraft({row(A, "Buy"_s, 1000)}), limits, standing).refusals),
              (QStringList{"dayBuy"_s, "dayInstances"_s}));
    limits.dayInstances.reset();
    EXPECT_EQ(rulesOf(verdictOn(sampleDraft({row(A, "Sell"_s, 501)}), limits, standing).refusals),
              QStringList{"daySell"_s})
        << "a sale is not held against what was bought";
}

TEST(Guard, WarnsOfASecurityThatIsBoughtAndSold)
{
    const Verdict verdict =
        verdictOn(sampleDraft({row(A, "Buy"_s, 100), row(B, "Buy"_s, 100), row(A, "Sell"_s, 100)}));
    ASSERT_EQ(rulesOf(verdict.warnings), QStringList{"bothSides"_s});
    EXPECT_EQ(verdict.warnings.first().count, 1);
    EXPECT_TRUE(verdict.warnings.first().text().contains(A));
}

TEST(Guard, TakesThePairOfOneRowAsMeant)
{
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 100)});
    draft.instances[0].legs.append(draft.instances[0].legs.first());
    draft.instances[0].legs[1].direction = "Sell"_s;
    EXPECT_TRUE(verdictOn(draft).warnings.isEmpty());
    draft.instances.append(draft.instances.first());
    EXPECT_EQ(rulesOf(verdictOn(draft).warnings), QStringList{"bothSides"_s})
        << "two such rows are another matter";
}

TEST(Guard, WarnsOfAQuantityThatLooksLikeMoney)
{
    Limits limits;
    limits.moneyLikeAmount = 50000000;
    const Verdict verdict = verdictOn(sampleDraft({row(A, "Buy"_s, 1000), row(A, "Buy"_s, 123456),
                                                   row(A, "Buy"_s, 1000000), row(A, "Buy"_s, 5000100)}),
                                      limits);
    ASSERT_EQ(rulesOf(verdict.warnings), QStringList{"moneyLikeQuantity"_s});
    EXPECT_EQ(verdict.warnings.first().rows, (QList<int>{3, 4})) << "round and large; beyond reason";
}

TEST(Guard, TakesAnAmountThatWasTypedAsMoneyForWhatItIs)
{
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 1000000)});
    draft.instances[0].legs[0].typedAmount = 20000000;
    const Verdict verdict = verdictOn(draft);
    EXPECT_TRUE(verdict.warnings.isEmpty());
    EXPECT_EQ(verdict.grossBuy, 20000000);
}

TEST(Guard, WarnsOfRowsWithoutAnyPriceOrRefusesThem)
{
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 100, 0)});
    valueLegs(draft, {});
    EXPECT_EQ(rulesOf(checkBatch(draft, {}, {}, {}).warnings), QStringList{"unpriced"_s});
    Limits strict;
    strict.refusesUnpriced = true;
    EXPECT_EQ(rulesOf(checkBatch(draft, strict, {}, {}).refusals), QStringList{"unpriced"_s});
}

TEST(Guard, ValuesARowWithoutAQuoteAtItsLimitPrice)
{
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 100, 12)});
    valueLegs(draft, {});
    EXPECT_EQ(checkBatch(draft, {}, {}, {}).grossBuy, 1200);
}

TEST(Guard, ValuesEachSideWithItsOwnFactor)
{
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 100), row(A, "Sell"_s, 100)});
    valueLegs(draft, {{{A, "SH"_s}, {10, 0.95_d, 0.90_d, false}}});
    const Verdict verdict = checkBatch(draft, {}, {}, {});
    EXPECT_EQ(verdict.grossBuy, 950);
    EXPECT_EQ(verdict.grossSell, 900);
}

TEST(Guard, PutsTheWorstWarningFirst)
{
    const BatchDraft draft = sampleDraft({row(A, "Buy"_s, 2000000), row(A, "Sell"_s, 100)});
    const Verdict verdict = verdictOn(draft, {}, withDuplicates({sameRows(2, {1}), sameFile(1)}));
    EXPECT_EQ(rulesOf(verdict.warnings),
              (QStringList{"sameFile"_s, "sameRows"_s, "bothSides"_s, "moneyLikeQuantity"_s}));
}

TEST(Guard, AsksForTheGrossAmountFromItsThresholdOn)
{
    Limits limits;
    limits.confirmAmount = 15000;
    const BatchDraft below = sampleDraft({row(A, "Buy"_s, 1000)});
    EXPECT_EQ(verdictOn(below, limits).confirmationAmount, 0);
    const Verdict at = verdictOn(sampleDraft({row(A, "Buy"_s, 1000), row(B, "Sell"_s, 500)}), limits);
    EXPECT_EQ(at.confirmationAmount, 15000);
    EXPECT_TRUE(isConfirmedBy(at, " 15,000.00 "_s));
    EXPECT_TRUE(isConfirmedBy(at, "15，000"_s));
    for (const QString& wrong : {""_s, "1500"_s, "150000"_s, "是"_s, "nan"_s}) {
        EXPECT_FALSE(isConfirmedBy(at, wrong)) << wrong.toStdString();
    }
}

TEST(Creation, NeedsConsentToWarnings)
{
    SampleLedger ledger;
    const BatchDraft draft = sampleDraft({row(A, "Buy"_s, 100), row(A, "Sell"_s, 100)});
    Review review = reviewBatch(*ledger, draft, {}, pricesOf(draft)).value;
    const Outcome<Batch> without = createReviewed(*ledger, review, {});
    EXPECT_TRUE(without.error.contains("同时买入和卖出"_s)) << without.error.toStdString();
    EXPECT_TRUE(allBatches(*ledger).value.isEmpty());
    EXPECT_EQ(createReviewed(*ledger, review, {true, QString()}).error, QString());
    EXPECT_EQ(allInstances(*ledger).value.first().legs.first().amount, 1000);
}

TEST(Creation, IsRefusedAboveACeilingWhateverTheConsent)
{
    SampleLedger ledger;
    LimitScope scope;
    scope.limits.grossBuy = 10;
    const BatchDraft draft = sampleDraft(1);
    Review review = reviewBatch(*ledger, draft, {scope}, pricesOf(draft)).value;
    EXPECT_EQ(createReviewed(*ledger, review, {true, "10000"_s}).error,
              "不能创建：买入总金额 10,000 元超过上限 10 元。"_s);
    EXPECT_TRUE(allBatches(*ledger).value.isEmpty());
}

TEST(Creation, NeedsTheGrossAmountTypedWhereTheGuardAsksForIt)
{
    SampleLedger ledger;
    LimitScope scope;
    scope.limits.confirmAmount = 1;
    const BatchDraft draft = sampleDraft(1);
    Review review = reviewBatch(*ledger, draft, {scope}, pricesOf(draft)).value;
    EXPECT_TRUE(createReviewed(*ledger, review, {true, "9999"_s}).error.contains("10,000"_s));
    EXPECT_EQ(createReviewed(*ledger, review, {false, "10000"_s}).error, QString());
}

TEST(Creation, OfTheSameFileIsWarnedOfUntilTheFirstBatchIsUndone)
{
    SampleLedger ledger;
    const BatchDraft draft = sampleDraft(2);
    const Prices prices = pricesOf(draft);
    Review first = reviewBatch(*ledger, draft, {}, prices).value;
    createReviewed(*ledger, first, {});
    BatchDraft again = draft;
    again.id = QUuid::createUuid();
    EXPECT_EQ(rulesOf(reviewBatch(*ledger, again, {}, prices).value.verdict.warnings),
              QStringList{"sameFile"_s});
    ledger->undo(1);
    EXPECT_TRUE(reviewBatch(*ledger, again, {}, prices).value.verdict.warnings.isEmpty());
}

TEST(Guard, RefusesInstancesThatTheTableDoesNotShow)
{
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 1000), row(B, "Sell"_s, 500)});
    draft.table.rows.clear(); // the next file could not be read, and the dialog emptied its table
    const Verdict verdict = verdictOn(draft);
    EXPECT_EQ(rulesOf(verdict.refusals), QStringList{"notShown"_s});
    EXPECT_EQ(verdict.refusals.value(0).text(),
              "表格中有 0 行，待创建的实例却有 2 个：最近一次导入没有成功；请重新导入"_s);
}

TEST(Guard, RefusesARowWithoutQuantityAndAmount)
{
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 100), row(B, "Buy"_s, 0)});
    const Verdict verdict = verdictOn(draft);
    ASSERT_EQ(rulesOf(verdict.refusals), QStringList{"noQuantity"_s});
    EXPECT_EQ(verdict.refusals.first().rows, QList<int>{2});
    draft.instances[1].legs[0].typedAmount = 5000;
    EXPECT_FALSE(verdictOn(draft).refuses());
}

TEST(Guard, OnlyWarnsOfNoQuantityWhereTheStrategyHasNoColumnOfThem)
{
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 0)});
    draft.asksQuantity = false;
    const Verdict verdict = verdictOn(draft);
    EXPECT_FALSE(verdict.refuses());
    EXPECT_EQ(rulesOf(verdict.warnings), QStringList{"noQuantity"_s});
}

TEST(Guard, WarnsOfAnEndBeforeTheStart)
{
    BatchDraft draft = sampleDraft(3);
    for (InstanceDraft& instance : draft.instances) {
        instance.start = QDateTime(QDate(2025, 11, 3), QTime(14, 30));
        instance.end = QDateTime(QDate(2025, 11, 3), QTime(14, 57));
    }
    EXPECT_TRUE(verdictOn(draft).warnings.isEmpty());
    draft.instances[1].end = QDateTime(QDate(2025, 11, 3), QTime(9, 57));
    draft.instances[2].end = QDateTime();
    const Verdict verdict = verdictOn(draft);
    ASSERT_EQ(rulesOf(verdict.warnings), QStringList{"endBeforeStart"_s});
    EXPECT_EQ(verdict.warnings.first().rows, QList<int>{2});
}

TEST(Guard, WarnsOfALimitThatBecameNone)
{
    BatchDraft draft = sampleDraft(2);
    draft.instances[1].legs[0].limitPrice = 0;
    EXPECT_TRUE(verdictOn(draft).warnings.isEmpty());
    draft.instances[1].legs[0].hasZeroLimit = true;
    const Verdict verdict = verdictOn(draft);
    ASSERT_EQ(rulesOf(verdict.warnings), QStringList{"zeroLimit"_s});
    EXPECT_EQ(verdict.warnings.first().rows, QList<int>{2});
}

TEST(Guard, AsksForAnAmountThatMeetsItsThresholdButForBinaryFractions)
{
    BatchDraft draft =
        sampleDraft({row(A, "Buy"_s, 111700), row(B, "Buy"_s, 41800), row("C"_s, "Buy"_s, 79500)});
    const Decimal prices[] = {52.67_d, 196.37_d, 1080.61_d};
    Prices known;
    for (int i = 0; i < 3; ++i) {
        const Leg& leg = draft.instances.at(i).legs.first();
        known[{leg.symbol, leg.exchange}].last = prices[i];
    }
    valueLegs(draft, known);
    Limits limits;
    limits.confirmAmount = 100000000;
    limits.moneyLikeAmount = 1000000000;
    EXPECT_EQ(checkBatch(draft, limits, known, {}).confirmationAmount, 100000000);
}

TEST(Guard, AsksForTheSmallestAmountAsWell)
{
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 1)});
    valueLegs(draft, pricesOf(draft, 0.3_d));
    Limits limits;
    limits.confirmAmount = 0;
    EXPECT_EQ(checkBatch(draft, limits, {}, {}).confirmationAmount, 1);
}

TEST(Guard, LetsNothingThatIsNoNumberPastACeiling)
{
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 100)});
    draft.instances[0].legs[0].amount = Decimal::none();
    Limits limits;
    limits.rowAmount = limits.securityAmount = limits.grossBuy = 1000000000;
    EXPECT_EQ(rulesOf(checkBatch(draft, limits, {}, {}).refusals),
              (QStringList{"rowAmount"_s, "securityAmount"_s, "grossBuy"_s}));
}

TEST(Guard, TakesARowWithoutAnExchangeRateForUnpriced)
{
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 100)});
    for (const Decimal& factor : {Decimal(), Decimal(-1), Decimal::none()}) {
        valueLegs(draft, {{{A, "SH"_s}, {10, factor, factor, false}}});
        EXPECT_EQ(draft.instances.first().legs.first().amount, 0);
        EXPECT_EQ(rulesOf(checkBatch(draft, {}, {}, {}).warnings), QStringList{"unpriced"_s});
    }
}

TEST(Guard, RefusesANumberWithAMinusSign)
{
    BatchDraft draft = sampleDraft(2);
    draft.instances[1].legs[0].isNegative = true;
    const Verdict verdict = verdictOn(draft);
    ASSERT_EQ(rulesOf(verdict.refusals), QStringList{"negative"_s});
    EXPECT_EQ(verdict.refusals.first().rows, QList<int>{2});
}

TEST(Guard, RefusesABatchOfMoreRowsThanItsCeiling)
{
    Limits limits;
    limits.batchRows = 2;
    EXPECT_FALSE(verdictOn(sampleDraft(2), limits).refuses());
    EXPECT_EQ(rulesOf(verdictOn(sampleDraft(3), limits).refusals), QStringList{"batchRows"_s});
}

TEST(Guard, RefusesARowThatTakesMoreOfTheMarketThanItsCeiling)
{
    Limits limits;
    limits.participation = 20;
    BatchDraft draft = sampleDraft(3);
    draft.instances[0].participation = 20;
    draft.instances[2].participation = 20.01_d;
    const Verdict verdict = verdictOn(draft, limits);
    ASSERT_EQ(rulesOf(verdict.refusals), QStringList{"participation"_s});
    EXPECT_EQ(verdict.refusals.first().rows, QList<int>{3});
}

TEST(Guard, AddsUpWithoutTheErrorOfBinaryFractions)
{
    Limits limits;
    limits.grossBuy = 0.3_d;
    BatchDraft draft = sampleDraft({row(A, "Buy"_s, 1), row(B, "Buy"_s, 1), row("C"_s, "Buy"_s, 1)});
    const Prices prices = pricesOf(draft, 0.1_d);
    valueLegs(draft, prices);
    EXPECT_FALSE(checkBatch(draft, limits, prices, {}).refuses()) << "three times 0.1 is 0.3";
    limits.grossBuy = 0.2999999999999999999_d;
    EXPECT_TRUE(checkBatch(draft, limits, prices, {}).refuses());
}
