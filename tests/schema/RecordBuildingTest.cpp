#include "tests/support/DialogFixture.h"

namespace {

const QString Quantity = QStringLiteral("委托数量");
const QString Symbol = QStringLiteral("证券代码");

class RecordBuilding : public DialogFixture {
protected:
    void SetUp() override { open(); }

    void file(const QString& column, const QString& value)
    {
        inspect().transColData2ParamMap(column, value, security, instance);
    }

    QVariantMap security;
    QVariantMap instance;
};

} // namespace

TEST_F(RecordBuilding, ACellHoldsItsShownTextAndItsValue)
{
    RecordData record;
    inspect().transRecordMap(record, 3, "买入"_s, "1"_s);
    const RecordData expected = {{3, {{"0"_s, "买入"_s}, {"256"_s, "1"_s}}}};
    EXPECT_EQ(record, expected);
}

TEST_F(RecordBuilding, ARepeatedCallOverwritesBothTextsAndLeavesOtherKeys)
{
    RecordData record = {{3, {{"0"_s, "旧"_s}, {"7"_s, "其他"_s}}}, {4, {{"0"_s, "邻"_s}}}};
    inspect().transRecordMap(record, 3, "卖出"_s, "2"_s);
    const RecordData expected = {{3, {{"0"_s, "卖出"_s}, {"256"_s, "2"_s}, {"7"_s, "其他"_s}}},
                                 {4, {{"0"_s, "邻"_s}}}};
    EXPECT_EQ(record, expected);
}

TEST_F(RecordBuilding, AQuantityIsCountedInTheSecuritysDisplayedQuantity)
{
    struct Case {
        const char* value;
        const char* kept;
    };
    const Case cases[] = {{"1000", "10"},      {"1050", "10"}, {"99", "0"},      {"abc", "0"}, {"", "0"},
                          {"99.9999995", "1"}, {"-150", "-1"}, {"1099.9", "10"}, {"1e3", "10"}};
    for (const Case& c : cases) {
        security = {{Symbol, "131810.SZ"_s}}; // display factor 100
        file(Quantity, QString::fromLatin1(c.value));
        EXPECT_EQ(security.value(Quantity), QVariant(QString::fromLatin1(c.kept))) << c.value;
    }
}

TEST_F(RecordBuilding, AQuantityWithoutASymbolAsksTheHostForTheEmptyOne)
{
    host->journal().clear();
    file(Quantity, "1000"_s);
    const auto asked = callsOf("SolveyBusinessDataInterface::GetDispFactorBySymbol");
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.first().arguments, QVariantList{QString()});
}

TEST_F(RecordBuilding, AQuantityUnderTheSymbolsIdentifierIsItselfTakenForTheSymbol)
{
    inspect().paramIds()[Quantity] = Symbol;
    security[Symbol] = "131810.SZ"_s; // display factor 100
    host->journal().clear();
    file(Quantity, "1000"_s);
    const auto asked = callsOf("SolveyBusinessDataInterface::GetDispFactorBySymbol");
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.first().arguments, QVariantList{"1000"_s});
    EXPECT_EQ(security, (QVariantMap{{Symbol, "1000"_s}}));
}

TEST_F(RecordBuilding, ADisplayFactorOfZeroCountsAsOne)
{
    tables.securities.first().dispFactor = 0; // 600000.SH
    open();
    security[Symbol] = "600000.SH"_s;
    file(Quantity, "1000"_s);
    EXPECT_EQ(security.value(Quantity), QVariant("1000"_s));
}

TEST_F(RecordBuilding, AnInstanceParameterGoesIntoTheInstanceAlone)
{
    file("实例备注"_s, "备忘"_s);
    EXPECT_TRUE(security.isEmpty());
    EXPECT_EQ(instance, (QVariantMap{{"实例备注"_s, "备忘"_s}}));
}

TEST_F(RecordBuilding, ASecurityParameterGoesIntoTheSecurityAlone)
{
    file(Symbol, "600000.SH"_s);
    file("市场"_s, "SH"_s);
    EXPECT_EQ(security, (QVariantMap{{Symbol, "600000.SH"_s}, {"市场"_s, "SH"_s}}));
    EXPECT_TRUE(instance.isEmpty());
}

TEST_F(RecordBuilding, AColumnInBothListsIsWrittenIntoBothMaps)
{
    inspect().instanceParams().append(Quantity);
    security[Symbol] = "131810.SZ"_s;
    file(Quantity, "1000"_s);
    EXPECT_EQ(security.value(Quantity), QVariant("10"_s));
    EXPECT_EQ(instance.value(Quantity), QVariant("1000"_s)) << "only the security's is converted";
}

TEST_F(RecordBuilding, AColumnInNeitherListChangesNothing)
{
    file("没有"_s, "1"_s);
    EXPECT_TRUE(security.isEmpty());
    EXPECT_TRUE(instance.isEmpty());
    EXPECT_FALSE(inspect().paramIds().contains("没有"_s));
}

TEST_F(RecordBuilding, ValuesTravelUnderTheParametersIdentifier)
{
    inspect().paramIds()["实例备注"_s] = "remark"_s;
    file("实例备注"_s, "备忘"_s);
    EXPECT_EQ(instance, (QVariantMap{{"remark"_s, "备忘"_s}}));
}

TEST_F(RecordBuilding, AListedColumnWithoutAnIdentifierTravelsUnderTheEmptyOne)
{
    inspect().symbolParams().append("无号"_s);
    file("无号"_s, "1"_s);
    EXPECT_EQ(security, (QVariantMap{{QString(), "1"_s}}));
    EXPECT_TRUE(inspect().paramIds().contains("无号"_s));
    EXPECT_FALSE(inspect().paramIds().value("无号"_s).isValid());
}

TEST_F(RecordBuilding, AnImportedRowReachesTableAndParameterMap)
{
    importRows({small_market::ordinaryHeader(), small_market::ordinaryRow("131810"_s, "SZ"_s, "1050"_s)});
    EXPECT_EQ(lastBoxText(), QString());
    EXPECT_EQ(shown(0, Quantity), "1050"_s);
    EXPECT_EQ(value(0, Quantity), "1050"_s) << "the table keeps the file's units";
    EXPECT_EQ(leg(0).value(Quantity), QVariant("10"_s));
    EXPECT_EQ(leg(0).value(Symbol), QVariant("131810.SZ"_s));
    EXPECT_EQ(shown(0, "交易方向"_s), "买入"_s);
    EXPECT_EQ(value(0, "交易方向"_s), "Buy"_s);
    EXPECT_EQ(dialog->getWidgetData().first().value("交易方向"_s), QVariant("Buy"_s));
}
