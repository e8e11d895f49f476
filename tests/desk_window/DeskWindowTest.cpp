#include "desk/window/AmountRefresher.h"
#include "desk/window/QuotesPage.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "embedded_host/quotes/QuoteBoard.h"
#include "embedded_host/skin/SkinService.h"
#include "host/SolveyAccountComboBox.h"
#include "tests/desk_window/DeskWindowFixture.h"

#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableView>
#include <QTabWidget>

class DeskWindowTest : public DeskWindowFixture {};

TEST_F(DeskWindowTest, ImportsAFileThatIsDroppedOnIt)
{
    open();
    drop(writeFile({row(), row("688001"_s)}));
    EXPECT_EQ(parameterTable()->getViewData().size(), 2);
    EXPECT_EQ(window->importPage()->dialog()->getWidgetData().size(), 2);
}

TEST_F(DeskWindowTest, TakesNoDropOfFoldersOrTexts)
{
    open();
    for (const QList<QUrl>& urls :
         {QList<QUrl>{}, QList<QUrl>{QUrl::fromLocalFile(folder.path())},
          QList<QUrl>{QUrl("http://x/a.csv"_s)},
          QList<QUrl>{QUrl::fromLocalFile(writeFile({row()})), QUrl::fromLocalFile(folder.path())}}) {
        QMimeData data;
        data.setText("text"_s);
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        EXPECT_FALSE(enter.isAccepted());
    }
}

TEST_F(DeskWindowTest, ReachesEveryPageByItsKeys)
{
    open();
    auto* pages = window->findChild<QTabWidget*>();
    for (int page = pages->count() - 1; page >= 0; --page) {
        QTest::keyClick(window.get(), Qt::Key(Qt::Key_1 + page), Qt::ControlModifier);
        EXPECT_EQ(pages->currentIndex(), page);
    }
}

TEST_F(DeskWindowTest, NamesWhatItShowsForThoseWhoDoNotSeeIt)
{
    open();
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        const bool needsName =
            qobject_cast<const QTableView*>(widget) || qobject_cast<const QComboBox*>(widget);
        EXPECT_FALSE(needsName && widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    }
    for (const FilteredTable* table : window->findChildren<FilteredTable*>()) {
        EXPECT_FALSE(table->filter()->accessibleName().isEmpty());
    }
}

TEST_F(DeskWindowTest, ReadsTheStatusBarOutAsItStands)
{
    open();
    drop(writeFile({row()}));
    QTest::keyClick(window.get(), Qt::Key_F5);
    for (const char* name : {"label_message", "label_refreshed"}) {
        auto* label = child<QLabel>(name);
        EXPECT_FALSE(label->text().isEmpty()) << name;
        EXPECT_EQ(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name), label->text());
    }
}

TEST_F(DeskWindowTest, ShowsTheParametersThatWereHandedOver)
{
    open();
    drop(writeFile({row("600000"_s, "300"_s), row("688001"_s, "400"_s)}));
    pressConfirm();
    const FilteredTable& table = *window->importPage()->handedOver();
    EXPECT_EQ(shown(table, 0), QStringList({"600000.SH"_s, "688001.SH"_s}));
    EXPECT_TRUE(table.shownRows().first().contains("交易账号"_s));
}

TEST_F(DeskWindowTest, ClosesTheDialogAfterCreationAndOpensANewOneOnRequest)
{
    open();
    drop(writeFile({row()}));
    pressConfirm();
    EXPECT_EQ(window->importPage()->dialog(), nullptr);
    auto* again = child<QAbstractButton>("button_open");
    ASSERT_TRUE(again && again->isVisible());
    QTest::mouseClick(again, Qt::LeftButton);
    ASSERT_NE(window->importPage()->dialog(), nullptr);
    EXPECT_TRUE(window->importPage()->dialog()->isVisible());
    EXPECT_EQ(window->importPage()->dialog()->getCurrentAlgoName(), "AITWAP"_s);
}

TEST_F(DeskWindowTest, KeepsTheDialogOpenForAnotherConfirmationWhereTheUserWantsThat)
{
    open();
    QTest::mouseClick(child<QCheckBox>("checkbx_createdClose"), Qt::LeftButton, {}, QPoint(8, 9));
    ASSERT_FALSE(child<QCheckBox>("checkbx_createdClose")->isChecked());
    drop(writeFile({row()}));
    pressConfirm();
    ASSERT_NE(window->importPage()->dialog(), nullptr);
    EXPECT_TRUE(child<QAbstractButton>("btn_ok")->isEnabled());
    EXPECT_EQ(parameterTable()->getViewData().size(), 1);
}

TEST_F(DeskWindowTest, ClosesTheDialogWhenTheUserCancels)
{
    open();
    QTest::mouseClick(child<QAbstractButton>("btn_cancel"), Qt::LeftButton);
    EXPECT_EQ(window->importPage()->dialog(), nullptr);
    QTest::keyClick(window.get(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_NE(window->importPage()->dialog(), nullptr);
}

TEST_F(DeskWindowTest, RefreshesTheExpectedAmountsOnF5)
{
    open();
    drop(writeFile({row()}));
    host->journal().setRecording(true);
    QTest::keyClick(window.get(), Qt::Key_F5);
    EXPECT_EQ(host->journal().callsOf("CommonQuotaHandler::SubscribeQuota"_s).size(), 1);
    EXPECT_EQ(child<QDoubleSpinBox>("expectBuyLine")->value(), 10000.0);
}

TEST_F(DeskWindowTest, RemembersSkinPageStrategyAccountAndSize)
{
    open();
    child<QComboBox>("cbx_algoType")->setCurrentIndex(1);
    const QString strategy = window->importPage()->dialog()->getCurrentAlgoName();
    child<SolveyAccountComboBox>("combx_account")->SetCurTradingAccount("CREDIT1"_s);
    child<QAction>("action_skin_dark")->trigger();
    window->showPage(DeskWindow::BatchesPageIndex);
    const QSize size = window->minimumSizeHint() + QSize(40, 70);
    window->resize(size);
    closeWindow();
    books = {};
    open();
    EXPECT_EQ(window->importPage()->dialog()->getCurrentAlgoName(), strategy);
    EXPECT_EQ(child<SolveyAccountComboBox>("combx_account")->GetCurTradingAccount(), "CREDIT1"_s);
    EXPECT_EQ(host->skins().skin(), "dark"_s);
    EXPECT_EQ(window->findChild<QTabWidget*>()->currentIndex(), int(DeskWindow::BatchesPageIndex));
    EXPECT_EQ(window->size(), size);
}

TEST_F(DeskWindowTest, DressesTheDialogInTheChosenSkin)
{
    open();
    const QString light = window->importPage()->dialog()->styleSheet();
    EXPECT_FALSE(light.isEmpty());
    child<QAction>("action_skin_dark")->trigger();
    EXPECT_NE(window->importPage()->dialog()->styleSheet(), light);
    EXPECT_FALSE(window->importPage()->dialog()->styleSheet().isEmpty());
}

TEST_F(DeskWindowTest, ShowsTheQuotesOfTheImportedSecurities)
{
    open();
    drop(writeFile({row(), row("510300"_s)}));
    window->showPage(DeskWindow::QuotesPageIndex);
    const FilteredTable& table = *window->quotesPage()->table();
    EXPECT_EQ(shown(table, 0), QStringList({"600000.SH"_s, "510300.SH"_s}));
    EXPECT_EQ(shown(table, 2), QStringList({"10.00"_s, "4.000"_s})) << "each with its own decimals";
}

TEST_F(DeskWindowTest, FiltersTheListInFrontAndCopiesWhatIsShown)
{
    open();
    drop(writeFile({row(), row("510300"_s)}));
    window->showPage(DeskWindow::QuotesPageIndex);
    FilteredTable& table = *window->quotesPage()->table();
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(table.filter()->hasFocus());
    QTest::keyClicks(table.filter(), "510"_s);
    EXPECT_EQ(shown(table, 0), QStringList({"510300.SH"_s}));
    QTest::mouseClick(table.findChild<QAbstractButton*>("button_copy"_s), Qt::LeftButton);
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("510300.SH\t"_s));
    EXPECT_FALSE(QApplication::clipboard()->text().contains(QLatin1Char('\n')));
}
