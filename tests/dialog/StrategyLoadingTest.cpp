#include "tests/support/DialogFixture.h"
#include "tests/support/LogCapture.h"

#include <QCheckBox>
#include <QDir>
#include <QHeaderView>
#include <QSettings>

namespace {

using namespace small_market;

const QString CreateAndStart = QStringLiteral("创建后是否立即启动");
using Styles = QMap<QString, QString>;

class StrategyLoading : public DialogFixture {
protected:
    QStringList columnsOf(const QVariantList& document)
    {
        loadDocument(document);
        return table().headNames();
    }
};

} // namespace

TEST_F(StrategyLoading, AlwaysReturnsAnEmptyText)
{
    open();
    EXPECT_EQ(dialog->CreateStrategyInitWidget(*host->referenceData().strategy("AILOCK"_s)), QString());
    EXPECT_EQ(dialog->CreateStrategyInitWidget(AesStrategy()), QString());
    EXPECT_EQ(dialog->CreateStrategyInitWidget(AesStrategy("X"_s, "X"_s, "no JSON"_s, "algo"_s)), QString());
}

TEST_F(StrategyLoading, KeepsACopyOfTheStrategyAndReportsItsCode)
{
    open("AIVWAP"_s);
    EXPECT_EQ(dialog->getStrategy().name(), "AIVWAP"_s);
    EXPECT_EQ(dialog->getStrategy().alias(), "策略AIVWAP"_s);
    EXPECT_EQ(dialog->getCurrentAlgoName(), "AIVWAP"_s) << "the code, not the alias";
    EXPECT_EQ(algoTypes().currentText(), "策略AIVWAP"_s);
}

TEST_F(StrategyLoading, EveryStrategyHasItsOwnStyles)
{
    open();
    const Styles steady = {{"neutral"_s, "平稳"_s}};
    const Styles both = {{"neutral"_s, "平稳"_s}, {"aggressive"_s, "激进"_s}};
    const Styles four = {
        {"0"_s, "动态均衡"_s}, {"1"_s, "静态均衡"_s}, {"2"_s, "低撤单率"_s}, {"3"_s, "高收益"_s}};
    const QList<QPair<QString, Styles>> cases = {
        {"AILOCK"_s, steady},  {"AITWAP"_s, both},   {"AILOCKPLUS"_s, steady}, {"QND_TWAP"_s, four},
        {"AILOCK3"_s, steady}, {"QND_VWAP"_s, four}, {"AILOCK2"_s, both},      {"ailock"_s, both},
        {"QND_POV"_s, both},   {QString(), both}};
    for (const auto& c : cases) {
        loadDocument({}, c.first);
        EXPECT_EQ(inspect().acceptedValues().value("风格参数"_s), c.second) << qPrintable(c.first);
        EXPECT_EQ(inspect().acceptedValues().value("交易方向"_s).size(), 6) << "directions stay";
    }
}

// ---- columns

TEST_F(StrategyLoading, ColumnsBeginWithTheSecurityAndEndWithTheCreateStatusForEveryStrategy)
{
    open();
    for (const AesStrategy& strategy : tables.strategies) {
        load(strategy.name());
        const QStringList columns = table().headNames();
        ASSERT_GE(columns.size(), 4) << qPrintable(strategy.name());
        EXPECT_EQ(columns.mid(0, 3), (QStringList{"证券代码"_s, "证券名称"_s, "市场"_s}));
        EXPECT_EQ(columns.last(), CreateAndStart);
        EXPECT_EQ(columns, inspect().tableHead());
    }
}

TEST_F(StrategyLoading, TheFundAccountIsNoColumn)
{
    open();
    const QVariantMap fund = line("资金账号"_s);
    EXPECT_EQ(columnsOf({line("证券代码"_s), fund, line("实例备注"_s)}),
              (QStringList{"证券代码"_s, "证券名称"_s, "市场"_s, "实例备注"_s, CreateAndStart}));
    EXPECT_TRUE(inspect().instanceParams().contains("资金账号"_s)) << "it stays a parameter";
    EXPECT_EQ(columnsOf({fund, line("证券代码"_s)}),
              (QStringList{"证券代码"_s, "证券名称"_s, "市场"_s, CreateAndStart}));
    EXPECT_EQ(columnsOf({line("证券代码"_s), fund, fund}),
              (QStringList{"证券代码"_s, "证券名称"_s, "市场"_s, "资金账号"_s, CreateAndStart}))
        << "only its first occurrence goes";
}

TEST_F(StrategyLoading, TheAddedColumnsAreParametersUnderTheirOwnNames)
{
    open();
    EXPECT_EQ(inspect().symbolParams(), (QStringList{"证券代码"_s, "委托数量"_s, "市场"_s}));
    EXPECT_EQ(inspect().instanceParams().last(), CreateAndStart);
    EXPECT_EQ(inspect().paramIds().value("市场"_s), QVariant("市场"_s));
    EXPECT_EQ(inspect().paramIds().value(CreateAndStart), QVariant(CreateAndStart));
    EXPECT_FALSE(inspect().paramIds().contains("证券名称"_s));
}

TEST_F(StrategyLoading, ADocumentWithoutColumnsLeavesTheAddedOnesAndLogsWhy)
{
    open();
    const QStringList added = {CreateAndStart, "证券名称"_s, "市场"_s};
    EXPECT_EQ(columnsOf({}), added);
    LogCapture log;
    dialog->CreateStrategyInitWidget(AesStrategy("BAD"_s, "坏的"_s, "[{]"_s, "algo"_s));
    EXPECT_EQ(table().headNames(), added);
    EXPECT_TRUE(prompts.boxes().isEmpty());
    for (const QString& marker :
         {" tableHeadList: "_s, " strategy.name():  \"BAD\""_s, " strategy.alias():  \"坏的\""_s,
          " error: "_s, " jsonErr.errorString(): "_s}) {
        EXPECT_TRUE(log.text().contains(marker)) << qPrintable(marker) << "\n" << qPrintable(log.text());
    }
}

TEST_F(StrategyLoading, TheCreateStatusIsHiddenWhereRowsAlwaysStart)
{
    open();
    for (const AesStrategy& strategy : tables.strategies) {
        load(strategy.name());
        const bool hidden = strategy.name() == "KF_VWAPPLUS"_s || strategy.name() == "KF_TWAPPLUS"_s;
        const int last = table().headNames().size() - 1;
        for (int column = 0; column <= last; ++column) {
            EXPECT_EQ(table().isColumnHidden(column), hidden && column == last)
                << qPrintable(strategy.name());
        }
    }
}

TEST_F(StrategyLoading, ExtraColumnsAreAppendedAtEveryLoadAndNeverCleared)
{
    open();
    const QStringList once = {"交易方向"_s, "委托属性"_s, CreateAndStart, "封单金额"_s,
                              "委托金额"_s, "卖单金额"_s, "投资类型"_s};
    EXPECT_EQ(inspect().extraColumns(), once);
    load("AILOCK"_s);
    EXPECT_EQ(inspect().extraColumns(), once + once);
}

/// Whatever the table was told before, or is by itself.
TEST_F(StrategyLoading, ConfiguresTheTable)
{
    construct();
    table().setSelectionBehavior(QAbstractItemView::SelectItems);
    table().setSerialNumberColumnPropety(ZelViewModel::SerialNumColumnOrder::None);
    table().setColumnDefaultTextAlignment(Qt::AlignLeft);
    table().setItemSelectable(false);
    table().setCheckBoxShow(true);
    table().setViewSortable(false);
    table().setColumnDefaultWidth(33);
    load("AITWAP"_s);
    EXPECT_EQ(table().horizontalHeader()->defaultSectionSize(), 90);
    EXPECT_EQ(table().columnWidth(0), 90) << "the host may widen a column for its title, not this one";
    importRows({ordinaryHeader(), ordinaryRow("600000"_s), ordinaryRow("510300"_s)});
    EXPECT_EQ(table().selectionBehavior(), QAbstractItemView::SelectRows);
    EXPECT_NE(table().selectionMode(), QAbstractItemView::NoSelection);
    EXPECT_TRUE(table().verticalHeader()->isVisibleTo(&table())) << "serial numbers";
    const QModelIndex first = table().model()->index(0, 0);
    EXPECT_EQ(first.data().toString(), "600000"_s);
    emit table().horizontalHeader()->sectionClicked(0);
    EXPECT_EQ(table().model()->index(0, 0).data().toString(), "510300"_s) << "sortable";
    EXPECT_EQ(first.data(Qt::TextAlignmentRole).toInt(), 132);
    EXPECT_FALSE(first.data(Qt::CheckStateRole).isValid());
}

// ---- accounts

TEST_F(StrategyLoading, AsksForTheAccountsThatMayRunAlgorithms)
{
    open();
    const auto asked = callsOf("SolveyBusinessDataInterface::GetFundAccountListByFundProp");
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.first().arguments, (QVariantList{11, 16, true, QStringList(), true}));
    EXPECT_EQ(accounts().count(), 5);
    EXPECT_TRUE(accounts().testAttribute(Qt::WA_MouseTracking));
}

TEST_F(StrategyLoading, KeepsTheChosenAccountAcrossAReload)
{
    open("AITWAP"_s, "CREDIT1"_s);
    load("AIVWAP"_s);
    EXPECT_EQ(accounts().GetCurTradingAccount(), "CREDIT1"_s);
    chooseAlgoType("AILOCK"_s);
    EXPECT_EQ(accounts().GetCurTradingAccount(), "CREDIT1"_s);
}

TEST_F(StrategyLoading, AnAccountThatIsGoneGivesWayToTheFirst)
{
    open("AITWAP"_s, "CREDIT1"_s);
    ReferenceTables poorer = tables;
    poorer.accounts.removeAt(2); // CREDIT1
    EmbeddedHost later{ReferenceData(poorer)};
    load("AIVWAP"_s);
    EXPECT_EQ(accounts().GetCurTradingAccount(), "CASH1"_s);
}

// ---- the algorithm type box

TEST_F(StrategyLoading, ALoadFetchesTheCatalogueAgainAndNeverRunsTheSlot)
{
    open();
    EXPECT_EQ(callsOf("AlgoTradeLogicNew::GetAllStrategies").size(), 2) << "at construction and at the load";
    for (const auto& call : callsOf("AlgoTradeLogicNew::GetAllStrategies")) {
        EXPECT_EQ(call.arguments, QVariantList{"algo"_s});
    }
    load("AILOCK"_s);
    load("KF_TWAPPLUS"_s);
    EXPECT_EQ(callsOf("AlgoTradeLogicNew::GetStrategy").size(), 0);
    EXPECT_EQ(callsOf("AlgoTradeLogicNew::GetAllStrategies").size(), 4);
    EXPECT_EQ(algoTypes().count(), tables.strategies.size());
}

TEST_F(StrategyLoading, AfterManyLoadsAChoiceStillLoadsOnce)
{
    open();
    for (const AesStrategy& strategy : tables.strategies) {
        load(strategy.name());
    }
    host->journal().clear();
    chooseAlgoType("AIVWAP"_s);
    const auto fetched = callsOf("AlgoTradeLogicNew::GetStrategy");
    ASSERT_EQ(fetched.size(), 1);
    EXPECT_EQ(fetched.first().arguments, QVariantList{"AIVWAP"_s});
    EXPECT_EQ(callsOf("SolveyBusinessDataInterface::GetFundAccountListByFundProp").size(), 1);
    EXPECT_EQ(dialog->getStrategy().name(), "AIVWAP"_s);
    EXPECT_EQ(dialog->getCurrentAlgoName(), "AIVWAP"_s);
}

TEST_F(StrategyLoading, AFixedStrategysBoxIsDisabledAfterEveryLoad)
{
    open("AITWAP"_s, "CASH1"_s, FixedStrategy);
    EXPECT_FALSE(algoTypes().isEnabled());
    algoTypes().setEnabled(true);
    load("AIVWAP"_s);
    EXPECT_FALSE(algoTypes().isEnabled());
}

TEST_F(StrategyLoading, ASelectableStrategysBoxStaysEnabled)
{
    open();
    EXPECT_TRUE(algoTypes().isEnabled());
    chooseAlgoType("AILOCK"_s);
    EXPECT_TRUE(algoTypes().isEnabled());
}

TEST_F(StrategyLoading, ACodeThatTheCatalogueNoLongerKnowsGivesAnEmptyTable)
{
    open();
    ReferenceTables poorer = tables;
    poorer.strategies.removeAt(1); // AIVWAP
    EmbeddedHost later{ReferenceData(poorer)};
    chooseAlgoType("AIVWAP"_s);
    EXPECT_EQ(dialog->getStrategy().name(), QString());
    EXPECT_EQ(table().headNames().size(), 3);
}

// ---- what a load discards

TEST_F(StrategyLoading, NothingOfTheFormerStrategySurvives)
{
    open();
    importRows({ordinaryHeader(), ordinaryRow()});
    ASSERT_EQ(dialog->getWidgetData().size(), 1);
    ASSERT_GT(child<SolveyDecimalLineEdit>("expectBuyLine").value(), 0);
    button("btn_ok").setEnabled(false);
    child<QLabel>("label_bWarning").show();
    child<QLabel>("label_sWarning").show();

    load("AILOCK"_s);
    EXPECT_TRUE(dialog->getWidgetData().isEmpty());
    EXPECT_TRUE(table().getViewData().isEmpty());
    EXPECT_EQ(child<SolveyDecimalLineEdit>("expectBuyLine").value(), 0.0);
    EXPECT_EQ(child<SolveyDecimalLineEdit>("expectSellLine").value(), 0.0);
    EXPECT_TRUE(child<QLabel>("label_bWarning").isHidden());
    EXPECT_TRUE(child<QLabel>("label_sWarning").isHidden());
    EXPECT_TRUE(button("btn_ok").isEnabled());
    for (const QString& former : {"开始时间"_s, "风格参数"_s}) {
        EXPECT_FALSE(inspect().uiTypes().contains(former));
        EXPECT_FALSE(inspect().paramIds().contains(former));
        EXPECT_FALSE(inspect().formats().contains(former));
        EXPECT_FALSE(inspect().options().contains(former));
        EXPECT_FALSE(inspect().instanceParams().contains(former));
    }
}

TEST_F(StrategyLoading, TheAmountBoxesAreDisplaysWithTwoDecimals)
{
    open();
    for (const char* name : {"expectBuyLine", "expectSellLine"}) {
        const auto& box = child<SolveyDecimalLineEdit>(name);
        EXPECT_FALSE(box.isEnabled());
        EXPECT_EQ(box.decimals(), 2);
        EXPECT_EQ(box.value(), 0.0);
    }
}

// ---- order of calls, log

TEST_F(StrategyLoading, ALoadAsksTheHostInThisOrder)
{
    open();
    host->journal().clear();
    load("AIVWAP"_s);
    QStringList operations;
    for (const HostJournal::Call& call : host->journal().calls()) {
        operations.append(call.operation);
    }
    EXPECT_EQ(operations, (QStringList{"SolveyBusinessDataInterface::GetFundAccountListByFundProp"_s,
                                       "AlgoTradeLogicNew::GetAllStrategies"_s, "ZelCore::settings"_s,
                                       "CBusinessDataBase::GetLoginAccount"_s}));
}

TEST_F(StrategyLoading, LogsTheStrategyTheCatalogueAndTheStoredChoice)
{
    open();
    LogCapture log;
    load("AIVWAP"_s);
    for (const QString& line :
         {"###tag-error:   strategy:  \"策略AIVWAP\""_s, "###algoList.count():  12"_s,
          "alias:  \"策略AILOCK\" name:  \"AILOCK\""_s, "###isCreatedClose:  QVariant(bool, true)"_s,
          " columnParamLst cnt:  2"_s, "###tag-column:   paramName:  \"委托数量\""_s,
          "###tag-params:   paramName:  \"开始时间\""_s,
          "###tag-params-1:   paramName:  \"交易方向\"  optionDisp:  \"买入\"  optionValue:  \"Buy\""_s,
          " paramFmtLst: "_s, " varParam: "_s}) {
        EXPECT_TRUE(log.text().contains(line)) << qPrintable(line) << "\n" << qPrintable(log.text());
    }
}
