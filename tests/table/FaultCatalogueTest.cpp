// The catalogue names each rule once and fills its sentence in one pass.

#include "table/FaultCatalogue.h"

#include "table/Rules.h"

#include <gtest/gtest.h>

#include <QSet>

namespace {

TEST(FaultCatalogue, EveryRuleIsListedOnce)
{
    QSet<QString> seen;
    for (const table::RuleEntry& entry : table::allRules()) {
        EXPECT_FALSE(seen.contains(entry.rule)) << qPrintable(entry.rule);
        // The dialog drops such a row without a word.
        EXPECT_EQ(entry.chinese.isEmpty(), entry.rule == table::rule::ReservedText) << qPrintable(entry.rule);
        seen.insert(entry.rule);
    }
}

TEST(FaultCatalogue, AnUnlistedRuleIsSaidByItsNameAndIsAnError)
{
    const table::Fault unlisted = table::fault(QStringLiteral("nobody.knows"));
    EXPECT_EQ(table::sentence(unlisted), QStringLiteral("nobody.knows"));
    EXPECT_EQ(unlisted.severity, table::Severity::Error);
}

TEST(FaultCatalogue, SeveritiesArePrintedByName)
{
    EXPECT_EQ(table::nameOf(table::Severity::Notice), QStringLiteral("notice"));
    EXPECT_EQ(table::nameOf(table::Severity::Warning), QStringLiteral("warning"));
    EXPECT_EQ(table::nameOf(table::Severity::Error), QStringLiteral("error"));
}

} // namespace
