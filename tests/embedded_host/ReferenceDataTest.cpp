#include "tests/embedded_host/SampleTables.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

class ReferenceDataTest : public testing::Test {
protected:
    const ReferenceData data{sampleTables()};
};

TEST_F(ReferenceDataTest, CodeOfAnExchangeGivesItselfWhateverItsCase)
{
    EXPECT_EQ(data.normalizedExchange("SH"_s), "SH"_s);
    EXPECT_EQ(data.normalizedExchange("hksc"_s), "HKSC"_s);
}

TEST_F(ReferenceDataTest, AliasGivesItsExchangeWhateverItsCase)
{
    EXPECT_EQ(data.normalizedExchange("沪市"_s), "SH"_s);
    EXPECT_EQ(data.normalizedExchange("SsE"_s), "SH"_s);
}

TEST_F(ReferenceDataTest, ShownNameGivesItsExchange)
{
    EXPECT_EQ(data.normalizedExchange("深港通"_s), "HKSZ"_s);
}

TEST_F(ReferenceDataTest, ShownNameMustEqualExactly)
{
    ReferenceTables tables = sampleTables();
    tables.markets[0].name = "Shanghai"_s;
    EXPECT_EQ(ReferenceData(tables).normalizedExchange("shanghai"_s), "shanghai"_s);
    EXPECT_EQ(ReferenceData(tables).normalizedExchange("Shanghai"_s), "SH"_s);
}

TEST_F(ReferenceDataTest, BlanksAroundAMarketAreDropped)
{
    EXPECT_EQ(data.normalizedExchange(" \t上海\u3000"_s), "SH"_s);
    EXPECT_EQ(data.normalizedExchange("  NYSE "_s), "NYSE"_s);
}

TEST_F(ReferenceDataTest, EmptyTextIsNoMarketEvenWhereAMarketHasNoName)
{
    ReferenceTables tables = sampleTables();
    tables.markets[0].name.clear();
    EXPECT_EQ(ReferenceData(tables).normalizedExchange("  "_s), QString());
    EXPECT_EQ(ReferenceData(tables).symbolOf("600000"_s, ""_s), QString());
}

TEST_F(ReferenceDataTest, CodeOfALaterMarketWinsOverAliasOfAnEarlierOne)
{
    ReferenceTables tables = sampleTables();
    tables.markets[0].aliases.append("sz"_s);
    tables.markets[0].name = "深市"_s; // an alias of the second market
    EXPECT_EQ(ReferenceData(tables).normalizedExchange("SZ"_s), "SZ"_s);
    EXPECT_EQ(ReferenceData(tables).normalizedExchange("深市"_s), "SZ"_s);
}

TEST_F(ReferenceDataTest, SymbolIsFoundByCodeAndMarket)
{
    EXPECT_EQ(data.symbolOf("600000"_s, "SH"_s), "600000.SH"_s);
    EXPECT_EQ(data.symbolOf(" 600000 "_s, " 沪市 "_s), "600000.SH"_s);
    EXPECT_EQ(data.symbolOf("IF2512"_s, "中金所"_s), "IF2512.CFE"_s);
}

TEST_F(ReferenceDataTest, ShortCodeOfDigitsIsPaddedToTheMarketsLength)
{
    EXPECT_EQ(data.symbolOf("1"_s, "SZ"_s), "000001.SZ"_s);
    EXPECT_EQ(data.symbolOf("700"_s, "HKSZ"_s), "00700.HK"_s);
}

TEST_F(ReferenceDataTest, NothingButDigitsIsPadded)
{
    EXPECT_EQ(data.symbolOf("1 "_s, "CFFEX"_s), QString());
    EXPECT_EQ(data.symbolOf("+1"_s, "SZ"_s), QString());
    EXPECT_EQ(data.symbolOf("１"_s, "SZ"_s), QString()) << "a full-width digit";
    EXPECT_EQ(data.symbolOf(""_s, "SZ"_s), QString());
    EXPECT_EQ(data.symbolOf("0000001"_s, "SZ"_s), QString()) << "longer than the market's codes";
}

TEST_F(ReferenceDataTest, EmptyCodeIsNotPaddedToACodeOfZeros)
{
    ReferenceTables tables = sampleTables();
    tables.securities[1].code = "000000"_s;
    EXPECT_EQ(ReferenceData(tables).symbolOf(" "_s, "SZ"_s), QString());
    EXPECT_EQ(ReferenceData(tables).symbolOf("0"_s, "SZ"_s), "000001.SZ"_s);
}

TEST_F(ReferenceDataTest, ShortCodeThatExistsIsNotPadded)
{
    ReferenceTables tables = sampleTables();
    Security shortCode = tables.securities[1];
    shortCode.symbol = "1.SZ"_s;
    shortCode.code = "1"_s;
    tables.securities.append(shortCode);
    EXPECT_EQ(ReferenceData(tables).symbolOf("1"_s, "SZ"_s), "1.SZ"_s);
}

TEST_F(ReferenceDataTest, HongKongSecurityIsFoundUnderEitherOfItsMarkets)
{
    ReferenceTables tables = sampleTables();
    tables.securities[2].exchanges = QStringList{"HKSC"_s};
    const ReferenceData oneExchange(tables);
    EXPECT_EQ(oneExchange.symbolOf("00700"_s, "HKSC"_s), "00700.HK"_s);
    EXPECT_EQ(oneExchange.symbolOf("00700"_s, "深港通"_s), "00700.HK"_s);
}

TEST_F(ReferenceDataTest, UnknownMarketOrCodeHasNoSymbol)
{
    EXPECT_EQ(data.symbolOf("600000"_s, "NYSE"_s), QString());
    EXPECT_EQ(data.symbolOf("999999"_s, "SH"_s), QString());
    EXPECT_EQ(data.symbolOf("600000"_s, "SZ"_s), QString());
}

TEST_F(ReferenceDataTest, OfTwoSecuritiesWithOneCodeTheFirstIsMeant)
{
    ReferenceTables tables = sampleTables();
    Security second = tables.securities[0];
    second.symbol = "600000B.SH"_s;
    tables.securities.append(second);
    EXPECT_EQ(ReferenceData(tables).symbolOf("600000"_s, "SH"_s), "600000.SH"_s);
    EXPECT_NE(ReferenceData(tables).security("600000B.SH"_s), nullptr);
}

TEST_F(ReferenceDataTest, LookUpsOfUnknownKeysFindNothing)
{
    EXPECT_EQ(data.security("600000"_s), nullptr);
    EXPECT_EQ(data.futuresContract("600000.SH"_s), nullptr);
    EXPECT_EQ(data.account("9"_s), nullptr);
    EXPECT_EQ(data.market("sh"_s), nullptr) << "exchange codes are exact once normalised";
    EXPECT_EQ(data.strategy("aitwap"_s), nullptr);
    EXPECT_EQ(data.quote("00700.HK"_s), nullptr);
    EXPECT_EQ(data.securityAccount("2001"_s, "SH"_s), QString());
    EXPECT_EQ(ReferenceData().symbolOf("600000"_s, "SH"_s), QString());
}

TEST_F(ReferenceDataTest, EverythingIsAllowedWithoutAuthorities)
{
    EXPECT_TRUE(data.isAllowed("1001"_s, "AITWAP"_s));
}

TEST_F(ReferenceDataTest, OnlyListedAuthoritiesAreAllowed)
{
    ReferenceTables tables = sampleTables();
    tables.everythingAllowed = false;
    EXPECT_FALSE(ReferenceData(tables).isAllowed("1001"_s, "AITWAP"_s));
    tables.authorities = {{"1001"_s, "AITWAP"_s}, {"2001"_s, "*"_s}, {"*"_s, "AIPOV"_s}};
    const ReferenceData listed(tables);
    EXPECT_TRUE(listed.isAllowed("1001"_s, "AITWAP"_s));
    EXPECT_FALSE(listed.isAllowed("1001"_s, "AIVWAP"_s));
    EXPECT_TRUE(listed.isAllowed("2001"_s, "AIVWAP"_s));
    EXPECT_TRUE(listed.isAllowed("1001"_s, "AIPOV"_s));
}

TEST_F(ReferenceDataTest, StarForBothAllowsEverything)
{
    ReferenceTables tables = sampleTables();
    tables.everythingAllowed = false;
    tables.authorities = {{"*"_s, "*"_s}};
    EXPECT_TRUE(ReferenceData(tables).isAllowed("77"_s, "ANY"_s));
}

} // namespace
