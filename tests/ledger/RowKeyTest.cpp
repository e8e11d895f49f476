#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

using namespace ledger;

TEST(RowKey, IsTheSameForTheSameOrderWhateverTimesAndPrices)
{
    InstanceDraft instance = sampleInstance({});
    const QString key = rowKey("AITWAP"_s, instance);
    instance.parameters.insert("开始时间"_s, "2025-11-03 09:31:07"_s);
    instance.legs[0].amount = 12345;
    EXPECT_EQ(rowKey("AITWAP"_s, instance), key);
    EXPECT_NE(rowKey("AIVWAP"_s, instance), key);
    for (const SampleRow& other :
         {SampleRow{"600001.SH"_s}, SampleRow{"600000.SH"_s, "Sell"_s},
          SampleRow{"600000.SH"_s, "Buy"_s, 1001}, SampleRow{"600000.SH"_s, "Buy"_s, 1000, 10.01_d}}) {
        EXPECT_NE(rowKey("AITWAP"_s, sampleInstance(other)), key);
    }
}
