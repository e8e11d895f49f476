#include "desk/window/DeskApplication.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

TEST(DeskApplicationTest, TellsAFaultInAWindow)
{
    QString told;
    QTimer::singleShot(0, qApp, [&told] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        told = box->text();
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        box->accept();
    });
    desk_application::tellFault("limits.csv:3: <b>"_s);
    EXPECT_EQ(told, "limits.csv:3: <b>"_s);
}
