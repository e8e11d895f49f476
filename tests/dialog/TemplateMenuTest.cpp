// The menu under 导出模板, driven while it is open.

#include "tests/support/DialogFixture.h"

#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace {

const QString All = QStringLiteral("全部算法模板");
const QString Current = QStringLiteral("当前算法模板");

class TemplateMenu : public DialogFixture {
protected:
    /// Presses 导出模板, notes what the menu offers and clicks the entry; an empty one closes the menu.
    void pressAndChoose(const QString& entry)
    {
        offered.clear();
        QTimer::singleShot(0, dialog.get(), [this, entry] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            parent = menu->parentWidget();
            for (const QAction* action : menu->actions()) {
                actionParents.append(action->parent());
            }
            position = menu->pos();
            for (QAction* action : menu->actions()) {
                offered.append(action->text());
                if (action->text() == entry) {
                    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
                    return;
                }
            }
            menu->close();
        });
        host->journal().clear();
        button("pb_exportModules").click();
    }

    QList<HostJournal::Call> downloads() { return callsOf("SolveyUtils::DownloadTemplateFile"); }

    void expectOneDownloadOf(const QString& name)
    {
        ASSERT_EQ(downloads().size(), 1);
        EXPECT_EQ(downloads().first().arguments,
                  (QVariantList{"AlgoBatchSingle"_s, "AlgoBatchImportParamSetting"_s, QStringList{name}}));
    }

    QStringList offered;
    QPoint position;
    QWidget* parent = nullptr;
    QList<QObject*> actionParents;
};

} // namespace

TEST_F(TemplateMenu, OffersOnlyAllTemplatesWhereTheStrategyHasNoneOfItsOwn)
{
    open("AILOCK"_s);
    pressAndChoose(QString());
    EXPECT_EQ(offered, QStringList{All});
}

TEST_F(TemplateMenu, OffersBothWhereTheStrategyHasOneAndSendsTheAliasShown)
{
    open("AITWAP"_s);
    pressAndChoose(Current);
    EXPECT_EQ(offered, (QStringList{All, Current}));
    expectOneDownloadOf("策略AITWAP"_s);
}

TEST_F(TemplateMenu, AllTemplatesAreAskedForByTheirSelector)
{
    open("AITWAP"_s);
    pressAndChoose(All);
    expectOneDownloadOf("全部"_s);
}

TEST_F(TemplateMenu, ClosingTheMenuDownloadsNothing)
{
    open("AITWAP"_s);
    pressAndChoose(QString());
    EXPECT_EQ(offered.size(), 2);
    EXPECT_TRUE(downloads().isEmpty());
}

TEST_F(TemplateMenu, FifteenStrategiesHaveATemplateOfTheirOwn)
{
    open();
    const QStringList own = {
        "AIPOV"_s,       "AIPOVBASIC"_s,      "AITWAPBASIC"_s,          "AITWAP"_s,      "AITWAP3"_s,
        "AIVWAPBASIC"_s, "AIVWAP"_s,          "KF_TWAPPLUS"_s,          "KF_VWAPPLUS"_s, "SUPERTWAP"_s,
        "SUPERVWAP"_s,   "PursueHighLimit"_s, "DoubleConditionOrder"_s, "QND_TWAP"_s,    "QND_VWAP"_s};
    for (const QString& code : own + QStringList{"AILOCK"_s, "aitwap"_s, "AITWAPPLUS"_s, "PursueHighLimitB"_s,
                                                 "AIPAIR"_s, QString()}) {
        loadDocument({}, code);
        pressAndChoose(QString());
        EXPECT_EQ(offered.contains(Current), own.contains(code)) << qPrintable(code);
        EXPECT_EQ(offered.first(), All);
    }
}

TEST_F(TemplateMenu, SendsTheTextThatTheBoxShowsWhenTheEntryIsChosen)
{
    open("AITWAP"_s);
    algoTypes().blockSignals(true); // the box shows another text than the loaded strategy's
    algoTypes().setCurrentIndex(algoTypes().findData("AIVWAP"_s));
    algoTypes().blockSignals(false);
    pressAndChoose(Current);
    expectOneDownloadOf("策略AIVWAP"_s);
}

TEST_F(TemplateMenu, OpensUnderTheButtonAndLeavesNothingBehind)
{
    open("AITWAP"_s);
    dialog->show();
    const int children = dialog->findChildren<QAction*>().size();
    pressAndChoose(QString());
    EXPECT_EQ(position, dialog->mapToGlobal(button("pb_exportModules").pos() + QPoint(0, 24)));
    EXPECT_EQ(parent, nullptr);
    EXPECT_EQ(actionParents, (QList<QObject*>{dialog.get(), dialog.get()}));
    EXPECT_EQ(dialog->findChildren<QAction*>().size(), children) << "both actions are gone";
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(TemplateMenu, ACancelledDownloadIsNotReported)
{
    open("AITWAP"_s);
    pressAndChoose(All); // the prompts answer the save dialog with nothing
    EXPECT_TRUE(prompts.boxes().isEmpty());
}

TEST_F(TemplateMenu, ADialogThatIsDeletedUnderTheOpenMenuTakesItsActionsAlongAndClosesIt)
{
    open("AITWAP"_s);
    const QPointer<QPushButton> pressed = &button("pb_exportModules");
    QPointer<QAction> entry;
    bool closed = false;
    QTimer::singleShot(0, qApp, [&] {
        const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        entry = menu->actions().first();
        dialog.reset();
        closed = !menu->isVisible();
        menu->close(); // or the press would not return
    });
    pressed->click();
    EXPECT_EQ(dialog, nullptr);
    EXPECT_TRUE(closed);
    EXPECT_TRUE(pressed.isNull());
    EXPECT_TRUE(entry.isNull());
}
