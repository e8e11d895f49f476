#include "desk/batch/HostPrices.h"

#include "embedded_host/EmbeddedHost.h"
#include "host/CommonQuotaHandler.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/support/SmallMarket.h"

#include <gtest/gtest.h>

using namespace batch;
using namespace ledger;

namespace {

/// The price of one leg on the small market.
Price priceOf(const QString& symbol, const QString& exchange,
              const ReferenceTables& tables = small_market::tables())
{
    const EmbeddedHost host{ReferenceData(tables)};
    CommonQuotaHandler::instance()->SubscribeQuota({symbol}, true, 0);
    BatchDraft draft = sampleDraft(1);
    draft.instances[0].legs[0].symbol = symbol;
    draft.instances[0].legs[0].exchange = exchange;
    return hostPrices(draft).value({symbol, exchange});
}

} // namespace

TEST(HostPrices, OfAStockAreTheLastPriceWithoutAFactor)
{
    const Price price = priceOf("600000.SH"_s, "SH"_s);
    EXPECT_EQ(price.last, 10);
    EXPECT_EQ(price.buyFactor, 1);
    EXPECT_EQ(price.sellFactor, 1);
    EXPECT_FALSE(price.isNominal);
}

TEST(HostPrices, OfAFutureCarryItsMultiplier)
{
    const Price price = priceOf("IF2412.CFE"_s, "CFE"_s);
    EXPECT_EQ(price.buyFactor, 300);
    EXPECT_EQ(price.sellFactor, 300);
}

TEST(HostPrices, OfABondRepoAreItsFaceValue)
{
    const Price price = priceOf("204001.SH"_s, "SH"_s);
    EXPECT_EQ(price.last, 100);
    EXPECT_TRUE(price.isNominal);
}

TEST(HostPrices, OfAHongKongSecurityCarryTheRateOfEachSide)
{
    const Price price = priceOf("00700.HK"_s, "HKSH"_s);
    EXPECT_EQ(price.last, 300);
    EXPECT_EQ(price.buyFactor, 0.95_d) << "the rate at which the bank sells";
    EXPECT_EQ(price.sellFactor, 0.9_d);
}

TEST(HostPrices, WithoutARateHaveNoFactor)
{
    const Price price = priceOf("00700.HK"_s, "HKSZ"_s);
    EXPECT_EQ(price.buyFactor, 0);
    EXPECT_EQ(price.sellFactor, 0.8_d);
}

TEST(HostPrices, OfAHostWithoutAnyRatesAreTakenAsTheyStand)
{
    ReferenceTables tables = small_market::tables();
    tables.hkRates.clear();
    EXPECT_EQ(priceOf("00700.HK"_s, "HKSH"_s, tables).buyFactor, 1);
}

TEST(HostPrices, WithoutAQuoteAreNone)
{
    EXPECT_EQ(priceOf("600999.SH"_s, "SH"_s).last, 0);
}
