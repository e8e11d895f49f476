#include "tests/properties/RandomImports.h"
#include "tests/support/Readings.h"

class ImportProperties : public RandomImports {
protected:
    static QList<int> linesOf(const RandomTable& random, RowKind kind)
    {
        QList<int> lines;
        for (int i = 0; i < random.kinds.size(); ++i) {
            if (random.kinds.at(i) == kind) {
                lines.append(i + 2);
            }
        }
        return lines;
    }

    /// Every faulty row has a fault on its line, and every record the line of a good one.
    static void expectTrueLines(const import::Reading& reading, const RandomTable& random)
    {
        QList<int> faulty;
        for (const table::Fault& fault : reading.faults) {
            faulty.append(fault.line);
        }
        std::sort(faulty.begin(), faulty.end());
        QList<int> expectedFaulty;
        QList<int> expectedGood;
        for (int i = 0; i < random.kinds.size(); ++i) {
            if (random.kinds.at(i) == RowKind::Faulty) {
                expectedFaulty.append(readings::lineOfRow(i + 1));
            } else if (random.kinds.at(i) == RowKind::Good) {
                expectedGood.append(readings::lineOfRow(i + 1));
            }
        }
        EXPECT_EQ(faulty, expectedFaulty);
        EXPECT_EQ(reading.lines, expectedGood);
    }
};

TEST_F(ImportProperties, EveryRowEndsAsOneRecordOneErrorANoteOrABlank)
{
    for (unsigned n = 100; n < 100 + Cases; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        openRandomStrategy();
        const RandomTable random = randomTable(1 + below(12));
        prompts.clear();
        importRows(random.sheet.rows());
        EXPECT_EQ(linesOf(random, RowKind::Good).size(), rowCount());
        EXPECT_EQ(rowCount(), dialog->getWidgetData().size());
        EXPECT_EQ(linesOf(random, RowKind::Faulty), errorLines());
    }
}

TEST_F(ImportProperties, TheNthParameterMapBelongsToTheNthRecord)
{
    for (unsigned n = 200; n < 200 + Cases; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        openRandomStrategy();
        importRows(randomTable(1 + below(12)).sheet.rows());
        const auto maps = dialog->getWidgetData();
        ASSERT_EQ(rowCount(), maps.size());
        for (int i = 0; i < maps.size(); ++i) {
            EXPECT_EQ(value(i, "证券代码"_s), leg(i).value("证券代码"_s).toString()) << i;
            EXPECT_EQ(value(i, "委托数量"_s), leg(i).value("委托数量"_s).toString()) << i;
            EXPECT_EQ(value(i, "市场"_s), leg(i).value("市场"_s).toString()) << i;
            EXPECT_EQ(value(i, "交易方向"_s), maps.at(i).value("交易方向"_s).toString()) << i;
            EXPECT_EQ(value(i, "委托限价"_s), maps.at(i).value("委托限价"_s).toString()) << i;
        }
    }
}

TEST_F(ImportProperties, ReimportingGivesTheSameAgain)
{
    for (unsigned n = 300; n < 300 + Cases; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        openRandomStrategy();
        const QString path = writeCsv(randomTable(1 + below(10)).sheet.rows());
        prompts.clear();
        importFile(path);
        const QVariantList first = outcome();
        prompts.clear();
        importFile(path);
        EXPECT_EQ(first, outcome());
    }
}

/// But for two empty cells in front, which make a row a note: here a row has one at most.
TEST_F(ImportProperties, PermutingColumnsChangesNothing)
{
    for (unsigned n = 400; n < 400 + Cases; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        openRandomStrategy();
        Sheet sheet = randomTable(0).sheet;
        const int rows = 1 + below(8);
        for (int i = 0; i < rows; ++i) {
            sheet.add({{"委托数量"_s, oneOf<QString>({"100"_s, QString(), "2500"_s})},
                       {"交易方向"_s, oneOf<QString>({"1"_s, "2"_s, "x"_s})},
                       {"证券名称"_s, "名"_s},
                       {"单笔最大"_s, "5"_s},
                       {"自定"_s, "值"_s},
                       {"选项"_s, "2"_s},
                       {"最大市场占比"_s, "30"_s},
                       {"扫盘比例（%）"_s, "20"_s}});
        }
        prompts.clear();
        importRows(sheet.rows());
        const QVariantList straight = outcome();
        prompts.clear();
        importRows(sheet.reorder(randomOrder(sheet.header().size())).rows());
        EXPECT_EQ(straight, outcome());
    }
}

TEST_F(ImportProperties, ShortTitlesChangeNothing)
{
    for (unsigned n = 500; n < 500 + Cases; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        openRandomStrategy();
        Sheet sheet = randomTable(1 + below(8)).sheet;
        prompts.clear();
        importRows(sheet.rows());
        const QVariantList longTitles = outcome();
        const QMap<QString, QString> aliases = inspect().headAliases();
        for (auto alias = aliases.constBegin(); alias != aliases.constEnd(); ++alias) {
            if (sheet.header().contains(alias.value()) && chance(60)) {
                sheet.rename(alias.value(), alias.key());
            }
        }
        prompts.clear();
        importRows(sheet.rows());
        EXPECT_EQ(longTitles, outcome());
    }
}

TEST_F(ImportProperties, SwitchingTheAccountAwayAndBackRestoresTheLegs)
{
    for (unsigned n = 600; n < 600 + Cases; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        openRandomStrategy();
        importRows(randomTable(1 + below(10)).sheet.rows());
        const auto before = dialog->getWidgetData();
        const QString other = oneOf<QString>({"NOHK"_s, "CREDIT1"_s, "FUT1"_s, "ODD"_s});
        accounts().SetCurTradingAccount(other);
        for (const auto& map : dialog->getWidgetData()) {
            EXPECT_EQ(other, map.value("交易账号"_s).toString());
        }
        accounts().SetCurTradingAccount("CASH1"_s);
        EXPECT_EQ(before, dialog->getWidgetData());
        EXPECT_TRUE(button("btn_ok").isEnabled());
    }
}

/// What a reading without the dialog gives is what the dialog shows and says, fault by fault.
TEST_F(ImportProperties, AReadingWithoutTheDialogIsTheDialogsImport)
{
    for (unsigned n = 700; n < 700 + Cases; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        const bool lock = chance(50);
        if (lock) {
            open("AILOCK"_s);
        } else {
            openRandomStrategy();
        }
        const RandomTable random = lock ? randomLockTable(1 + below(12)) : randomTable(1 + below(12));
        prompts.clear();
        importRows(random.sheet.rows());
        const import::Reading reading =
            import::readRows(readings::parsed(dialog->getStrategy()), readings::tableOf(random.sheet.rows()),
                             {accounts().GetCurTradingAccount(), accounts().GetCurAccountAssetProp()},
                             inspect().dateTimeFormat());
        EXPECT_EQ(readings::boxText(reading), readings::errorTexts(prompts));
        EXPECT_EQ(reading.records, table().getViewData());
        EXPECT_EQ(reading.instances, dialog->getWidgetData());
        expectTrueLines(reading, random);
    }
}
