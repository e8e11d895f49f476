// A file of three hundred rows, of which many are wrong in a dozen ways, becomes a batch by the keyboard
// alone.

#include "desk/models/ProblemsModel.h"
#include "desk/window/FileGrid.h"
#include "desk/window/FileMending.h"
#include "desk/window/ProblemsPanel.h"
#include "desk/window/VerdictDialog.h"
#include "table/CheckRules.h"
#include "tests/desk_window/DeskWindowFixture.h"
#include "tests/support/Eventually.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTableView>

namespace {

constexpr int Rows = 300;
constexpr int MostSteps = 60; // each mends one error or more

/// Each spoils a good row in a way of its own.
struct Kind {
    const char* name;
    std::function<void(QStringList& row)> spoil;
};

QList<Kind> kinds()
{
    const auto put = [](const char* title, const char* text) {
        return [column = small_market::ordinaryHeader().indexOf(QString::fromUtf8(title)),
                text = QString::fromUtf8(text)](QStringList& row) { row[column] = text; };
    };
    return {{"a code that nobody knows", put("证券代码", "999999")},
            {"a market that nobody knows", put("市场", "ZZ")},
            {"no quantity", put("委托数量", "")},
            {"a quantity in full-width digits", put("委托数量", "１０００")},
            {"a quantity with a point", put("委托数量", "1.000")},
            {"a direction in words", put("交易方向", "买入")},
            {"an entrust property that is none", put("委托属性", "?")},
            {"a start that is no time", put("开始时间", "昨天")},
            {"a style of another system", put("风格参数", "激进")},
            {"a start status that is none", put("创建后是否立即启动", "5")},
            {"no start status", put("创建后是否立即启动", "")},
            {"an order without its code",
             [](QStringList& row) {
                 row[0].clear();
                 row[1].clear();
             }},
            {"the header once more", [](QStringList& row) { row = small_market::ordinaryHeader(); }}};
}

} // namespace

class DropToBatchTest : public DeskWindowFixture {
protected:
    FileGrid& grid() { return *window->importPage()->grid(); }
    ProblemsPanel& panel() { return *window->importPage()->problems(); }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* focus = QApplication::focusWidget();
        ASSERT_NE(focus, nullptr);
        QTest::keyClick(focus, key, modifiers);
    }

    /// Three hundred orders; every tenth to twelfth is wrong, each kind several times.
    QString writeFaultyFile()
    {
        const QList<Kind> all = kinds();
        QList<QStringList> rows;
        for (int i = 0; i < Rows; ++i) {
            QStringList cells = row(i % 2 == 0 ? "600000"_s : "688001"_s, QString::number(1000 + 100 * i));
            if (i % 11 == 5) {
                all.at((i / 11) % all.size()).spoil(cells);
            }
            rows.append(cells);
        }
        return writeFile(rows, "three-hundred.csv"_s);
    }

    static QString mendedTextOf(const QString& title)
    {
        const QMap<QString, QString> texts = {{"证券代码"_s, "600000"_s},
                                              {"市场"_s, "SH"_s},
                                              {"委托数量"_s, "1000"_s},
                                              {"委托属性"_s, "0"_s},
                                              {"开始时间"_s, "2024-3-5 9:30:0"_s},
                                              {"创建后是否立即启动"_s, "7"_s}};
        return texts.value(title);
    }

    void typeIntoCell(const QString& text)
    {
        press(Qt::Key_F2);
        press(Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), text);
        press(Qt::Key_Return);
        QCoreApplication::processEvents(); // the editor hands over what was typed afterwards
    }

    void replaceInColumn(const QString& text)
    {
        whenModal([text](QWidget& modal) {
            QTest::keyClicks(modal.focusWidget(), text);
            QTest::keyClick(modal.focusWidget(), Qt::Key_Return);
        });
        press(Qt::Key_H, Qt::ControlModifier);
        window->activateWindow(); // off screen, a closed dialog does not hand the activity back
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    /// What a person would do about it.
    void mend(const Problem& problem)
    {
        const QString title = problem.fault.column;
        if (problem.fault.rule == table::rule::OrderWithoutCode) {
            typeIntoCell("600000"_s);
        } else if (title == "证券代码"_s && problem.fault.cell == "600000"_s) {
            press(Qt::Key_Right); // the code is right, so the market beside the name is not
            press(Qt::Key_Right);
            typeIntoCell("SH"_s);
        } else if (title == "风格参数"_s) {
            replaceInColumn("neutral"_s);
        } else if (title == "交易方向"_s && problem.fault.cell == "买入"_s) {
            replaceInColumn("1"_s);
        } else if (mendedTextOf(title).isEmpty() || problem.fault.rule == table::rule::HeaderAgain ||
                   problem.fault.cell == title) {
            press(Qt::Key_Minus, Qt::ControlModifier);
        } else {
            typeIntoCell(mendedTextOf(title));
        }
    }

    /// From one error to the next until there is none; how many steps that took.
    int mendAll()
    {
        QTest::keyClick(window.get(), Qt::Key_F7); // errors alone
        int steps = 0;
        while (panel().hasErrors() && steps < MostSteps) {
            ++steps;
            QTest::keyClick(window.get(), Qt::Key_F8);
            QTest::keyClick(window.get(), Qt::Key_F4);
            const int current = panel().table()->currentRow();
            if (current < 0) {
                ADD_FAILURE() << "F8 led to no problem: " << message().toStdString();
                return steps;
            }
            mend(panel().problems().at(current));
        }
        return steps;
    }

    /// What is still wrong, for whoever reads a failure.
    std::string remaining()
    {
        QString text;
        for (const Problem& problem : panel().problems()) {
            if (problem.fault.severity == table::Severity::Error) {
                text += QStringLiteral("%1 %2 %3 %4\n")
                            .arg(QString::number(problem.fault.line), problem.fault.rule,
                                 problem.fault.column, problem.fault.cell);
            }
        }
        return text.toStdString();
    }

    /// Tab by Tab: each question by the space bar, the amount typed, and the button pressed.
    static void agree(QWidget& modal)
    {
        auto* verdict = qobject_cast<VerdictDialog*>(&modal);
        ASSERT_NE(verdict, nullptr);
        auto* create = verdict->findChild<QAbstractButton*>("button_create"_s);
        ASSERT_NE(create, nullptr) << "it cannot be created";
        constexpr int mostStops = 100;
        for (int stop = 0; stop < mostStops && verdict->isVisible(); ++stop) {
            QWidget* focus = verdict->focusWidget();
            auto* question = qobject_cast<QCheckBox*>(focus);
            if (question && !question->isChecked()) {
                QTest::keyClick(focus, Qt::Key_Space);
            } else if (focus == create && create->isEnabled()) {
                QTest::keyClick(focus, Qt::Key_Space);
                return;
            }
            QTest::keyClick(verdict->focusWidget(), Qt::Key_Tab);
        }
        ADD_FAILURE() << "the keyboard did not reach the button";
        verdict->reject();
    }
};

TEST_F(DropToBatchTest, MendsThreeHundredRowsAndCreatesTheirBatchByKeys)
{
    open();
    const QString path = writeFaultyFile();
    whenModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Return); }); // what the dialog says of it
    drop(path);
    QSet<QString> rules;
    for (const Problem& problem : panel().problems()) {
        rules.insert(problem.fault.rule + problem.fault.column);
    }
    EXPECT_GE(rules.size(), 12) << "as many kinds of errors";
    ASSERT_TRUE(panel().hasErrors());

    const int steps = mendAll();
    ASSERT_FALSE(panel().hasErrors()) << steps << " steps left: " << remaining();
    ASSERT_TRUE(eventually([this] { return !window->importPage()->mending()->isBehind(); }));
    const int left = grid().copy().leftOut().size();
    EXPECT_EQ(parameterTable()->getViewData().size(), Rows - left);
    EXPECT_LT(left, 10) << "rows are mended and not thrown away";
    EXPECT_FALSE(panel().hasErrors()) << "the dialog finds what the reading of the rows found";

    whenModal(agree);
    QTest::keyClick(window.get(), Qt::Key_Return, Qt::ControlModifier);
    const auto batches = books.ledger->batchesBefore(std::nullopt, 1).value;
    ASSERT_EQ(batches.size(), 1) << message().toStdString();
    EXPECT_EQ(batches.first().rowCount, Rows - left);
    EXPECT_EQ(batches.first().fileEdits, grid().copy().toJson());
}
