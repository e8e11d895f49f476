#include "embedded_host/table_reader/shared/NumberLook.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

using table_reader::NumberLook;
using table_reader::saysOtherwise;

namespace {

struct Case {
    QString code;
    double value;
    QString shown; ///< null: as it is, or in an unknown way
};

void PrintTo(const Case& c, std::ostream* out)
{
    *out << c.code.toStdString() << " of " << c.value;
}

class Look : public testing::TestWithParam<Case> {};

TEST_P(Look, IsThatOfASpreadsheet)
{
    const auto& [code, value, shown] = GetParam();
    EXPECT_EQ(shown, NumberLook(code).shown(value).value_or(QString()));
    EXPECT_EQ(shown.isNull(), !NumberLook(code).shown(value).has_value());
}

const Case Cases[] = {
    // rounded, grouped, filled up
    {"0"_s, 2499.6, "2500"_s},
    {"0.00"_s, 1.005, "1.01"_s},
    {"0.00"_s, -0.001, "0.00"_s},
    {"#,##0"_s, 1234567, "1,234,567"_s},
    {"#,##0.00"_s, 999.999, "1,000.00"_s},
    {"#.##"_s, 0.5, ".5"_s},
    {"0.0#"_s, 3, "3.0"_s},
    {"000000"_s, 1, "000001"_s},
    {".00"_s, 12.3, "12.30"_s},
    // scaled
    {"0%"_s, 0.15, "15%"_s},
    {"0.00%"_s, 0.01785, "1.79%"_s},
    {"#,##0,"_s, 2500, "3"_s},
    {"0!.0,\"万\""_s, 250000, "25.0万"_s},
    {"0.00E+00"_s, 123456, "1.23E+05"_s},
    // with words
    {"0\"手\""_s, 10, "10手"_s},
    {"0手"_s, 10, "10手"_s},
    {"General\"股\""_s, 12.5, "12.5股"_s},
    {"\\x0"_s, 7, "x7"_s},
    {"[$¥-804]#,##0.00"_s, 9.86, "¥9.86"_s},
    // by sign and by condition
    {"0;(0)"_s, -100, "(100)"_s},
    {"0.00;[Red]0.00"_s, -1.5, "1.50"_s},
    {"0;-0;\"无\""_s, 0, "无"_s},
    {";;;"_s, 5, ""_s},
    {"[>=10000]0!.0,\"万\";0"_s, 9000, "9000"_s},
    {"[<1]0.00%;0"_s, 0.5, "50.00%"_s},
    {"_ * #,##0.00_ ;_ * -#,##0.00_ "_s, -3, "-3.00"_s},
    // as they are, or unknown
    {"General"_s, 2499.6, QString()},
    {"@"_s, 1, QString()},
    {"# ?/?"_s, 0.5, QString()},
    {"[DBNum1]0"_s, 5, QString()},
};

INSTANTIATE_TEST_SUITE_P(OfNumbers, Look, testing::ValuesIn(Cases));

} // namespace

TEST(SaysOtherwise, OnlyWhereAnotherNumberIsRead)
{
    EXPECT_FALSE(saysOtherwise("2,500.00"_s, 2500));
    EXPECT_FALSE(saysOtherwise(" ¥9.86 "_s, 9.86));
    EXPECT_FALSE(saysOtherwise("9,86"_s, 9.86));
    EXPECT_FALSE(saysOtherwise("0.3333333333"_s, 1.0 / 3));
    EXPECT_FALSE(saysOtherwise("-"_s, 0));
    EXPECT_FALSE(saysOtherwise("0%"_s, 0));
    EXPECT_TRUE(saysOtherwise("2500"_s, 2499.6));
    EXPECT_TRUE(saysOtherwise("15%"_s, 0.15));
    EXPECT_TRUE(saysOtherwise("10手"_s, 10));
    EXPECT_TRUE(saysOtherwise("(100)"_s, -100));
    EXPECT_TRUE(saysOtherwise(""_s, 5));
    EXPECT_TRUE(saysOtherwise("无"_s, 5));
}

TEST(Look, OfAnyCodeIsFound)
{
    for (const QString& code :
         {"["_s, "\""_s, "\\"_s, ";"_s, "0.0.0"_s, "E+"_s, "0E+E+"_s, "[>]0"_s,
          QString(1000, QLatin1Char('0')), "."_s + QString(1000, QLatin1Char('0')),
          QString(400, QLatin1Char('%')) + "0"_s, "0"_s + QString(99, QLatin1Char(','))}) {
        for (const double value : {0.0, -1.5, 1e300, -1e-300}) {
            const QString shown = NumberLook(code).shown(value).value_or(QString());
            EXPECT_LT(shown.size(), 3000) << qPrintable(code);
        }
    }
}
