#include "host/ZelMessageBox.h"

#include "tests/support/Eventually.h"
#include "tests/widgets/TestHost.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

namespace {

const QString Title = QStringLiteral("错误");

/// Takes every box and answers with a number.
struct Recorder : UserPrompts {
    QString chooseOpenFile(QWidget*, const QString&, const QString&, const QString&) override { return {}; }
    QString chooseSaveFile(QWidget*, const QString&, const QString&, const QString&) override { return {}; }
    int answerMessageBox(ZelMessageBox& box) override
    {
        text = box.message();
        size = box.size();
        textWidth = box.textWidth();
        visible = box.isVisible();
        return 7;
    }

    QString text;
    QSize size;
    int textWidth = 0;
    bool visible = true;
};

QTextEdit* textArea(const ZelMessageBox& box)
{
    return box.findChild<QTextEdit*>(QStringLiteral("textEdit_message"));
}

QString manyLines(int count)
{
    QString text;
    for (int line = 1; line <= count; ++line) {
        text += QStringLiteral("第%1行：未获取到证券代码!\r\n").arg(line);
    }
    return text;
}

class ZelMessageBoxTest : public testing::Test {
protected:
    /// Shows the box and does something to it as soon as it is there; returns what exec() returned.
    template <typename Act> int execAnd(ZelMessageBox& box, Act act)
    {
        QTimer::singleShot(0, &box, [&box, act] {
            ASSERT_TRUE(QTest::qWaitForWindowActive(&box, PatienceMs));
            act();
        });
        QTimer::singleShot(5000, &box, [&box] {
            ADD_FAILURE() << "the box did not close";
            box.done(-1);
        });
        return box.exec();
    }

    TestHost host;
};

} // namespace

TEST_F(ZelMessageBoxTest, ShowsItsTextWholeAsPlainTextInAReadOnlyArea)
{
    const QString text = QStringLiteral("<b>第1行</b>：<img src=\"x\">&amp;\r\n第2行");
    ZelMessageBox box(Title, text, 1);
    ASSERT_NE(textArea(box), nullptr);
    EXPECT_EQ(textArea(box)->toPlainText(), QString(text).remove(QLatin1Char('\r')));
    EXPECT_TRUE(textArea(box)->isReadOnly());
    EXPECT_EQ(box.message(), text);
    EXPECT_EQ(box.windowTitle(), Title);
}

TEST_F(ZelMessageBoxTest, HasItsSizeFromConstructionAndTakesAnotherOneExactly)
{
    ZelMessageBox box(Title, manyLines(1000), 1);
    EXPECT_EQ(box.size(), ZelMessageBox::sizeAsConstructed());
    EXPECT_EQ(box.textWidth(), ZelMessageBox::textWidthAsConstructed());
    box.resize(box.width() + 10, qMin(1000 * 20 + box.height(), 350));
    EXPECT_EQ(box.size(), QSize(ZelMessageBox::sizeAsConstructed().width() + 10, 350));
    EXPECT_EQ(box.textWidth(), ZelMessageBox::textWidthAsConstructed());
    box.resize(30, 20);
    EXPECT_EQ(box.size(), QSize(30, 20)) << "nothing clamps the size";
    textArea(box)->setFixedWidth(textArea(box)->width() + 20);
    EXPECT_EQ(box.textWidth(), ZelMessageBox::textWidthAsConstructed() + 20);
}

TEST_F(ZelMessageBoxTest, KeepsTheSizeAskedForWhenItIsShown)
{
    ZelMessageBox box(Title, manyLines(1000), 1);
    box.resize(box.width() + 35, 350);
    textArea(box)->setFixedWidth(textArea(box)->width() + 20);
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&box, PatienceMs));
    EXPECT_EQ(box.size(), ZelMessageBox::sizeAsConstructed() + QSize(35, 190));
    EXPECT_EQ(box.textWidth(), ZelMessageBox::textWidthAsConstructed() + 20);
}

TEST_F(ZelMessageBoxTest, FillsTheBoxWithItsTextAndScrollsWhatDoesNotFit)
{
    ZelMessageBox box(Title, manyLines(1000), 1);
    box.resize(box.width() + 10, 350);
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&box, PatienceMs));
    EXPECT_GT(textArea(box)->height(), 280);
    EXPECT_EQ(textArea(box)->width(), box.width() - 20);
    EXPECT_GT(textArea(box)->verticalScrollBar()->maximum(), 0);
    for (const QPushButton* button : box.findChildren<QPushButton*>()) {
        EXPECT_TRUE(box.rect().contains(button->geometry()));
    }
}

TEST_F(ZelMessageBoxTest, AnErrorHasOneButtonThatConfirms)
{
    ZelMessageBox box(Title, QStringLiteral("text"), 1);
    const auto buttons = box.findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 1);
    EXPECT_EQ(buttons.first()->text(), QStringLiteral("确定(&O)"));
    EXPECT_EQ(execAnd(box, [&] { QTest::mouseClick(buttons.first(), Qt::LeftButton); }), 1);
}

TEST_F(ZelMessageBoxTest, AQuestionIsAnsweredByYesOrNo)
{
    ZelMessageBox yes(Title, QStringLiteral("text"), 3);
    const auto buttons = yes.findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 2);
    EXPECT_EQ(buttons.at(0)->text(), QStringLiteral("是(&Y)"));
    EXPECT_EQ(buttons.at(1)->text(), QStringLiteral("否(&N)"));
    EXPECT_EQ(execAnd(yes, [&] { QTest::mouseClick(buttons.at(0), Qt::LeftButton); }), 1);
    ZelMessageBox no(Title, QStringLiteral("text"), 3);
    auto* button = no.findChild<QPushButton*>(QStringLiteral("button_no"));
    EXPECT_EQ(execAnd(no, [&] { QTest::mouseClick(button, Qt::LeftButton); }), 0);
}

TEST_F(ZelMessageBoxTest, EscapeAndClosingAnswerNo)
{
    for (const int type : {1, 3}) {
        ZelMessageBox escaped(Title, QStringLiteral("text"), type, nullptr, 1);
        EXPECT_EQ(execAnd(escaped, [&] { QTest::keyClick(&escaped, Qt::Key_Escape); }), 0);
        ZelMessageBox closed(Title, QStringLiteral("text"), type, nullptr, 1);
        EXPECT_EQ(execAnd(closed, [&] { closed.close(); }), 0);
    }
}

TEST_F(ZelMessageBoxTest, EnterConfirmsWhereTheFirstButtonHasTheFocus)
{
    ZelMessageBox box(Title, QStringLiteral("text"), 3, nullptr, 1);
    EXPECT_EQ(execAnd(box, [&] { QTest::keyClick(box.focusWidget(), Qt::Key_Return); }), 1);
}

TEST_F(ZelMessageBoxTest, EnterPressesTheButtonThatHasTheFocus)
{
    for (const char* name : {"button_yes", "button_no"}) {
        ZelMessageBox box(Title, QStringLiteral("text"), 3);
        auto* button = box.findChild<QPushButton*>(QString::fromLatin1(name));
        const int answer = execAnd(box, [&] {
            button->setFocus();
            QTest::keyClick(button, Qt::Key_Return);
        });
        EXPECT_EQ(answer, name == QByteArray("button_yes") ? 1 : 0);
    }
}

TEST_F(ZelMessageBoxTest, EnterDoesNotAnswerAQuestionWithoutAFocusedButton)
{
    ZelMessageBox box(Title, QStringLiteral("text"), 3, nullptr, 0);
    const int answer = execAnd(box, [&] {
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_TRUE(box.isVisible());
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(answer, 0);
}

TEST_F(ZelMessageBoxTest, CopiesTheWholeMessageOrWhatIsSelectedInIt)
{
    ZelMessageBox box(Title, QStringLiteral("first second"), 1);
    execAnd(box, [&] {
        QTest::keyClick(box.findChild<QPushButton*>(), Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("first second"));
        QTest::mouseDClick(textArea(box)->viewport(), Qt::LeftButton, {}, QPoint(8, 10));
        QTest::keyClick(textArea(box), Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text().trimmed(), QStringLiteral("first"));
        box.accept();
    });
}

TEST_F(ZelMessageBoxTest, HandsItselfToWhoAnswersForTheUser)
{
    Recorder recorder;
    host.setPrompts(&recorder);
    ZelMessageBox box(Title, QStringLiteral("text"), 1);
    box.resize(box.width() + 10, 200);
    EXPECT_EQ(box.exec(), 7);
    EXPECT_EQ(recorder.text, QStringLiteral("text"));
    EXPECT_EQ(recorder.size, QSize(ZelMessageBox::sizeAsConstructed().width() + 10, 200));
    EXPECT_EQ(recorder.textWidth, ZelMessageBox::textWidthAsConstructed());
    EXPECT_FALSE(recorder.visible);
}
