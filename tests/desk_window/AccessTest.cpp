// What a screen reader, a keyboard and a small screen find in the whole window, in both languages.

#include "desk/window/HelpWindow.h"
#include "desk/window/StrategyFinder.h"
#include "desk/window/VerdictDialog.h"
#include "tests/desk_window/DeskWindowFixture.h"
#include "words/Language.h"

#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTextBrowser>

namespace {

/// What a user works with, and therefore has to have a name.
bool isControl(QAccessible::Role role)
{
    static const QList<QAccessible::Role> roles = {
        QAccessible::PushButton, QAccessible::CheckBox,      QAccessible::RadioButton,
        QAccessible::ComboBox,   QAccessible::EditableText,  QAccessible::Table,
        QAccessible::List,       QAccessible::Tree,          QAccessible::PageTab,
        QAccessible::MenuItem,   QAccessible::SpinBox,       QAccessible::Slider,
        QAccessible::ButtonMenu, QAccessible::ButtonDropDown};
    return roles.contains(role);
}

/// Walks the tree below; the nameless controls by their path.
void collectNameless(QAccessibleInterface* node, const QString& path, QStringList& nameless, int& controls)
{
    if (node == nullptr || !node->isValid() || node->state().invisible) {
        return;
    }
    const QString here = path + QLatin1Char('/') +
                         (node->object() ? QString::fromLatin1(node->object()->metaObject()->className()) +
                                               QLatin1Char('#') + node->object()->objectName()
                                         : QStringLiteral("item"));
    if (isControl(node->role())) {
        ++controls;
        if (node->text(QAccessible::Name).trimmed().isEmpty()) {
            nameless.append(here);
        }
    }
    const bool isData = node->role() == QAccessible::Table || node->role() == QAccessible::List;
    for (int child = 0; !isData && child < node->childCount(); ++child) {
        collectNameless(node->child(child), here, nameless, controls);
    }
}

bool isChinese(const QString& text)
{
    static const QRegularExpression sign("[\\x{4e00}-\\x{9fff}]"_s);
    return text.contains(sign);
}

} // namespace

class AccessTest : public DeskWindowFixture {
protected:
    ~AccessTest() override { words::speak(words::Language::Chinese); }

    static QStringList namelessIn(QWidget* top, int leastControls)
    {
        QStringList nameless;
        int controls = 0;
        collectNameless(QAccessible::queryAccessibleInterface(top), QString(), nameless, controls);
        EXPECT_GE(controls, leastControls) << "the walk saw the window";
        return nameless;
    }

    /// The controls of the shown page in the order of Tab.
    QList<QWidget*> tabOrder() const
    {
        QList<QWidget*> order;
        QWidget* page = window->findChild<QTabWidget*>()->currentWidget();
        for (QWidget* next = page->nextInFocusChain(); next != page; next = next->nextInFocusChain()) {
            if (page->isAncestorOf(next) && next->isVisible() && next->isEnabled() &&
                (next->focusPolicy() & Qt::TabFocus) != 0 && next->focusProxy() == nullptr) {
                order.append(next);
            }
        }
        return order;
    }

    /// Texts of the shown widgets outside the dialog.
    QStringList shownTexts() const
    {
        QStringList texts{window->windowTitle()};
        QWidget* dialog = window->importPage()->frame()->dialog();
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            if (dialog != nullptr && (widget == dialog || dialog->isAncestorOf(widget))) {
                continue;
            }
            if (const auto* label = qobject_cast<const QLabel*>(widget)) {
                texts.append(label->text());
            } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
                texts.append(button->text());
            } else if (const auto* edit = qobject_cast<const QLineEdit*>(widget)) {
                texts.append(edit->placeholderText());
            } else if (const auto* tabs = qobject_cast<const QTabWidget*>(widget)) {
                for (int tab = 0; tab < tabs->count(); ++tab) {
                    texts.append(tabs->tabText(tab));
                }
            } else if (const auto* table = qobject_cast<const QTableView*>(widget)) {
                for (int column = 0; column < table->model()->columnCount(); ++column) {
                    texts.append(table->model()->headerData(column, Qt::Horizontal).toString());
                }
            }
            texts += QStringList{widget->toolTip(), widget->accessibleName()};
        }
        for (const QAction* action : window->findChildren<QAction*>()) {
            texts.append(action->text());
        }
        return texts;
    }
};

TEST_F(AccessTest, EveryControlOfEveryPageHasAName)
{
    for (const auto language : {words::Language::Chinese, words::Language::English}) {
        words::speak(language);
        open();
        answer("button_ok"_s);
        drop(writeFile({row(), row("000009"_s)}));
        for (int page = 0; page < window->pageTitles().size(); ++page) {
            window->showPage(page);
            EXPECT_EQ(namelessIn(window.get(), 10), QStringList()) << page;
        }
        closeWindow();
    }
}

TEST_F(AccessTest, TheAmountsAreCalledByTheirLabels)
{
    open();
    for (const char* name : {"expectBuyLab", "expectSellLab", "label", "label_2"}) {
        const auto* label = child<QLabel>(name);
        ASSERT_NE(label->buddy(), nullptr) << name;
        EXPECT_FALSE(label->buddy()->accessibleName().isEmpty()) << name;
    }
}

TEST_F(AccessTest, InEnglishNothingOutsideTheDialogIsChinese)
{
    words::speak(words::Language::English);
    open();
    answer("button_ok"_s);
    drop(writeFile({row(), row("000009"_s)}));
    for (const QString& text : shownTexts()) {
        QString own = text;
        for (const QString& name : {"导入算法"_s, "确定"_s, "简体中文"_s,
                                    "中文"_s}) { // the dialog's buttons; a language's own name
            own.remove(name);
        }
        EXPECT_FALSE(isChinese(own)) << text.toStdString();
    }
}

TEST_F(AccessTest, TabGoesFromLeftToRightAndDownThePage)
{
    open();
    for (int page = 0; page < window->pageTitles().size(); ++page) {
        window->showPage(page);
        const QList<QWidget*> order = tabOrder();
        for (int i = 1; i < order.size(); ++i) {
            const QRect before(order.at(i - 1)->mapTo(window.get(), QPoint()), order.at(i - 1)->size());
            const QRect next(order.at(i)->mapTo(window.get(), QPoint()), order.at(i)->size());
            const bool isRightOfIt = next.left() >= before.right() && next.top() < before.bottom();
            EXPECT_TRUE(isRightOfIt || next.top() >= before.bottom() - 1)
                << page << ": " << order.at(i - 1)->objectName().toStdString() << " "
                << order.at(i - 1)->metaObject()->className() << " -> "
                << order.at(i)->objectName().toStdString() << " " << order.at(i)->metaObject()->className();
        }
    }
}

TEST_F(AccessTest, TheWindowFitsASmallScreen)
{
    for (const auto language : {words::Language::Chinese, words::Language::English}) {
        words::speak(language);
        open();
        const QSize least = window->minimumSizeHint();
        EXPECT_LE(least.width(), 1024);
        EXPECT_LE(least.height(), 560) << "600 less a title bar";
        window->resize(1024, 560);
        EXPECT_EQ(window->size(), QSize(1024, 560));
        QCoreApplication::processEvents();
        // The dialog's form asks for more and scrolls.
        auto* view = child<QScrollArea>("view_dialog");
        for (const char* name : {"btn_import", "btn_cancel"}) {
            auto* control = child<QWidget>(name);
            view->ensureWidgetVisible(control, 0, 0);
            const QRect seen(control->mapTo(view->viewport(), QPoint()), control->size());
            EXPECT_TRUE(view->viewport()->rect().contains(seen)) << name;
        }
        closeWindow();
    }
}

TEST_F(AccessTest, ButtonsOfThePagesSayWhatTheyDo)
{
    open();
    for (const QPushButton* button : window->findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
    }
}

TEST_F(AccessTest, AStrategyIsFoundByItsCodeOrItsNameAndChosenOnceItIsFound)
{
    open();
    auto* box = child<QComboBox>("cbx_algoType");
    const QString code = box->itemData(1).toString();
    const QString name = box->itemText(1);
    QSignalSpy changed(box, &QComboBox::currentTextChanged);
    for (const QString& typed : {code, name}) {
        box->setCurrentIndex(0);
        changed.clear();
        box->setFocus();
        QTest::keyClick(box, 'x');
        auto* finder = child<StrategyFinder>("strategyFinder");
        ASSERT_TRUE(finder->isVisible()) << "a letter opens it";
        auto* search = finder->findChild<QLineEdit*>();
        search->setText(typed);
        EXPECT_EQ(changed.count(), 0) << "looking chooses nothing";
        QTest::keyClick(search, Qt::Key_Return);
        EXPECT_FALSE(finder->isVisible());
        EXPECT_EQ(box->currentData().toString(), code);
    }
    EXPECT_TRUE(box->toolTip().contains(code)) << "the code is shown";
}

TEST_F(AccessTest, TheGuideSpeaksTheWindowsLanguage)
{
    open();
    window->showHelp();
    EXPECT_TRUE(child<HelpWindow>("helpWindow")->text()->toPlainText().contains("导入文件填写说明"_s));
    closeWindow();
    words::speak(words::Language::English);
    open();
    window->showHelp();
    EXPECT_TRUE(
        child<HelpWindow>("helpWindow")->text()->toPlainText().startsWith("Filling in an import file"_s));
}

TEST_F(AccessTest, TheImportTablesColumnsStayAsTheTraderLeftThem)
{
    open();
    drop(writeFile({row()}));
    QHeaderView* titles = parameterTable()->horizontalHeader();
    const int y = titles->height() / 2;
    const int edge = titles->sectionViewportPosition(0) + titles->sectionSize(0) - 1;
    QTest::mousePress(titles->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(edge, y));
    QTest::mouseMove(titles->viewport(), QPoint(edge + 20, y));
    QTest::mouseMove(titles->viewport(), QPoint(edge + 40, y));
    titles->resizeSection(0, 187); // what the pointer does, to the pixel
    QTest::mouseRelease(titles->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(edge + 40, y));
    titles->moveSection(titles->visualIndex(2), 0);
    const QString first = parameterTable()->headNames().value(2);
    closeWindow();
    open();
    drop(writeFile({row()}));
    titles = parameterTable()->horizontalHeader();
    EXPECT_EQ(titles->sectionSize(0), 187);
    EXPECT_EQ(parameterTable()->headNames().value(titles->logicalIndex(0)), first);
}
