#include "tests/support/DialogFixture.h"
#include "tests/support/LogCapture.h"

namespace {

const QString Legs = QStringLiteral("证券代码和委托数量");
const QString Direction = QStringLiteral("交易方向");
const QString Property = QStringLiteral("委托属性");
const QString Limit = QStringLiteral("委托限价");
const QString FormatError = QStringLiteral("导入方向、委托属性、限价中，某字段格式错误");

QVariantMap legOf(const QString& direction, const QString& property,
                  const QString& limit = QStringLiteral("10/11"))
{
    return {{"证券代码"_s, "600000.SH"_s},
            {"委托数量"_s, "100"_s},
            {Direction, direction},
            {Property, property},
            {Limit, limit}};
}

QVariantMap instanceOf(const QVariantList& legs)
{
    return {{Legs, legs}, {"实例备注"_s, "备忘"_s}};
}

RecordData record(const QString& text)
{
    return {{0, {{"0"_s, text}}}};
}

class LockPairs : public DialogFixture {
protected:
    void SetUp() override { open("AILOCK"_s); }

    void split(const QList<QVariantMap>& instances)
    {
        inspect().maps() = instances;
        records.clear();
        for (int i = 0; i < instances.size(); ++i) {
            records.append(record(QString::number(i)));
        }
        errors.clear();
        inspect().processParams4AILOCK(records, errors);
    }

    QString check(const QList<QVariantMap>& instances)
    {
        inspect().maps() = instances;
        prompts.clear();
        button("btn_ok").setEnabled(true);
        button("btn_ok").click();
        return lastBoxText();
    }
    /// One instance of two legs, the second of which is in order.
    QString checkLeg(const QString& direction, const QString& property)
    {
        return check({instanceOf({legOf(direction, property), legOf("Buy"_s, goodProperty)})});
    }

    QString recordTexts() const
    {
        QStringList texts;
        for (const RecordData& kept : records) {
            texts.append(kept.value(0).value("0"_s).toString());
        }
        return texts.join(QLatin1Char(' '));
    }

    RecordDataList records;
    QMap<int, QString> errors;
    QString goodProperty = QStringLiteral("0");
};

} // namespace

// ---- splitting

TEST_F(LockPairs, AnInstanceIsSplitIntoTwoLegsTheFirstOfWhichHasWhatStandsBeforeTheSlash)
{
    split({instanceOf({legOf("Buy/Sell"_s, "0/9"_s, "10.50/10.60"_s)})});
    EXPECT_TRUE(errors.isEmpty());
    EXPECT_EQ(records.size(), 1);
    const QVariantMap expected =
        instanceOf({legOf("Buy"_s, "0"_s, "10.50"_s), legOf("Sell"_s, "9"_s, "10.60"_s)});
    ASSERT_EQ(inspect().maps().size(), 1);
    EXPECT_EQ(inspect().maps().first(), expected) << "everything else stands in both legs, and beside them";
}

TEST_F(LockPairs, OtherThanOneLegIsLeftUntouchedAndCaughtByTheCountCheck)
{
    const QList<QVariantMap> instances = {
        instanceOf({}),
        instanceOf({legOf("Buy"_s, "0"_s), legOf("Sell"_s, "0"_s)}),
        instanceOf({legOf("Buy"_s, "0"_s), legOf("x"_s, "x"_s), legOf("y"_s, "y"_s)}),
        {{"实例备注"_s, "没有标的"_s}}};
    split(instances);
    EXPECT_TRUE(errors.isEmpty());
    EXPECT_EQ(inspect().maps(), instances);
    EXPECT_EQ(records.size(), 4);
    EXPECT_EQ(check({instances.at(0), instances.at(1)}), "第1行：标的数目错误！\r\n"_s);
}

TEST_F(LockPairs, EachOfTheThreeFieldsNeedsExactlyTwoParts)
{
    struct Case {
        const char* direction;
        const char* property;
        const char* limit;
        bool split;
    };
    const Case cases[] = {{"Buy/Sell", "0/0", "10/11", true},
                          {"Buy", "0/0", "10/11", false},
                          {"Buy/Sell/Buy", "0/0", "10/11", false},
                          {"Buy/Sell", "0", "10/11", false},
                          {"Buy/Sell", "0/0/0", "10/11", false},
                          {"Buy/Sell", "0/0", "10", false},
                          {"Buy/Sell", "0/0", "10/11/12", false},
                          {"Buy/Sell", "0/0", "", false},
                          {"", "0/0", "10/11", false},
                          {"Buy/Sell", "", "10/11", false},
                          {"Buy", "0", "10", false},
                          {"/", "/", "/", true},
                          {"Buy/", "0/0", "10/11", true}};
    for (const Case& c : cases) {
        split({instanceOf({legOf(QString::fromLatin1(c.direction), QString::fromLatin1(c.property),
                                 QString::fromLatin1(c.limit))})});
        const QMap<int, QString> expected =
            c.split ? QMap<int, QString>() : QMap<int, QString>{{0, FormatError}};
        EXPECT_EQ(errors, expected) << c.direction << " " << c.property << " " << c.limit;
        EXPECT_EQ(records.size(), c.split ? 1 : 0);
        EXPECT_EQ(inspect().maps().size(), c.split ? 1 : 0);
    }
}

TEST_F(LockPairs, FailedRowsAreRemovedFromTheHighestIndexDown)
{
    const QVariantMap good = instanceOf({legOf("Buy/Sell"_s, "0/0"_s)});
    const QVariantMap bad = instanceOf({legOf("Buy"_s, "0/0"_s)});
    split({good, bad, good, bad, good});
    EXPECT_EQ(errors, (QMap<int, QString>{{1, FormatError}, {3, FormatError}}));
    EXPECT_EQ(recordTexts(), "0 2 4"_s);
    EXPECT_EQ(inspect().maps().size(), 3);
    for (const QVariantMap& kept : inspect().maps()) {
        EXPECT_EQ(kept.value(Legs).toList().size(), 2);
    }
}

TEST_F(LockPairs, AFormatErrorReplacesAnEarlierTextOfItsIndex)
{
    inspect().maps() = {instanceOf({legOf("Buy"_s, "0/0"_s)})};
    errors = {{0, "早先"_s}, {5, "别的"_s}};
    inspect().processParams4AILOCK(records, errors); // fewer records than instances
    EXPECT_EQ(errors, (QMap<int, QString>{{0, FormatError}, {5, "别的"_s}}));
    EXPECT_TRUE(inspect().maps().isEmpty());
}

// ---- the check on confirmation

TEST_F(LockPairs, AnEmptyBatchHasNoDataAndABatchNeedsAnAccount)
{
    EXPECT_EQ(check({}), "未获取到数据！"_s);
    accounts().setCurrentIndex(-1);
    EXPECT_EQ(check({}), "未获取到数据！"_s);
    EXPECT_EQ(check({instanceOf({})}), "未获取到交易账号！"_s);
}

TEST_F(LockPairs, ADirectionSuitsCertainEntrustPropertiesOnACashAccount)
{
    EXPECT_EQ(checkLeg("Buy"_s, "0"_s), QString());
    EXPECT_EQ(checkLeg("Sell"_s, "0"_s), QString());
    // The account takes NewOrder, neither direction does.
    EXPECT_EQ(checkLeg("Buy"_s, "NewOrder"_s), "第1行：交易方向与委托属性不符！\r\n"_s);
    EXPECT_EQ(checkLeg("Sell"_s, "NewOrder"_s), "第1行：交易方向与委托属性不符！\r\n"_s);
}

TEST_F(LockPairs, ADirectionSuitsCertainEntrustPropertiesOnACreditAccount)
{
    accounts().SetCurTradingAccount("CREDIT1"_s);
    goodProperty = "9"_s;
    struct Case {
        const char* property;
        bool buy;
        bool sell;
    };
    for (const Case& c : {Case{"6", true, false},
                          {"9", true, true},
                          {"7", false, true},
                          {"A", false, true},
                          {"8", false, false},
                          {"FundLoan", false, false},
                          {"CreditTransaction", false, false}}) {
        const QString fault = "第1行：交易方向与委托属性不符！\r\n"_s;
        EXPECT_EQ(checkLeg("Buy"_s, QString::fromLatin1(c.property)), c.buy ? QString() : fault)
            << c.property;
        EXPECT_EQ(checkLeg("Sell"_s, QString::fromLatin1(c.property)), c.sell ? QString() : fault)
            << c.property;
    }
}

TEST_F(LockPairs, DirectionsAreComparedExactly)
{
    for (const QString& direction : {"buy"_s, "SELL"_s, QString(), "BuyOpen"_s, "Buy "_s, "1"_s}) {
        EXPECT_EQ(checkLeg(direction, "0"_s), "第1行：交易方向错误！\r\n"_s) << qPrintable(direction);
    }
}

TEST_F(LockPairs, BothLegsMayHaveTheSameDirection)
{
    EXPECT_EQ(check({instanceOf({legOf("Buy"_s, "0"_s), legOf("Buy"_s, "0"_s)})}), QString());
}

TEST_F(LockPairs, AnEmptySecondPartIsAWrongDirectionOfTheSecondLeg)
{
    split({instanceOf({legOf("Buy/"_s, "0/0"_s)})});
    ASSERT_TRUE(errors.isEmpty());
    EXPECT_EQ(check(inspect().maps()), "第1行：交易方向错误！\r\n"_s);
}

TEST_F(LockPairs, ALegOfTheWrongAccountTypeHasNoExclamationMarkBeforeItsDirectionText)
{
    // 6 is no property of a cash account, and none of a sale.
    EXPECT_EQ(checkLeg("Sell"_s, "6"_s), "第1行：当前资产账号与模板中委托属性校验未通过，请检查\r\n"
                                         "第1行：交易方向与委托属性不符！\r\n"_s);
}

TEST_F(LockPairs, ARowMayYieldACountTextAndTwoTextsForEveryLegThatIsThere)
{
    const QVariantMap wrong = legOf("Sell"_s, "6"_s);
    EXPECT_EQ(check({instanceOf({legOf("Buy"_s, "0"_s), legOf("Sell"_s, "0"_s)}), instanceOf({wrong}),
                     instanceOf({wrong, legOf("?"_s, "0"_s), legOf("Buy"_s, "0"_s)})}),
              "第2行：标的数目错误！\r\n"
              "第2行：当前资产账号与模板中委托属性校验未通过，请检查\r\n"
              "第2行：交易方向与委托属性不符！\r\n"
              "第3行：标的数目错误！\r\n"
              "第3行：当前资产账号与模板中委托属性校验未通过，请检查\r\n"
              "第3行：交易方向与委托属性不符！\r\n"
              "第3行：交易方向错误！\r\n"_s);
}

TEST_F(LockPairs, AnAccountWithoutRecordsGivesItsTextOncePerLeg)
{
    inspect().maps() = {instanceOf({legOf("Buy"_s, "0"_s), legOf("Sell"_s, "0"_s)})};
    ReferenceTables poorer = tables;
    poorer.accounts.removeFirst(); // CASH1
    EmbeddedHost later{ReferenceData(poorer)};
    later.setPrompts(&prompts);
    button("btn_ok").click();
    EXPECT_EQ(lastBoxText(), "第%行：未获取到账号类型!\r\n第%行：未获取到账号类型!\r\n"_s);
}

TEST_F(LockPairs, LogsTheSplitInstancesAndALegOfNoDirection)
{
    const LogCapture log;
    split({instanceOf({legOf("Buy/Up"_s, "0/0"_s)})});
    check(inspect().maps());
    EXPECT_EQ(log.firstMissing({"processParams4AILOCK"_s, "Buy"_s, "Up"_s, " accountType:  \"Cash\""_s,
                                "checkAILOCK"_s, "Up"_s}),
              QString())
        << qPrintable(log.text());
}
