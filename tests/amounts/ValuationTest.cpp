// What a Hong Kong security is worth in CNY, as arithmetic.

#include "amounts/Valuation.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

const QMap<QString, QMap<QString, QVariant>> Rates = {
    {QStringLiteral("HKSH"),
     {{QStringLiteral("HKSExchgRateBuy"), 0.90}, {QStringLiteral("HKSExchgRateSell"), 0.93}}},
    {QStringLiteral("HKSZ"), {{QStringLiteral("HKSExchgRateBuy"), 0.91}}}};

} // namespace

TEST(Valuation, APurchaseIsValuedAtTheSellingRateAndASaleAtTheBuyingOne)
{
    const amounts::SideFactors factors = amounts::hongKongFactors(Rates, "HKSH"_s);
    EXPECT_EQ(factors.of("Buy"_s), 0.93);
    EXPECT_EQ(factors.of("Sell"_s), 0.90);
    EXPECT_EQ(factors.of("Buy/Sell"_s), 1.0);
}

TEST(Valuation, AMissingRateIsZeroAndNoRatesAreNoConversion)
{
    EXPECT_EQ(amounts::hongKongFactors(Rates, "HKSZ"_s).buy, 0.0);
    EXPECT_EQ(amounts::hongKongFactors(Rates, "SH"_s).sell, 0.0);
    EXPECT_EQ(amounts::hongKongFactors({}, "HKSH"_s).buy, 1.0);
}

TEST(Valuation, SubTypesTellHongKongSecurities)
{
    for (const QString& subType : {"HK_MAIN"_s, "HK_GEM"_s, "H_CIRCULATION"_s}) {
        EXPECT_TRUE(amounts::isHongKongSubType(subType)) << qPrintable(subType);
    }
    EXPECT_FALSE(amounts::isHongKongSubType("STAR"_s));
    EXPECT_FALSE(amounts::isHongKongSubType(QString()));
}
