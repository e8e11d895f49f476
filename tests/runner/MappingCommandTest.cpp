// A stranger's files headless: the mapping that check suggests is the one that import takes.

#include "tests/runner/RunnerTest.h"
#include "tests/support/Workbook.h"

#include <QJsonArray>

namespace {

const QByteArray English = "Program trades\n"
                           "Ticker,Side,Qty,Account\n"
                           "600000.SH,B,\"1,000\",X1\n"
                           "000001.SZ,Sell,200,X1\n";

/// What import prints of a table that was told in its words.
QStringList orders(const QJsonObject& import)
{
    QStringList orders;
    for (const QJsonValue& map : import["parameterMaps"_s].toArray()) {
        const QJsonObject leg = map.toObject()["证券代码和委托数量"_s].toArray().first().toObject();
        orders.append(leg["证券代码"_s].toString() + QLatin1Char(' ') +
                      leg["委托数量"_s].toVariant().toString() + QLatin1Char(' ') +
                      map.toObject()["交易方向"_s].toString());
    }
    return orders;
}

} // namespace

class MappingCommand : public RunnerTest {
protected:
    Run check(const QString& file, const QStringList& more = {})
    {
        return run(QStringList{"check"_s, file, "--data"_s, dataFolder(), "--home"_s, home()} + aitwap() +
                   more);
    }
    QString writeJson(const QJsonObject& json)
    {
        return write("mapping.json"_s, QJsonDocument(json).toJson());
    }
    static QStringList by(const QString& mapping) { return aitwap() + QStringList{"--mapping"_s, mapping}; }
};

TEST_F(MappingCommand, WhatCheckSuggestsAndAPersonCompletesImports)
{
    const QString file = write("english.csv"_s, English);
    const Run checked = check(file);
    expectValid(checked.object(), "check.schema.json"_s);
    QJsonObject mapping = checked.object()["mapping"_s].toObject();
    const QJsonObject gaps = checked.object()["mappingGaps"_s].toObject();
    EXPECT_EQ(gaps["missing"_s].toArray(), QJsonArray{"委托属性"_s});
    EXPECT_EQ(gaps["unmapped"_s].toArray(), QJsonArray{"Account"_s});

    QJsonObject constants = mapping["constants"_s].toObject();
    constants["委托属性"_s] = "0"_s;
    mapping["constants"_s] = constants;
    const Run imported = import(file, by(writeJson(mapping)));
    EXPECT_EQ(0, imported.status) << imported.out.constData();
    expectValid(imported.object(), "import.schema.json"_s);
    EXPECT_EQ(imported.object()["mapping"_s].toObject(), mapping);
    EXPECT_EQ(orders(imported.object()),
              (QStringList{"600000.SH 1000 Buy"_s, "000001.SZ 2 Sell"_s})); // the second counts in hundreds
}

TEST_F(MappingCommand, AFileInTheImportsWordsIsSuggestedNone)
{
    const QJsonObject printed = check(table(goodRow())).object();
    EXPECT_FALSE(printed.contains("mapping"_s));
    EXPECT_FALSE(printed.contains("mappingGaps"_s));
}

TEST_F(MappingCommand, RefusesAMappingThatIsNone)
{
    const QString file = write("english.csv"_s, English);
    expectRefused(
        import(file, by(write("bad.json"_s, R"({"strategy": "AITWAP", "columns": [{"from": "a"}]})"))),
        "columns[0].to"_s);
    expectRefused(check(file, {"--mapping"_s, folder() + "/none.json"_s}), "none.json"_s);
    expectRefused(
        import(file,
               by(write("other.json"_s,
                        R"({"strategy": "AILOCK", "columns": [{"from": "Ticker", "to": "证券代码"}]})"))),
        "AILOCK"_s);
}

TEST_F(MappingCommand, AMappingThatTheFileDoesNotFitIsAMessageAndAFault)
{
    const QString mapping = write(
        "mapping.json"_s, R"({"strategy": "AITWAP", "columns": [{"from": "Menge", "to": "委托数量"}]})");
    const Run imported = import(write("english.csv"_s, English), by(mapping) + QStringList{"--faults"_s});
    EXPECT_EQ(1, imported.status);
    EXPECT_TRUE(
        imported.object()["messageBoxes"_s].toArray().first().toObject()["text"_s].toString().contains(
            "Menge"_s));
    EXPECT_EQ(1, imported.object()["faults"_s].toArray().size());
}

TEST_F(MappingCommand, TheSheetOfAStrategyIsReadForIt)
{
    const QStringList header = {"证券代码"_s, "市场"_s,     "委托数量"_s,
                                "交易方向"_s, "委托属性"_s, "创建后是否立即启动"_s};
    const QStringList row = {"600000"_s, "SH"_s, "1000"_s, "1"_s, "0"_s, "0"_s};
    const QString all = folder() + "/all.xlsx"_s;
    ASSERT_TRUE(workbook::write(all, {{"KF_TWAPPLUS"_s, {header}}, {"AITWAP"_s, {header, row, row}}}));
    EXPECT_EQ(2, import(all).object()["parameterMaps"_s].toArray().size());

    // An ordinary workbook is read as ever, whatever else it holds.
    const QString ordinary = folder() + "/ordinary.xlsx"_s;
    ASSERT_TRUE(workbook::write(ordinary, {{"Orders"_s, {header, row}}, {"AITWAP"_s, {header, row, row}}}));
    EXPECT_EQ(1, import(ordinary).object()["parameterMaps"_s].toArray().size());
}

TEST_F(MappingCommand, AMappingNamesItsSheet)
{
    const QString file = folder() + "/book.xlsx"_s;
    ASSERT_TRUE(workbook::write(
        file,
        {{"Notes"_s, {{"nothing here"_s}}},
         {"Orders"_s, {{"as of"_s}, {"Ticker"_s, "Side"_s, "Qty"_s}, {"600000.SH"_s, "S"_s, "300"_s}}}}));
    const QString mapping = write("mapping.json"_s, R"({"strategy": "AITWAP", "sheet": "Orders", "columns": [
        {"from": "Ticker", "to": "证券代码", "form": "code"}, {"from": "Qty", "to": "委托数量", "form": "quantity"},
        {"from": "Side", "to": "交易方向", "values": {"S": "2", "B": "1"}}],
        "constants": {"委托属性": "0", "创建后是否立即启动": "0"}})");
    const Run imported = import(file, by(mapping) + QStringList{"--confirm"_s, "--create"_s, "--yes"_s,
                                                                "--accept"_s, "sheet.active"_s});
    EXPECT_EQ(orders(imported.object()), (QStringList{"600000.SH 300 Sell"_s})) << imported.out.constData();
    const QJsonObject batch = atHome({"batches"_s}).json().array().first().toObject();
    const QJsonObject edit = batch["fileEdits"_s].toArray().first().toObject();
    EXPECT_EQ(edit["edit"_s].toString(), "map"_s) << imported.out.constData();
    EXPECT_EQ(edit["mapping"_s].toObject(), imported.object()["mapping"_s].toObject());
}
