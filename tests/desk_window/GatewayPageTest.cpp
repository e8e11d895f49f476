#include "desk/window/GatewayPage.h"

#include "desk/window/BatchesPage.h"
#include "desk/window/InstancesPage.h"
#include "ledger/Outbox.h"
#include "tests/desk_window/DeskWindowFixture.h"
#include "tests/support/Eventually.h"

#include <QMessageBox>
#include <QTableView>

/// What a gateway leaves in the ledger, as the window shows it.
class GatewayPageTest : public DeskWindowFixture {
protected:
    void claim()
    {
        ledger::Gateway gateway;
        gateway.session = "FIX.4.4:DESK->BROKER"_s;
        gateway.accounts = QStringList{"*"_s};
        auto claimed = ledger::Outbox::claim(books.ledger, gateway);
        ASSERT_EQ(claimed.error, QString());
        outbox = std::move(claimed.value);
        ASSERT_EQ(outbox->session("loggedOn"_s, QString()).error, QString());
    }

    static ledger::WireMessage message(const QString& text, bool isOutgoing)
    {
        ledger::WireMessage made;
        made.at = QDateTime(QDate(2026, 11, 22), QTime(12, 0), Qt::LocalTime).toUTC();
        made.isOutgoing = isOutgoing;
        made.text = QString(text).replace(QLatin1Char('|'), QChar(1));
        return made;
    }

    void createBatch(const QList<QStringList>& rows)
    {
        window->importPage()->frame()->open();
        drop(writeFile(rows));
        pressConfirm();
    }

    ledger::Execution execution(const QString& clOrdId, const QString& execId, ledger::InstanceState state,
                                int filled)
    {
        ledger::Execution made;
        made.execId = execId;
        made.clOrdId = clOrdId;
        made.state = state;
        made.filled = ledger::Decimal(filled);
        made.average = ledger::Decimal::fromText("11.5"_s);
        return made;
    }

    FilteredTable& instances() { return *window->instancesPage()->table(); }

    std::unique_ptr<ledger::Outbox> outbox;
};

TEST_F(GatewayPageTest, SaysThatThereIsNone)
{
    open();
    window->showPage(DeskWindow::GatewayPageIndex);
    EXPECT_EQ(window->gatewayPage()->sessions(), "没有登记的网关：已启动的实例不会发往对手方"_s);
}

TEST_F(GatewayPageTest, ShowsTheSessionItsMessagesAndTheFieldsOfOne)
{
    open();
    claim();
    ASSERT_EQ(outbox
                  ->keepMessages({message("8=FIX.4.4|9=1|35=D|11=A-1|55=600000|10=0|"_s, true),
                                  message("8=FIX.4.4|9=1|35=8|11=A-1|39=0|150=0|10=0|"_s, false)})
                  .error,
              QString());
    window->showPage(DeskWindow::GatewayPageIndex);
    const QString sessions = window->gatewayPage()->sessions();
    EXPECT_TRUE(sessions.startsWith("FIX.4.4:DESK->BROKER　全部账户　已登录，自 "_s))
        << sessions.toStdString();
    EXPECT_TRUE(sessions.endsWith("最近消息 12:00:00 收到 执行回报 ExecutionReport"_s))
        << sessions.toStdString();
    FilteredTable& log = *window->gatewayPage()->table();
    EXPECT_EQ(shown(log, 2), QStringList({"→ 发出"_s, "← 收到"_s}));
    EXPECT_EQ(shown(log, 5),
              QStringList({"ClOrdID=A-1  Symbol=600000"_s, "ClOrdID=A-1  OrdStatus=0  ExecType=0"_s}));
    log.filter()->setText("NewOrder"_s);
    EXPECT_EQ(log.shownRows().size(), 1 + 1);
    log.setCurrentRow(0);
    EXPECT_EQ(
        shown(*window->gatewayPage()->fields(), 1),
        QStringList({"BeginString"_s, "BodyLength"_s, "MsgType"_s, "ClOrdID"_s, "Symbol"_s, "CheckSum"_s}));
}

TEST_F(GatewayPageTest, FollowsWhatComesWhileItIsInFront)
{
    open();
    claim();
    window->showPage(DeskWindow::GatewayPageIndex);
    EXPECT_EQ(window->gatewayPage()->table()->shownRows().size(), 1);
    ASSERT_EQ(outbox->keepMessages({message("35=0|"_s, true)}).error, QString());
    EXPECT_TRUE(eventually([this] { return window->gatewayPage()->table()->shownRows().size() == 2; }));
    ledger::Execution stray;
    stray.execId = "X-1"_s;
    stray.text = "NOT-OURS 不是本台账的订单"_s;
    ASSERT_TRUE(outbox->record({stray}).ok());
    EXPECT_TRUE(eventually([this] { return window->gatewayPage()->strays()->shownRows().size() == 2; }));
    EXPECT_EQ(shown(*window->gatewayPage()->strays(), 2), QStringList{stray.text});
}

TEST_F(GatewayPageTest, AnInstanceFillsBeforeTheTradersEyesAndANoticeTellsTheEnd)
{
    open();
    claim();
    createBatch({row("600000"_s, "300"_s), row("688001"_s, "400"_s)});
    ASSERT_TRUE(eventually([this] { return child<QLabel>("label_queued")->text() == "2 待发送"_s; }));
    window->showPage(DeskWindow::InstancesPageIndex);
    const auto orders = outbox->take(10);
    ASSERT_EQ(orders.value.size(), 2);
    const QString first = orders.value.at(0).clOrdId;
    const QString second = orders.value.at(1).clOrdId;
    ASSERT_TRUE(outbox->record({execution(first, "E1"_s, ledger::InstanceState::Running, 100)}).ok());
    EXPECT_TRUE(eventually([this] { return shown(instances(), 8).value(0) == "100"_s; }));
    EXPECT_EQ(child<QLabel>("label_queued")->text(), QString());
    EXPECT_EQ(instances().view()->model()->index(0, 8).data().toString(), "100 / 300"_s);
    EXPECT_EQ(shown(instances(), 9).value(0), "11.50"_s);
    ASSERT_TRUE(outbox
                    ->record({execution(first, "E2"_s, ledger::InstanceState::Finished, 300),
                              execution(second, "E3"_s, ledger::InstanceState::Rejected, 0)})
                    .ok());
    auto* notice = child<QLabel>("label_notice");
    EXPECT_TRUE(eventually([&] { return notice->isVisible(); }));
    EXPECT_EQ(notice->text(), "批次 1 全部结束：已完成 1，已拒绝 1"_s);
    EXPECT_EQ(shown(*window->batchesPage()->table(), 7), QStringList{"2 / 2 · 已拒绝 1"_s});
    QTest::mouseClick(child<QAbstractButton>("button_noticeClose"), Qt::LeftButton);
    EXPECT_FALSE(notice->isVisible());
}

TEST_F(GatewayPageTest, SaysWhyTheCounterpartyDidNotLogOn)
{
    open();
    claim();
    ASSERT_EQ(outbox->session("disconnected"_s, QString()).error, QString());
    ASSERT_EQ(outbox
                  ->keepMessages({message("8=FIX.4.4|35=A|"_s, true),
                                  message("8=FIX.4.4|35=5|58=MsgSeqNum too low, expecting 7|"_s, false)})
                  .error,
              QString());
    window->showPage(DeskWindow::GatewayPageIndex);
    EXPECT_TRUE(window->gatewayPage()->sessions().contains("已断开（MsgSeqNum too low, expecting 7），自 "_s))
        << window->gatewayPage()->sessions().toStdString();
}

/// Nothing in the ledger changes when a gateway is killed: the window asks whether its accounts are claimed.
TEST_F(GatewayPageTest, SaysThatTheGatewayIsGoneWithoutBeingAsked)
{
    open();
    claim();
    window->showPage(DeskWindow::GatewayPageIndex);
    const auto says = [this](const QString& text) {
        return eventually([&] { return window->gatewayPage()->sessions().contains(text); });
    };
    EXPECT_TRUE(says("　已登录，自 "_s));
    outbox.reset();
    EXPECT_TRUE(says("　网关已不在（此前已登录），自 "_s));
    claim();
    EXPECT_TRUE(says("　已登录，自 "_s));
}

TEST_F(GatewayPageTest, AboutNamesTheSessionEngine)
{
    open();
    QString text;
    whenModal([&text](QWidget& modal) {
        text = qobject_cast<QMessageBox*>(&modal)->text();
        modal.close();
    });
    window->showAbout();
    EXPECT_TRUE(text.contains(
        "This product includes software developed by quickfixengine.org (http://www.quickfixengine.org/)."_s));
}
