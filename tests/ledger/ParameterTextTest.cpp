#include "ledger/store/ParameterText.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

using namespace ledger;

TEST(ParameterText, KeepsEveryKindOfParameter)
{
    const QMap<QString, QVariant> parameters{
        {"text"_s, "<b>\"'\\\n"_s},
        {"number"_s, 123.4567},
        {"flag"_s, true},
        {"empty"_s, ""_s},
        {"list"_s, QVariantList{QMap<QString, QVariant>{{"a"_s, "b"_s}}}},
    };
    EXPECT_EQ(parametersFromText(parametersToText(parameters)), parameters);
}
