#include "embedded_host/skin/SkinService.h"

#include "host/IZelSkin.h"
#include "host/ZelCore.h"
#include "tests/widgets/TestHost.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QRegularExpression>

#include <memory>

namespace {

const QString DialogSheet = QStringLiteral("Solvey/algoTrade/algoTradeNew.css");
const QString Light = QStringLiteral("light");
const QString Dark = QStringLiteral("dark");

struct View final : IZelSkin {
    void loadSkin(const QVariant& style) override { styles.append(style); }
    QList<QVariant> styles;
};

/// Ends another view when it is dressed.
struct Replacing final : IZelSkin {
    void loadSkin(const QVariant&) override { replaced.reset(); }
    std::unique_ptr<View> replaced = std::make_unique<View>();
};

class SkinServiceTest : public testing::Test {
protected:
    ~SkinServiceTest() override { QApplication::setPalette(paletteBefore); }

    QPalette paletteBefore = QApplication::palette();
    TestHost host;
    SkinService& skins = host.skins();
};

} // namespace

TEST_F(SkinServiceTest, DressesNothingWhileNoSkinIsChosen)
{
    View view;
    skins.addView(&view, DialogSheet);
    EXPECT_TRUE(skins.skin().isEmpty());
    EXPECT_TRUE(view.styles.isEmpty());
    EXPECT_FALSE(skins.styleSheet(DialogSheet).isValid());
}

TEST_F(SkinServiceTest, DressesARegisteredViewAtEveryChange)
{
    View view;
    ZelCore::instance()->addStyle2View(&view, DialogSheet);
    skins.setSkin(Light);
    skins.setSkin(Dark);
    ASSERT_EQ(view.styles.size(), 2);
    EXPECT_TRUE(view.styles.at(0).toString().contains(QStringLiteral("#btn_ok")));
    EXPECT_NE(view.styles.at(0), view.styles.at(1));
}

TEST_F(SkinServiceTest, DressesAtOnceAViewThatComesUnderASkin)
{
    skins.setSkin(Dark);
    View view;
    skins.addView(&view, DialogSheet);
    EXPECT_EQ(view.styles, QList<QVariant>({skins.styleSheet(DialogSheet)}));
}

TEST_F(SkinServiceTest, GivesAnUnknownPathAnInvalidStyle)
{
    skins.setSkin(Light);
    View view;
    skins.addView(&view, QStringLiteral("no/such.css"));
    ASSERT_EQ(view.styles.size(), 1);
    EXPECT_FALSE(view.styles.first().isValid());
}

TEST_F(SkinServiceTest, AnUnknownSkinChangesNothing)
{
    skins.setSkin(Light);
    View view;
    skins.addView(&view, DialogSheet);
    skins.setSkin(QStringLiteral("../dark"));
    EXPECT_EQ(skins.skin(), Light);
    EXPECT_EQ(view.styles.size(), 1);
}

TEST_F(SkinServiceTest, ForgetsAViewThatIsGoneWhicheverHostIsCurrent)
{
    auto view = std::make_unique<View>();
    skins.addView(view.get(), DialogSheet);
    EXPECT_EQ(skins.viewCount(), 1);
    const TestHost another;
    view.reset();
    EXPECT_EQ(skins.viewCount(), 0);
    skins.setSkin(Light);
}

TEST_F(SkinServiceTest, AViewThatGoesWhileAnotherDressesIsLeftAlone)
{
    Replacing first;
    skins.addView(&first, DialogSheet);
    skins.addView(first.replaced.get(), DialogSheet);
    skins.setSkin(Dark);
    EXPECT_EQ(first.replaced, nullptr);
    EXPECT_EQ(skins.viewCount(), 1);
}

TEST_F(SkinServiceTest, AViewMayOutliveItsHost)
{
    View view;
    {
        TestHost shortLived;
        shortLived.skins().addView(&view, DialogSheet);
    }
    EXPECT_TRUE(view.styles.isEmpty());
}

TEST_F(SkinServiceTest, AViewRegisteredTwiceIsDressedOnce)
{
    View view;
    skins.addView(&view, QStringLiteral("no/such.css"));
    skins.addView(&view, DialogSheet);
    skins.setSkin(Light);
    ASSERT_EQ(view.styles.size(), 1);
    EXPECT_TRUE(view.styles.first().isValid());
}

TEST_F(SkinServiceTest, EverySkinHasTheSameColoursAndFillsEverySheet)
{
    QStringList lightNames = SkinColours::ofSkin(Light).names();
    QStringList darkNames = SkinColours::ofSkin(Dark).names();
    lightNames.sort();
    darkNames.sort();
    EXPECT_EQ(lightNames, darkNames);
    for (const QString& skin : SkinService::names()) {
        skins.setSkin(skin);
        for (const QString& sheet : {DialogSheet, QStringLiteral("desk/desk.css")}) {
            QString text = skins.styleSheet(sheet).toString();
            EXPECT_FALSE(text.isEmpty());
            EXPECT_FALSE(text.contains(QLatin1Char('@'))) << qPrintable(text);
        }
        for (const QString& name : skins.colours().names()) {
            EXPECT_TRUE(skins.colours().colour(name).isValid()) << qPrintable(skin + name);
        }
    }
}

TEST_F(SkinServiceTest, GivesTheApplicationTheSkinsPalette)
{
    skins.setSkin(Dark);
    EXPECT_EQ(QApplication::palette().color(QPalette::Base),
              skins.colours().colour(QStringLiteral("surface")));
    EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), 64);
    skins.setSkin(Light);
    EXPECT_GT(QApplication::palette().color(QPalette::Window).lightness(), 192);
}
