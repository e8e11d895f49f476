#include "desk/window/ProblemsPanel.h"
#include "tests/desk_window/DeskWindowFixture.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QTextDocument>

namespace {

/// What a stranger's file or folder may hold in place of a name.
const QString Markup = "<img src='file:///etc/passwd'>"_s;

/// Shown by Qt as the text that it is.
bool isPlain(const QString& tip)
{
    if (!Qt::mightBeRichText(tip)) {
        return true;
    }
    QTextDocument document;
    document.setHtml(tip);
    return !document.toHtml().contains("<img"_s) && document.toPlainText().contains(QLatin1Char('<'));
}

class ToolTipTest : public DeskWindowFixture {
protected:
    /// The small market with names that look like markup, and a security without a price.
    void spoilNames()
    {
        const AesStrategy first = tables.strategies.first();
        tables.strategies[0] = AesStrategy(first.name(), Markup, first.paramFormats(), first.globalType());
        for (tagUserAccountInfo& account : tables.accounts) {
            account.name = Markup;
        }
        Security security = tables.securities.first();
        security.symbol = Markup;
        security.code = "999991"_s;
        security.name = Markup;
        tables.securities.append(security);
    }

    QStringList tipsOf(const QAbstractItemModel& model)
    {
        QStringList tips;
        for (int column = 0; column < model.columnCount(); ++column) {
            tips.append(model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString());
            for (int row = 0; row < model.rowCount(); ++row) {
                tips.append(model.index(row, column).data(Qt::ToolTipRole).toString());
            }
        }
        return tips;
    }

    /// Of every widget, and of every cell and title of a list.
    QStringList allTips()
    {
        QStringList tips;
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            tips.append(widget->toolTip());
        }
        for (const QAbstractItemView* view : window->findChildren<QAbstractItemView*>()) {
            if (view->model() && !qobject_cast<const QHeaderView*>(view)) {
                tips += tipsOf(*view->model());
            }
        }
        tips.removeAll(QString());
        return tips;
    }
};

TEST_F(ToolTipTest, ShowsTextsThatLookLikeMarkupAsTheyStandEverywhere)
{
    spoilNames();
    open();
    const QStringList header = small_market::ordinaryHeader() + QStringList{Markup};
    answer("button_ok"_s);
    drop(writeTable({header, row("999991"_s) + QStringList{Markup}, row(Markup) + QStringList{Markup}},
                    "list <i>.csv"_s));
    ASSERT_EQ(parameterTable()->getViewData().size(), 1) << "the security without a price is in the table";
    const QStringList tips = allTips();
    for (const char* name : {"label_bWarning", "expectBuyLine", "combx_account"}) {
        const QString tip = child<QWidget>(name)->toolTip();
        EXPECT_TRUE(tips.contains(tip) && tip.contains("img"_s)) << name << ": " << tip.toStdString();
    }
    pressConfirm();
    window->showPage(DeskWindow::QuotesPageIndex);
    for (const QString& tip : tips + allTips()) {
        EXPECT_TRUE(isPlain(tip)) << tip.toStdString();
    }
}

} // namespace
