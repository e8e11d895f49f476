#include "tests/amounts/AmountsTest.h"
#include "tests/support/Sheet.h"

#include <QProxyStyle>

namespace {

/// Notes which widgets are polished through it.
class PolishRecorder : public QProxyStyle {
public:
    using QProxyStyle::polish;
    void polish(QWidget* widget) override
    {
        polished.append(widget);
        QProxyStyle::polish(widget);
    }
    QList<QWidget*> polished;
};

} // namespace

/// How the sums and the failures show.
class AmountDisplay : public AmountsTest {};

TEST_F(AmountDisplay, ShowsTwoDecimalsAndRepeatsThemInTheToolTip)
{
    open();
    price({row("510300.SH"_s, "Buy"_s, "0.3336"_s), row("600000.SH"_s, "Sell"_s, "1234567"_s)});
    EXPECT_EQ("1.33"_s, buyBox().text());
    EXPECT_EQ("1.33"_s, buyBox().toolTip());
    EXPECT_EQ("12345670.00"_s, sellBox().text());
    EXPECT_EQ("12345670.00"_s, sellBox().toolTip());
    EXPECT_FALSE(buyBox().isEnabled());
    EXPECT_FALSE(sellBox().isEnabled());
}

TEST_F(AmountDisplay, TurnsASideRedThatCouldNotBePriced)
{
    open();
    price({row("600999.SH"_s, "Sell"_s), row("999999.SH"_s, "Sell"_s), row("600000.SH"_s, "Buy"_s)});
    EXPECT_EQ(QString(), buyBox().styleSheet());
    EXPECT_EQ("1000.00"_s, buyBox().toolTip());
    EXPECT_EQ(Red, sellBox().styleSheet());
    EXPECT_EQ(Failed + "600999.SH、999999.SH"_s, sellBox().toolTip());
    EXPECT_TRUE(buyWarning().isHidden());
    EXPECT_FALSE(sellWarning().isHidden());
    EXPECT_EQ(Failed, buyWarning().toolTip());
    EXPECT_EQ(Failed + "600999.SH、999999.SH"_s, sellWarning().toolTip());
}

TEST_F(AmountDisplay, TakesTheRedAwayAgain)
{
    open();
    price({row("600999.SH"_s, "Buy/Sell"_s)});
    EXPECT_EQ(Red, buyBox().styleSheet());
    price({});
    EXPECT_EQ(QString(), buyBox().styleSheet());
    EXPECT_EQ(QString(), sellBox().styleSheet());
    EXPECT_TRUE(buyWarning().isHidden());
    EXPECT_TRUE(sellWarning().isHidden());
    EXPECT_EQ("0.00"_s, buyBox().toolTip());
}

TEST_F(AmountDisplay, PolishesTheDialogByTheStyleOfEachBox)
{
    open();
    PolishRecorder buyStyle;
    PolishRecorder sellStyle;
    buyBox().setStyle(&buyStyle);
    sellBox().setStyle(&sellStyle);
    buyStyle.polished.clear();
    sellStyle.polished.clear();
    price({row("600000.SH"_s, "Buy"_s)});
    EXPECT_TRUE(buyStyle.polished.contains(dialog.get()));
    EXPECT_TRUE(sellStyle.polished.contains(dialog.get()));
    dialog.reset();
}

TEST_F(AmountDisplay, AnImportShowsItsAmounts)
{
    open();
    importRows(Sheet::ordinary()
                   .add({{"委托数量"_s, "300"_s}})
                   .add({{"证券代码"_s, "600999"_s}, {"交易方向"_s, "2"_s}})
                   .rows());
    EXPECT_EQ("3000.00"_s, buyBox().text());
    EXPECT_EQ(Red, sellBox().styleSheet());
    EXPECT_EQ(Failed + "600999.SH"_s, sellBox().toolTip());
}

TEST_F(AmountDisplay, APairedImportCountsOnBothSides)
{
    open("AILOCK"_s);
    importRows(Sheet::paired().add().rows());
    expectSums(10000, 10000);
}

TEST_F(AmountDisplay, UpdatingPricesTheVisibleTableAgain)
{
    open();
    importRows(Sheet::ordinary().add().rows());
    buyBox().setValue(1);
    dialog->show();
    host->journal().clear();
    dialog->slotUpdateAmount();
    expectSums(10000, 0);
    EXPECT_EQ(1, callsOf("CommonQuotaHandler::SubscribeQuota").size());
}

TEST_F(AmountDisplay, UpdatingLeavesAHiddenTableAlone)
{
    open();
    importRows(Sheet::ordinary().add().rows());
    buyBox().setValue(1);
    host->journal().clear();
    dialog->slotUpdateAmount();
    EXPECT_EQ(1.0, buyBox().value());
    EXPECT_EQ(0, callsOf("CommonQuotaHandler::SubscribeQuota").size());
}

TEST_F(AmountDisplay, UpdatingLeavesAnEmptyTableAlone)
{
    open();
    dialog->show();
    buyBox().setValue(1);
    host->journal().clear();
    dialog->slotUpdateAmount();
    EXPECT_EQ(1.0, buyBox().value());
    EXPECT_EQ(0, callsOf("CommonQuotaHandler::SubscribeQuota").size());
}

TEST_F(AmountDisplay, PricingChangesNothingInTheTable)
{
    open();
    importRows(Sheet::ordinary().add().rows());
    const RecordDataList before = table().getViewData();
    dialog->show();
    dialog->slotUpdateAmount();
    EXPECT_EQ(before, table().getViewData());
}
