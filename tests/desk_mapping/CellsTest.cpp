// Single cells: what each is told as, or that it stays as it stands.

#include "desk/mapping/Cells.h"

#include "embedded_host/reference_data/ReferenceData.h"
#include "tests/support/SmallMarket.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

using mapping::DateOrder;

const QDate Today(2026, 11, 23);
const QString Stays = QStringLiteral("(stays)");

struct Case {
    const char* text;
    const char* told; ///< null: cannot be read for certain
};

template <typename Tell> void expectTold(const QList<Case>& cases, const Tell& tell)
{
    for (const Case& one : cases) {
        const QString wanted = one.told ? QString::fromUtf8(one.told) : Stays;
        EXPECT_EQ(tell(QString::fromUtf8(one.text)).value_or(Stays), wanted) << one.text;
    }
}

TEST(MappedCells, AQuantityIsExactOrStays)
{
    expectTold({{"1000", "1000"},       {"1,000", "1000"},   {" 12,345,600 ", "12345600"},
                {"１，０００", "1000"}, {"1 000", "1000"},   {"1,000.00", "1000"},
                {"-1,000", "-1000"},    {"+500", "500"},     {"1,000.50", nullptr},
                {"1.000,00", nullptr},  {"1.000", nullptr},  {"1,00", nullptr},
                {"10,00,000", nullptr}, {"0,100", nullptr},  {"1,000 000", nullptr},
                {"1e3", nullptr},       {"1000股", nullptr}, {"1'000", nullptr},
                {"", nullptr},          {",", nullptr}},
               mapping::quantityOf);
}

TEST(MappedCells, AnAmountKeepsItsCents)
{
    expectTold({{"100,000", "100000"},
                {"1,234,567.89", "1234567.89"},
                {"1,000.50", "1000.50"},
                {"1000.5", "1000.5"},
                {"1.000,50", nullptr},
                {"1.234.567", nullptr},
                {"1,000.505", nullptr}},
               mapping::amountOf);
}

TEST(MappedCells, APriceOfOneGroupMayBeAFractionAndStays)
{
    expectTold({{"9.86", "9.86"},
                {"1,680.00", "1680.00"},
                {"1,680", nullptr},
                {"1,234,567", "1234567"},
                {"9,86", nullptr},
                {"9.8/9.9", nullptr}},
               mapping::decimalOf);
}

TEST(MappedCells, ATimeOfManyLayoutsIsToldInOne)
{
    expectTold({{"2026/11/23 9:35", "2026-11-23 09:35:00"},
                {"2026-11-23 09:35:07", "2026-11-23 09:35:07"},
                {"2026-11-23T09:35:00.000", "2026-11-23 09:35:00"},
                {"2026.11.3 14:05", "2026-11-03 14:05:00"},
                {"20261123 0935", "2026-11-23 09:35:00"},
                {"20261123 093507", "2026-11-23 09:35:07"},
                {"2026年11月23日 9:35", "2026-11-23 09:35:00"},
                {"2026年11月23日9:35", "2026-11-23 09:35:00"},
                {"2026-11-23 2:35 PM", "2026-11-23 14:35:00"},
                {"2026-11-23 12:05 am", "2026-11-23 00:05:00"},
                {"9:35", "2026-11-23 09:35:00"},
                {"14:50:30", "2026-11-23 14:50:30"},
                {"2026-11-23", nullptr},
                {"0935", nullptr},
                {"20261123", nullptr},
                {"2026-02-30 09:35", nullptr},
                {"2026-11-23 25:00", nullptr},
                {"2026-11-23 13:00 PM", nullptr},
                {"2026-11-23 09:35:00.500", nullptr},
                {"11/23/2026 9:35", nullptr},
                {"open", nullptr}},
               [](const QString& text) { return mapping::dateTimeOf(text, DateOrder::YearFirst, Today); });
}

TEST(MappedCells, OfTwoSmallNumbersTheOrderSaysWhichIsTheDay)
{
    const auto told = [](DateOrder order) {
        return mapping::dateTimeOf("3/4/2026 9:35"_s, order, Today).value_or(Stays);
    };
    EXPECT_EQ(told(DateOrder::DayFirst), "2026-04-03 09:35:00"_s);
    EXPECT_EQ(told(DateOrder::MonthFirst), "2026-03-04 09:35:00"_s);
    EXPECT_EQ(told(DateOrder::YearFirst), Stays);
    EXPECT_FALSE(mapping::dateTimeOf("23/11/2026 9:35"_s, DateOrder::MonthFirst, Today));
}

TEST(MappedCells, ACodeIsToldFromItsMarket)
{
    const mapping::Surroundings surroundings = mapping::surroundingsOf(ReferenceData(small_market::tables()));
    const auto told = [&](const char* text) {
        const mapping::CodeAndMarket read = mapping::codeOf(QString::fromUtf8(text), surroundings);
        return (QStringList{read.code} + read.exchanges).join(QLatin1Char(' '));
    };
    EXPECT_EQ(told("600000.SH"), "600000 SH"_s);
    EXPECT_EQ(told("600000.sh"), "600000 SH"_s);
    EXPECT_EQ(told("SH600000"), "600000 SH"_s);
    EXPECT_EQ(told("sz.000001"), "000001 SZ"_s);
    EXPECT_EQ(told("600000.SS"), "600000 SH"_s);
    EXPECT_EQ(told("00700.HK"), "00700 HKSH HKSZ"_s);
    EXPECT_EQ(told("IF2412.CFE"), "IF2412 CFE"_s);
    EXPECT_EQ(told("IF2412"), "IF2412"_s);
    EXPECT_EQ(told("600000"), "600000"_s);
    EXPECT_EQ(told("600000.XX"), "600000.XX"_s);
}

TEST(MappedCells, ValuesComeBeforeTheFormAndLegByLeg)
{
    mapping::Column side{"Side"_s,
                         1,
                         "交易方向"_s,
                         mapping::Form::AsIs,
                         DateOrder::YearFirst,
                         {{"B"_s, "1"_s}, {"S"_s, "2"_s}}};
    const auto told = [&](const QString& text) { return mapping::toldAnew(side, text, {}); };
    EXPECT_EQ(told("B"_s), "1"_s);
    EXPECT_EQ(told(" b "_s), "1"_s);
    EXPECT_EQ(told("Ｓ"_s), "2"_s);
    EXPECT_EQ(told("B/S"_s), "1/2"_s);
    EXPECT_EQ(told("B/X"_s), "B/X"_s);
    EXPECT_EQ(told("short"_s), "short"_s);
    EXPECT_EQ(told(" "_s), QString());
}

} // namespace
