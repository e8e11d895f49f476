// Two legs out of one, without a dialog.

#include "validation/LegSplitting.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

using validation::LegFault;

const QString Legs = QStringLiteral("证券代码和委托数量");

QVariantMap imported(const QString& direction, const QString& property, const QString& limit)
{
    return {
        {"交易方向"_s, direction}, {"委托属性"_s, property}, {"委托限价"_s, limit}, {"委托数量"_s, "100"_s}};
}

struct Case {
    const char* name;
    QVariantMap leg;
    QString unpaired;
};

class UnpairedField : public testing::TestWithParam<Case> {};

TEST_P(UnpairedField, KeepsARowFromBeingSplit)
{
    EXPECT_EQ(validation::unpairedField(GetParam().leg), GetParam().unpaired);
    EXPECT_TRUE(validation::splitLegs(GetParam().leg).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Legs, UnpairedField,
    testing::Values(Case{"Property", imported("Buy/Sell"_s, "0"_s, "1/2"_s), "委托属性"_s},
                    Case{"Direction", imported("Buy"_s, "0/0"_s, "1/2"_s), "交易方向"_s},
                    Case{"Limit", imported("Buy/Sell"_s, "0/0"_s, QString()), "委托限价"_s},
                    Case{"ThreeParts", imported("Buy/Sell/Buy"_s, "0/0"_s, "1/2"_s), "交易方向"_s},
                    Case{"TheFirstOfSeveral", imported("Buy"_s, "0"_s, "1"_s), "委托属性"_s}),
    [](const testing::TestParamInfo<Case>& tested) { return tested.param.name; });

} // namespace

TEST(LegSplitting, TheFirstLegHasWhatStandsBeforeTheSlash)
{
    const QVariantList legs = validation::splitLegs(imported("Buy/"_s, "0/6"_s, "10.5/10.6"_s));
    ASSERT_EQ(legs.size(), 2);
    EXPECT_EQ(legs.at(0).toMap(), imported("Buy"_s, "0"_s, "10.5"_s));
    EXPECT_EQ(legs.at(1).toMap(), imported(QString(), "6"_s, "10.6"_s)) << "a part may be empty";
}

TEST(LegSplitting, WhatCannotBeSplitGoesFromBothLists)
{
    const QVariantMap good = imported("Buy/Sell"_s, "0/0"_s, "1/2"_s);
    const QVariantMap bad = imported("Buy"_s, "0/0"_s, "1/2"_s);
    QList<QMap<QString, QVariant>> instances;
    RecordDataList records;
    const QList<QVariantList> lists = {{good}, {bad}, {}, {bad}, {good, good}};
    for (int i = 0; i < lists.size(); ++i) {
        instances.append({{Legs, lists.at(i)}, {"编号"_s, i}});
        records.append({{0, {{"256"_s, i}}}});
    }
    EXPECT_EQ(validation::splitInstances(instances, records), (QList<int>{1, 3}));
    ASSERT_EQ(instances.size(), 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(instances.at(i).value("编号"_s).toInt(), 2 * i);
        EXPECT_EQ(records.at(i).value(0).value("256"_s).toInt(), 2 * i);
    }
    EXPECT_EQ(instances.at(0).value(Legs).toList().size(), 2);
    EXPECT_EQ(instances.at(1).value(Legs).toList().size(), 0) << "one without a leg stays as it is";
    EXPECT_EQ(instances.at(2).value(Legs).toList(), (QVariantList{good, good}));
}

TEST(LegSplitting, ADirectionTakesItsProperties)
{
    for (const QString& property : {"0"_s, "6"_s, "9"_s}) {
        EXPECT_EQ(validation::faultOfLeg("Buy"_s, property), LegFault::None) << qPrintable(property);
    }
    for (const QString& property : {"7"_s, "A"_s, "0"_s, "9"_s}) {
        EXPECT_EQ(validation::faultOfLeg("Sell"_s, property), LegFault::None) << qPrintable(property);
    }
    EXPECT_EQ(validation::faultOfLeg("Sell"_s, "6"_s), LegFault::Property);
    EXPECT_EQ(validation::faultOfLeg("Buy"_s, "7"_s), LegFault::Property);
    EXPECT_EQ(validation::faultOfLeg("buy"_s, "0"_s), LegFault::Direction);
}
