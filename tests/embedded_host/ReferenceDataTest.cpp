#include "tests/embedded_host/SampleTables.h"
#include "tests/embedded_host/Support.h"

#include <gtest/gtest.h>

namespace {

class ReferenceDataTest : public testing::Test {
protected:
    const ReferenceData data{sampleTables()};
};

TEST_F(ReferenceDataTest, CodeOfAnExchangeGivesItselfWhateverItsCase)
{
    EXPECT_EQ(data.normalizedExchange(u"SH"_s), u"SH"_s);
    EXPECT_EQ(data.normalizedExchange(u"hksc"_s), u"HKSC"_s);
}

TEST_F(ReferenceDataTest, AliasGivesItsExchangeWhateverItsCase)
{
    EXPECT_EQ(data.normalizedExchange(u"沪市"_s), u"SH"_s);
    EXPECT_EQ(data.normalizedExchange(u"SsE"_s), u"SH"_s);
}

TEST_F(ReferenceDataTest, ShownNameGivesItsExchange)
{
    EXPECT_EQ(data.normalizedExchange(u"深港通"_s), u"HKSZ"_s);
}

TEST_F(ReferenceDataTest, ShownNameMustEqualExactly)
{
    ReferenceTables tables = sampleTables();
    tables.markets[0].name = u"Shanghai"_s;
    EXPECT_EQ(ReferenceData(tables).normalizedExchange(u"shanghai"_s), u"shanghai"_s);
    EXPECT_EQ(ReferenceData(tables).normalizedExchange(u"Shanghai"_s), u"SH"_s);
}

TEST_F(ReferenceDataTest, BlanksAroundAMarketAreDropped)
{
    EXPECT_EQ(data.normalizedExchange(u" \t上海\u3000"_s), u"SH"_s);
    EXPECT_EQ(data.normalizedExchange(u"  NYSE "_s), u"NYSE"_s);
}

TEST_F(ReferenceDataTest, EmptyTextIsNoMarketEvenWhereAMarketHasNoName)
{
    ReferenceTables tables = sampleTables();
    tables.markets[0].name.clear();
    EXPECT_EQ(ReferenceData(tables).normalizedExchange(u"  "_s), QString());
    EXPECT_EQ(ReferenceData(tables).symbolOf(u"600000"_s, u""_s), QString());
}

TEST_F(ReferenceDataTest, CodeOfALaterMarketWinsOverAliasOfAnEarlierOne)
{
    ReferenceTables tables = sampleTables();
    tables.markets[0].aliases.append(u"sz"_s);
    tables.markets[0].name = u"深市"_s; // an alias of the second market
    EXPECT_EQ(ReferenceData(tables).normalizedExchange(u"SZ"_s), u"SZ"_s);
    EXPECT_EQ(ReferenceData(tables).normalizedExchange(u"深市"_s), u"SZ"_s);
}

TEST_F(ReferenceDataTest, SymbolIsFoundByCodeAndMarket)
{
    EXPECT_EQ(data.symbolOf(u"600000"_s, u"SH"_s), u"600000.SH"_s);
    EXPECT_EQ(data.symbolOf(u" 600000 "_s, u" 沪市 "_s), u"600000.SH"_s);
    EXPECT_EQ(data.symbolOf(u"IF2512"_s, u"中金所"_s), u"IF2512.CFE"_s);
}

TEST_F(ReferenceDataTest, ShortCodeOfDigitsIsPaddedToTheMarketsLength)
{
    EXPECT_EQ(data.symbolOf(u"1"_s, u"SZ"_s), u"000001.SZ"_s);
    EXPECT_EQ(data.symbolOf(u"700"_s, u"HKSZ"_s), u"00700.HK"_s);
}

TEST_F(ReferenceDataTest, NothingButDigitsIsPadded)
{
    EXPECT_EQ(data.symbolOf(u"1 "_s, u"CFFEX"_s), QString());
    EXPECT_EQ(data.symbolOf(u"+1"_s, u"SZ"_s), QString());
    EXPECT_EQ(data.symbolOf(u"１"_s, u"SZ"_s), QString()) << "a full-width digit";
    EXPECT_EQ(data.symbolOf(u""_s, u"SZ"_s), QString());
    EXPECT_EQ(data.symbolOf(u"0000001"_s, u"SZ"_s), QString()) << "longer than the market's codes";
}

TEST_F(ReferenceDataTest, EmptyCodeIsNotPaddedToACodeOfZeros)
{
    ReferenceTables tables = sampleTables();
    tables.securities[1].code = u"000000"_s;
    EXPECT_EQ(ReferenceData(tables).symbolOf(u" "_s, u"SZ"_s), QString());
    EXPECT_EQ(ReferenceData(tables).symbolOf(u"0"_s, u"SZ"_s), u"000001.SZ"_s);
}

TEST_F(ReferenceDataTest, ShortCodeThatExistsIsNotPadded)
{
    ReferenceTables tables = sampleTables();
    Security shortCode = tables.securities[1];
    shortCode.symbol = u"1.SZ"_s;
    shortCode.code = u"1"_s;
    tables.securities.append(shortCode);
    EXPECT_EQ(ReferenceData(tables).symbolOf(u"1"_s, u"SZ"_s), u"1.SZ"_s);
}

TEST_F(ReferenceDataTest, HongKongSecurityIsFoundUnderEitherOfItsMarkets)
{
    ReferenceTables tables = sampleTables();
    tables.securities[2].exchanges = QStringList{u"HKSC"_s};
    const ReferenceData oneExchange(tables);
    EXPECT_EQ(oneExchange.symbolOf(u"00700"_s, u"HKSC"_s), u"00700.HK"_s);
    EXPECT_EQ(oneExchange.symbolOf(u"00700"_s, u"深港通"_s), u"00700.HK"_s);
}

TEST_F(ReferenceDataTest, UnknownMarketOrCodeHasNoSymbol)
{
    EXPECT_EQ(data.symbolOf(u"600000"_s, u"NYSE"_s), QString());
    EXPECT_EQ(data.symbolOf(u"999999"_s, u"SH"_s), QString());
    EXPECT_EQ(data.symbolOf(u"600000"_s, u"SZ"_s), QString());
}

TEST_F(ReferenceDataTest, OfTwoSecuritiesWithOneCodeTheFirstIsMeant)
{
    ReferenceTables tables = sampleTables();
    Security second = tables.securities[0];
    second.symbol = u"600000B.SH"_s;
    tables.securities.append(second);
    EXPECT_EQ(ReferenceData(tables).symbolOf(u"600000"_s, u"SH"_s), u"600000.SH"_s);
    EXPECT_NE(ReferenceData(tables).security(u"600000B.SH"_s), nullptr);
}

TEST_F(ReferenceDataTest, LookUpsOfUnknownKeysFindNothing)
{
    EXPECT_EQ(data.security(u"600000"_s), nullptr);
    EXPECT_EQ(data.futuresContract(u"600000.SH"_s), nullptr);
    EXPECT_EQ(data.account(u"9"_s), nullptr);
    EXPECT_EQ(data.market(u"sh"_s), nullptr) << "exchange codes are exact once normalised";
    EXPECT_EQ(data.strategy(u"aitwap"_s), nullptr);
    EXPECT_EQ(data.quote(u"00700.HK"_s), nullptr);
    EXPECT_EQ(data.securityAccount(u"2001"_s, u"SH"_s), QString());
    EXPECT_EQ(ReferenceData().symbolOf(u"600000"_s, u"SH"_s), QString());
}

TEST_F(ReferenceDataTest, EverythingIsAllowedWithoutAuthorities)
{
    EXPECT_TRUE(data.isAllowed(u"1001"_s, u"AITWAP"_s));
}

TEST_F(ReferenceDataTest, OnlyListedAuthoritiesAreAllowed)
{
    ReferenceTables tables = sampleTables();
    tables.everythingAllowed = false;
    EXPECT_FALSE(ReferenceData(tables).isAllowed(u"1001"_s, u"AITWAP"_s));
    tables.authorities = {{u"1001"_s, u"AITWAP"_s}, {u"2001"_s, u"*"_s}, {u"*"_s, u"AIPOV"_s}};
    const ReferenceData listed(tables);
    EXPECT_TRUE(listed.isAllowed(u"1001"_s, u"AITWAP"_s));
    EXPECT_FALSE(listed.isAllowed(u"1001"_s, u"AIVWAP"_s));
    EXPECT_TRUE(listed.isAllowed(u"2001"_s, u"AIVWAP"_s));
    EXPECT_TRUE(listed.isAllowed(u"1001"_s, u"AIPOV"_s));
}

TEST_F(ReferenceDataTest, StarForBothAllowsEverything)
{
    ReferenceTables tables = sampleTables();
    tables.everythingAllowed = false;
    tables.authorities = {{u"*"_s, u"*"_s}};
    EXPECT_TRUE(ReferenceData(tables).isAllowed(u"77"_s, u"ANY"_s));
}

} // namespace
