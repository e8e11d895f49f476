#include "embedded_host/reference_data/ReferenceFolder.h"

#include "tests/embedded_host/DataFolder.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QLocale>

namespace {

class ReferenceFolderTest : public testing::Test {
protected:
    DataFolder folder;
};

TEST_F(ReferenceFolderTest, FourFilesAreEnough)
{
    const ReferenceTables tables = folder.tables();
    ASSERT_EQ(tables.markets.size(), 1);
    EXPECT_EQ(tables.markets[0].name, "上海"_s);
    EXPECT_EQ(tables.markets[0].codeLength, 6);
    EXPECT_EQ(tables.markets[0].aliases, (QStringList{"沪市"_s, "SSE"_s}));
    EXPECT_EQ(tables.securities.size(), 1);
    EXPECT_EQ(tables.accounts.size(), 1);
    EXPECT_EQ(tables.strategies.size(), 1);
    EXPECT_TRUE(tables.everythingAllowed);
    EXPECT_TRUE(tables.quotes.isEmpty() && tables.futures.isEmpty() && tables.hkRates.isEmpty());
}

TEST_F(ReferenceFolderTest, AbsentCellsTakeTheirDefaults)
{
    const Security security = folder.tables().securities.value(0);
    EXPECT_EQ(security.securityType, "STOCK"_s);
    EXPECT_EQ(security.subType, QString());
    EXPECT_EQ(security.dispFactor, 1);
    EXPECT_EQ(security.minQtyPerOrder, 100);
    EXPECT_EQ(security.qtyStep, 100);
    EXPECT_EQ(security.pricePrecision, 2);
    EXPECT_FALSE(security.bondRepo);
}

TEST_F(ReferenceFolderTest, EmptyCellsTakeTheirDefaults)
{
    folder.write("securities.csv"_s,
                 "symbol,securityType,dispFactor,minQtyPerOrder,bondRepo\nA,,,,\nB,,10,,1\n");
    const QList<Security> securities = folder.tables().securities;
    ASSERT_EQ(securities.size(), 2);
    EXPECT_EQ(securities[0].securityType, "STOCK"_s);
    EXPECT_EQ(securities[0].dispFactor, 1);
    EXPECT_EQ(securities[1].dispFactor, 10);
    EXPECT_TRUE(securities[1].bondRepo);
}

TEST_F(ReferenceFolderTest, AssetPropertyDefaultsToTheFundAccountType)
{
    folder.write("accounts.csv"_s, "tradingAccount,fundAccountType,assetProp\n1,Credit,\n2,Cash,Special\n");
    const QList<tagUserAccountInfo> accounts = folder.tables().accounts;
    ASSERT_EQ(accounts.size(), 2);
    EXPECT_EQ(accounts[0].assetProp, "Credit"_s);
    EXPECT_EQ(accounts[1].assetProp, "Special"_s);
}

TEST_F(ReferenceFolderTest, ZeroIsANumberWhereADivisorBelongs)
{
    folder.write("securities.csv"_s, "symbol,dispFactor,qtyStep\nA,0,0\n");
    EXPECT_EQ(folder.tables().securities.value(0).dispFactor, 0);
    EXPECT_EQ(folder.tables().securities.value(0).qtyStep, 0);
}

TEST_F(ReferenceFolderTest, ColumnsMayStandInAnyOrderAmongUnknownOnes)
{
    folder.write("securities.csv"_s, "note,name,symbol,note,\nx,甲,A,y,z\n");
    EXPECT_EQ(folder.tables().securities.value(0).symbol, "A"_s);
    EXPECT_EQ(folder.tables().securities.value(0).name, "甲"_s);
}

TEST_F(ReferenceFolderTest, UnknownColumnsThatResembleNoAbsentOneAreIgnored)
{
    folder.write("securities.csv"_s, "symbol,name,names,code,note,type,currency\nA,甲,乙,1,x,y,CNY\n");
    folder.write("accounts.csv"_s, "tradingAccount,branch,owner\n1,北京,甲\n");
    EXPECT_EQ(folder.tables().securities.value(0).name, "甲"_s);
    EXPECT_EQ(folder.tables().accounts.value(0).fundAccountType, QString());
}

TEST_F(ReferenceFolderTest, ListsDropBlanksAndEmptyParts)
{
    folder.write("securities.csv"_s, "symbol,exchanges\nA, HKSC | HKSZ |\nB,\n");
    EXPECT_EQ(folder.tables().securities.value(0).exchanges, (QStringList{"HKSC"_s, "HKSZ"_s}));
    EXPECT_EQ(folder.tables().securities.value(1).exchanges, QStringList());
}

TEST_F(ReferenceFolderTest, ByteOrderMarkQuotesAndCarriageReturnsAreRead)
{
    folder.write("securities.csv"_s, "\xEF\xBB\xBFsymbol,name\r\nA,\"甲,\"\"乙\"\"\n丙\"\r\n\r\nB,丁");
    const QList<Security> securities = folder.tables().securities;
    ASSERT_EQ(securities.size(), 2);
    EXPECT_EQ(securities[0].name, "甲,\"乙\"\n丙"_s);
    EXPECT_EQ(securities[1].name, "丁"_s);
}

TEST_F(ReferenceFolderTest, EmptyCellsBehindTheHeadersLastOneAreNoFault)
{
    folder.write("securities.csv"_s, "symbol,name\nA,甲,,\n");
    EXPECT_EQ(folder.tables().securities.value(0).name, "甲"_s);
}

TEST_F(ReferenceFolderTest, QuotesKeepTheirTextsAndLeaveEmptyFieldsOut)
{
    folder.write("quotes.csv"_s, "symbol,LastPx,MaxPx,MinPx,PreClosePx\nA,10.00,,,9.50\nB,,,,\n");
    const QList<Quote> quotes = folder.tables().quotes;
    ASSERT_EQ(quotes.size(), 2);
    EXPECT_EQ(quotes[0].fields,
              (QMap<QString, QVariant>{{"LastPx"_s, "10.00"_s}, {"PreClosePx"_s, "9.50"_s}}));
    EXPECT_TRUE(quotes[1].fields.isEmpty());
}

TEST_F(ReferenceFolderTest, RatesLeaveEmptyKeysOut)
{
    folder.write("hk_rates.csv"_s, "exchange,HKSExchgRateBuy,HKSExchgRateSell\nHKSC,0.90,\nHKSZ,,\n");
    const QList<HkRate> rates = folder.tables().hkRates;
    ASSERT_EQ(rates.size(), 2);
    EXPECT_EQ(rates[0].rates, (QMap<QString, QVariant>{{"HKSExchgRateBuy"_s, "0.90"_s}}));
    EXPECT_TRUE(rates[1].rates.isEmpty());
}

TEST_F(ReferenceFolderTest, NumbersReadTheSameWhereTheDecimalSignIsAComma)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    folder.write("quotes.csv"_s, "symbol,LastPx\nA,1234.5\n");
    EXPECT_EQ(folder.fault(), QString());
    folder.write("quotes.csv"_s, "symbol,LastPx\nA,\"1.234,5\"\n");
    EXPECT_EQ(folder.fault(), folder.filePath("quotes.csv"_s) + ":2: LastPx 应为数字：1.234,5"_s);
    QLocale::setDefault(before);
}

TEST_F(ReferenceFolderTest, AuthoritiesWithoutRowsAllowNothing)
{
    folder.write("authorities.csv"_s, "tradingAccount,strategy\n");
    EXPECT_FALSE(folder.tables().everythingAllowed);
    EXPECT_TRUE(folder.tables().authorities.isEmpty());
}

TEST_F(ReferenceFolderTest, FuturesAndSecurityAccountsAreRead)
{
    folder.write("futures.csv"_s, "symbol,multiplier,pricePrecision\nIF2512.CFE,300,1\n");
    folder.write("security_accounts.csv"_s,
                 "tradingAccount,exchange,securityAccount\n1,SH,A1\n1,SZ,01\n2,SH,A2\n");
    const ReferenceTables tables = folder.tables();
    EXPECT_EQ(tables.futures.value(0).multiplier, 300);
    ASSERT_EQ(tables.securityAccounts.size(), 3);
    EXPECT_EQ(tables.securityAccounts[1].securityAccount, "01"_s);
}

TEST_F(ReferenceFolderTest, ParameterFormatsAreHandedOnAsJsonOrAsTheyStand)
{
    folder.write("strategies.json"_s, R"([
        {"name": "A", "paramFormats": [ {"ui": "Table"} ]},
        {"name": "B", "paramFormats": { "ui" : 1 }},
        {"name": "C", "paramFormats": "not { json "},
        {"name": "D"}])");
    const QList<AesStrategy> strategies = folder.tables().strategies;
    ASSERT_EQ(strategies.size(), 4);
    EXPECT_EQ(strategies[0].paramFormats(), "[{\"ui\":\"Table\"}]"_s);
    EXPECT_EQ(strategies[1].paramFormats(), "{\"ui\":1}"_s);
    EXPECT_EQ(strategies[2].paramFormats(), "not { json "_s);
    EXPECT_EQ(strategies[3].paramFormats(), QString());
}

TEST_F(ReferenceFolderTest, StrategyDefaultsToItsNameAndTheAlgoType)
{
    folder.write("strategies.json"_s,
                 R"([{"name": "A"}, {"name": "B", "alias": "乙", "globalType": "condition"}])");
    const QList<AesStrategy> strategies = folder.tables().strategies;
    ASSERT_EQ(strategies.size(), 2);
    EXPECT_EQ(strategies[0].alias(), "A"_s);
    EXPECT_EQ(strategies[0].globalType(), "algo"_s);
    EXPECT_EQ(strategies[1].alias(), "乙"_s);
    EXPECT_EQ(strategies[1].globalType(), "condition"_s);
}

TEST_F(ReferenceFolderTest, UnknownFilesAreIgnored)
{
    folder.write("limits.csv"_s, "\xFF\xFF");
    EXPECT_EQ(folder.fault(), QString());
}

TEST_F(ReferenceFolderTest, FaultNamesTheFileUnderTheFolderAsItWasGiven)
{
    QString error;
    EXPECT_FALSE(readReferenceFolder("no/such//folder"_s, error));
    EXPECT_EQ(error, "no/such//folder/strategies.json:1: 文件不存在"_s);
    EXPECT_FALSE(readReferenceFolder("./none/"_s, error));
    EXPECT_EQ(error, "./none/strategies.json:1: 文件不存在"_s);
}

struct Fault {
    const char* name;
    const char16_t* file;
    QByteArray content;
    const char16_t* expected; ///< from the line on
};

void PrintTo(const Fault& fault, std::ostream* out)
{
    *out << fault.content.left(1000).toStdString();
}

class FaultyFolderTest : public testing::TestWithParam<Fault> {};

TEST_P(FaultyFolderTest, IsNamedByFileAndLine)
{
    const DataFolder folder;
    const QString file = QString::fromUtf16(GetParam().file);
    folder.write(file, GetParam().content);
    EXPECT_EQ(folder.fault(), folder.filePath(file) + ":"_s + QString::fromUtf16(GetParam().expected));
}

const Fault Faults[] = {
    {"DuplicateKeyThatLooksLikeAPlaceholder", u"accounts.csv", "tradingAccount,name\n%1,甲\n%3,乙\n%1,丙\n",
     u"4: tradingAccount 重复：%1，首次出现在第 2 行"},
    {"EmptyFile", u"markets.csv", "", u"1: 缺少表头"},
    {"BlankLinesAlone", u"quotes.csv", "\n\n", u"1: 缺少表头"},
    {"HeaderWithoutKeyColumn", u"securities.csv", "code,name\n600000,甲\n", u"1: 表头缺少 symbol 列"},
    {"HeaderWithoutSecondKeyColumn", u"security_accounts.csv", "tradingAccount\n1\n",
     u"1: 表头缺少 exchange 列"},
    {"HeaderWithKeyInOtherCase", u"accounts.csv", "TradingAccount\n1\n",
     u"1: 表头缺少 tradingAccount 列，疑似误写为“TradingAccount”"},
    {"MisspeltColumn", u"futures.csv", "symbol,multipler,pricePrecision\nIF,300,1\n",
     u"1: 表头缺少 multiplier 列，疑似误写为“multipler”"},
    {"MisspeltShortColumn", u"securities.csv", "symbol,code,psot\nA,1,SH\n",
     u"1: 表头缺少 post 列，疑似误写为“psot”"},
    {"ColumnInOtherCaseAndWithBlanks", u"accounts.csv",
     "tradingAccount,name,fund_account type\n1,甲,Credit\n",
     u"1: 表头缺少 fundAccountType 列，疑似误写为“fund_account type”"},
    {"BlankAfterAColumn", u"security_accounts.csv", "tradingAccount,exchange,securityAccount \n1,SH,A1\n",
     u"1: 表头缺少 securityAccount 列，疑似误写为“securityAccount ”"},
    {"HeaderBelowBlankLine", u"accounts.csv", "\nname\n1\n", u"2: 表头缺少 tradingAccount 列"},
    {"DuplicateColumn", u"securities.csv", "symbol,name,name\nA,甲,乙\n", u"1: 表头中 name 列重复"},
    {"DuplicateSymbol", u"securities.csv", "symbol\nA\nB\n\nA\n", u"5: symbol 重复：A，首次出现在第 2 行"},
    {"DuplicateExchange", u"markets.csv", "exchange\nSH\nSH\n", u"3: exchange 重复：SH，首次出现在第 2 行"},
    {"DuplicateTradingAccount", u"accounts.csv", "tradingAccount\n1\n1\n",
     u"3: tradingAccount 重复：1，首次出现在第 2 行"},
    {"DuplicateSecurityAccount", u"security_accounts.csv", "tradingAccount,exchange\n1,SH\n1,SZ\n1,SH\n",
     u"4: tradingAccount,exchange 重复：1,SH，首次出现在第 2 行"},
    {"DuplicateFuture", u"futures.csv", "symbol\nIF\nIF\n", u"3: symbol 重复：IF，首次出现在第 2 行"},
    {"DuplicateQuote", u"quotes.csv", "symbol\nA\nA\n", u"3: symbol 重复：A，首次出现在第 2 行"},
    {"DuplicateRate", u"hk_rates.csv", "exchange\nHKSC\nHKSC\n",
     u"3: exchange 重复：HKSC，首次出现在第 2 行"},
    {"EmptySymbol", u"securities.csv", "symbol,name\n,甲\n", u"2: symbol 不能为空"},
    {"BlankExchange", u"markets.csv", "exchange,name\n \t,上海\n", u"2: exchange 不能为空"},
    {"EmptyTradingAccount", u"accounts.csv", "name,tradingAccount\n甲\n", u"2: tradingAccount 不能为空"},
    {"TextForANumber", u"securities.csv", "symbol,qtyStep\nA,100\nB,一百\n", u"3: qtyStep 应为整数：一百"},
    {"FractionForAWholeNumber", u"futures.csv", "symbol,multiplier\nIF,300.5\n",
     u"2: multiplier 应为整数：300.5"},
    {"NumberTooLarge", u"securities.csv", "symbol,qtyStep\nA,99999999999\n",
     u"2: qtyStep 应为整数：99999999999"},
    {"NegativeCodeLength", u"markets.csv", "exchange,codeLength\nSH,-1\n",
     u"2: codeLength 应在 0 到 32 之间：-1"},
    {"CodeLengthTooLarge", u"markets.csv", "exchange,codeLength\nSH,2000000000\n",
     u"2: codeLength 应在 0 到 32 之间：2000000000"},
    {"NegativePrecision", u"securities.csv", "symbol,pricePrecision\nA,-1\n",
     u"2: pricePrecision 应在 0 到 15 之间：-1"},
    {"TextForAFlag", u"securities.csv", "symbol,bondRepo\nA,yes\n", u"2: bondRepo 应为 0 或 1：yes"},
    {"TextForAPrice", u"quotes.csv", "symbol,LastPx\nA,停牌\n", u"2: LastPx 应为数字：停牌"},
    {"NoNumberForAPrice", u"quotes.csv", "symbol,LastPx,MaxPx\nA,1,nan\n", u"2: MaxPx 应为数字：nan"},
    {"TextForARate", u"hk_rates.csv", "exchange,HKSExchgRateBuy\nHKSC,x\n",
     u"2: HKSExchgRateBuy 应为数字：x"},
    {"NegativeStep", u"securities.csv", "symbol,qtyStep\nA,-100\n",
     u"2: qtyStep 应在 0 到 2147483647 之间：-100"},
    {"NegativeLeastQuantity", u"securities.csv", "symbol,minQtyPerOrder\nA,-1\n",
     u"2: minQtyPerOrder 应在 0 到 2147483647 之间：-1"},
    {"NegativeFactor", u"securities.csv", "symbol,dispFactor\nA,-10\n",
     u"2: dispFactor 应在 0 到 2147483647 之间：-10"},
    {"NegativeMultiplier", u"futures.csv", "symbol,multiplier\nIF,-300\n",
     u"2: multiplier 应在 0 到 2147483647 之间：-300"},
    {"NegativePrice", u"quotes.csv", "symbol,LastPx\nA,10\nB,-0.01\n", u"3: LastPx 不能为负数：-0.01"},
    {"NegativeRate", u"hk_rates.csv", "exchange,HKSExchgRateSell\nHKSC,-1\n",
     u"2: HKSExchgRateSell 不能为负数：-1"},
    {"TenThousandColumns", u"securities.csv", "symbol" + QByteArray(9999, ',') + "\nA\n",
     u"1: 该行超过 100 列"},
    {"TenThousandCells", u"securities.csv", "symbol\nA" + QByteArray(9999, ',') + "\n",
     u"2: 该行超过 100 列"},
    {"TooManyRows", u"accounts.csv", "tradingAccount\n" + QByteArray("1\n").repeated(200000),
     u"200001: 超过 200000 行"},
    {"LongCell", u"accounts.csv", "tradingAccount,name\n1,甲\n2," + QByteArray(1 << 20, 'x') + "\n",
     u"3: 单元格超过 4096 个字符"},
    {"LongStrategyName", u"strategies.json", "[\n{\"name\": \"" + QByteArray(5000, 'x') + "\"}]",
     u"2: name 超过 4096 个字符"},
    {"DefaultOfAMegabyte", u"strategies.json",
     "[\n{\"name\": \"A\",\n\"paramFormats\": [{\"default\": \"" + QByteArray(1 << 20, 'x') + "\"}]}]",
     u"2: paramFormats 超过 262144 个字符"},
    {"TooLargeTable", u"securities.csv", QByteArray((16 << 20) + 1, '\n'), u"1: 文件超过 16 MiB"},
    {"TooLargeCatalogue", u"strategies.json", QByteArray((4 << 20) + 1, '['), u"1: 文件超过 4 MiB"},
    {"SurplusCell", u"securities.csv", "symbol,name\nA,甲,乙\n", u"2: 该行有 3 个单元格，表头只有 2 列"},
    {"LineCountsThoseInsideQuotes", u"securities.csv", "symbol,name,qtyStep\nA,\"甲\n乙\",1\nB,,x\n",
     u"4: qtyStep 应为整数：x"},
    {"UnclosedQuote", u"securities.csv", "symbol,name\nA,甲\nB,\"乙\nC,丙\n", u"3: 引号没有闭合"},
    {"InvalidUtf8", u"accounts.csv", "tradingAccount,name\n1,甲\n2,\xBC\xD7\n", u"3: 不是有效的 UTF-8 编码"},
    {"InvalidUtf8BehindOldLineEnds", u"accounts.csv", "tradingAccount,name\r1,\r\n2,\xFF\r",
     u"3: 不是有效的 UTF-8 编码"},
    {"Utf8CutShort", u"accounts.csv", "tradingAccount,name\n1,\xE7\x94", u"2: 不是有效的 UTF-8 编码"},
    {"EmptyCatalogueFile", u"strategies.json", "", u"1: JSON 语法错误：illegal value"},
    {"CatalogueSyntax", u"strategies.json", "[\n  {\"name\": \"A\"},\n  {\"name\" \"B\"}\n]\n",
     u"3: JSON 语法错误：missing name separator"},
    {"CatalogueSyntaxBehindOldLineEnds", u"strategies.json",
     "[\r  {\"name\": \"A\"},\r  {\"name\" \"B\"}\r]\r", u"3: JSON 语法错误：missing name separator"},
    {"CatalogueEntryBehindOldLineEnds", u"strategies.json", "[\r{\"name\": \"A\"},\r{\"name\": \"A\"}\r]",
     u"3: name 重复：A，首次出现在第 2 行"},
    {"CatalogueIsAnObject", u"strategies.json", "{\"name\": \"A\"}", u"1: 最外层应为数组"},
    {"CatalogueEntryIsAText", u"strategies.json", "[\n{\"name\": \"A\"},\n\n\"B\"]", u"4: 数组元素应为对象"},
    {"CatalogueEntryWithoutName", u"strategies.json",
     "[{\"name\": \"A,]\\\"\", \"paramFormats\": [1,\n2]},\n{}]", u"3: name 不能为空"},
    {"CatalogueNameIsANumber", u"strategies.json", "[{\"name\": 1}]", u"1: name 应为字符串"},
    {"CatalogueNameTwice", u"strategies.json",
     "[\n{\"name\": \"A\"},\n{\"name\": \"B\"},\n{\"name\": \"A\"}]", u"4: name 重复：A，首次出现在第 2 行"},
    {"CatalogueKeyMisspelt", u"strategies.json",
     "[{\"name\": \"A\",\n\"remark\": \"x\", \"paramFormat\": []}]",
     u"1: 缺少 paramFormats，疑似误写为“paramFormat”"},
    {"CatalogueFormatsAreANumber", u"strategies.json", "[\n{\"name\": \"A\",\n\"paramFormats\": 1}]",
     u"2: paramFormats 应为数组、对象或字符串"},
};

INSTANTIATE_TEST_SUITE_P(Folder, FaultyFolderTest, testing::ValuesIn(Faults),
                         [](const auto& fault) { return std::string(fault.param.name); });

class MissingFileTest : public testing::TestWithParam<const char16_t*> {};

TEST_P(MissingFileTest, StopsTheFolder)
{
    const DataFolder folder;
    const QString file = QString::fromUtf16(GetParam());
    folder.remove(file);
    EXPECT_EQ(folder.fault(), folder.filePath(file) + ":1: 文件不存在"_s);
}

INSTANTIATE_TEST_SUITE_P(Folder, MissingFileTest,
                         testing::Values(u"strategies.json", u"markets.csv", u"securities.csv",
                                         u"accounts.csv"));

TEST(UnreadableFileTest, ReadErrorStopsTheFolder)
{
    const DataFolder folder;
    folder.link("/proc/self/mem"_s, "quotes.csv"_s); // opens, and fails at the first byte
    EXPECT_TRUE(folder.fault().startsWith(folder.filePath("quotes.csv"_s) + ":1: 无法读取文件："_s))
        << folder.fault().toStdString();
}

TEST(UnreadableFileTest, LinkWithoutATargetIsNoAbsentFile)
{
    const DataFolder folder;
    folder.link(folder.filePath("gone.csv"_s), "authorities.csv"_s);
    EXPECT_EQ(folder.fault(), folder.filePath("authorities.csv"_s) + ":1: 文件不存在"_s);
}

TEST(UnreadableFileTest, FolderInPlaceOfAFileStopsTheFolder)
{
    const DataFolder folder;
    folder.remove("markets.csv"_s);
    ASSERT_TRUE(QDir(folder.path()).mkdir("markets.csv"_s));
    EXPECT_EQ(folder.fault(), folder.filePath("markets.csv"_s) + ":1: 无法读取文件：不是普通文件"_s);
}

TEST(UnreadableFileTest, EndlessDeviceStopsTheFolder)
{
    const DataFolder folder;
    folder.link("/dev/zero"_s, "quotes.csv"_s);
    EXPECT_EQ(folder.fault(), folder.filePath("quotes.csv"_s) + ":1: 无法读取文件：不是普通文件"_s);
}

TEST(UnreadableFileTest, PipeWithoutAWriterStopsTheFolder)
{
    const DataFolder folder;
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder.filePath("futures.csv"_s)).constData(), 0600), 0);
    EXPECT_EQ(folder.fault(), folder.filePath("futures.csv"_s) + ":1: 无法读取文件：不是普通文件"_s);
}

} // namespace
