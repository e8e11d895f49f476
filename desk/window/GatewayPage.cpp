#include "desk/window/GatewayPage.h"

#include "desk/models/WireModel.h"
#include "desk/window/FilteredTable.h"
#include "embedded_host/EmbeddedHost.h"
#include "words/Words.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int MostLots = 200;       // of messages that are read at once
constexpr int MostMessages = 20000; // that are shown
constexpr int MostStrays = 200;
constexpr int MessageType = 35;
constexpr int Text = 58;
constexpr int LogShare = 3; // of the height, against what stands below

const QString Logon = QStringLiteral("A");
const QString Logout = QStringLiteral("5");
const QString LoggedOn = QStringLiteral("loggedOn");
const QString Clock = QStringLiteral("HH:mm:ss");

QString shownState(const QString& state)
{
    static const QMap<QString, const char*> shown = {
        {QStringLiteral("connected"), QT_TRANSLATE_NOOP("Words", "正在登录")},
        {LoggedOn, QT_TRANSLATE_NOOP("Words", "已登录")},
        {QStringLiteral("loggedOut"), QT_TRANSLATE_NOOP("Words", "已登出")},
        {QStringLiteral("disconnected"), QT_TRANSLATE_NOOP("Words", "已断开")}};
    const char* words = shown.value(state);
    return words == nullptr ? state : Words::tr(words);
}

QString shownAccounts(const QStringList& accounts)
{
    return accounts.contains(QStringLiteral("*")) ? Words::tr("全部账户")
                                                  : Words::tr("账户 %1").arg(accounts.join(QLatin1Char(' ')));
}

FilteredTable* tableOf(ListModel* model, const FilteredTable::Name& words, UserPrompts& prompts,
                       EmbeddedHost& host)
{
    auto* table = new FilteredTable(model, words, prompts);
    table->setColoursOf(host);
    table->view()->horizontalHeader()->setStretchLastSection(true);
    return table;
}

} // namespace

GatewayPage::GatewayPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mBooks(books), mLogModel(new WireModel(this)), mFieldsModel(new WireFieldsModel(this)),
      mStraysModel(new StraysModel(this)), mSessions(new QLabel(this)),
      mLog(tableOf(mLogModel, {Words::tr("报文"), Words::tr("还没有报文")}, prompts, host)),
      mFields(
          tableOf(mFieldsModel, {Words::tr("报文字段"), Words::tr("选择一条报文查看字段")}, prompts, host)),
      mStrays(
          tableOf(mStraysModel, {Words::tr("未计入的回报"), Words::tr("没有未计入的回报")}, prompts, host))
{
    mSessions->setObjectName(QStringLiteral("label_sessions"));
    mSessions->setTextFormat(Qt::PlainText);
    mSessions->setTextInteractionFlags(Qt::TextSelectableByMouse);
    makeLayout();
    connect(mLog, &FilteredTable::currentRowChanged, this, &GatewayPage::showFields);
    for (const FilteredTable* table : {mLog, mFields, mStrays}) {
        connect(table, &FilteredTable::said, this, &GatewayPage::said);
    }
}

void GatewayPage::makeLayout()
{
    auto* below = new QSplitter(Qt::Horizontal);
    below->addWidget(mFields);
    below->addWidget(mStrays);
    auto* split = new QSplitter(Qt::Vertical);
    split->addWidget(mLog);
    split->addWidget(below);
    split->setStretchFactor(0, LogShare);
    split->setStretchFactor(1, 2);
    auto* column = new QVBoxLayout(this);
    column->addWidget(mSessions);
    column->addWidget(split, 1);
}

QString GatewayPage::sessions() const
{
    return mSessions->text();
}

void GatewayPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
}

void GatewayPage::refresh()
{
    if (!mBooks.ledger) {
        mSessions->setText(mBooks.ledgerError);
        return;
    }
    readMessages();
    showSessions();
    const Outcome<QList<ledger::StrayReport>> strays = mBooks.ledger->strays(MostStrays);
    if (strays.ok()) {
        mStraysModel->updateRecords(strays.value);
        mStrays->fitColumnsOnce();
    }
}

/// The newest stands at the foot, and stays in sight where it was.
void GatewayPage::readMessages()
{
    const QList<ledger::WireMessage>& known = mLogModel->records();
    const Outcome<QList<ledger::WireMessage>> news =
        mBooks.ledger->wireMessages(known.isEmpty() ? 0 : known.last().entry, MostLots);
    if (!news.ok()) {
        emit said(news.error);
        return;
    }
    const QScrollBar* bar = mLog->view()->verticalScrollBar();
    const bool followsTheEnd = bar->value() == bar->maximum();
    if (known.size() + news.value.size() > MostMessages) {
        mLogModel->setRecords((known + news.value).mid(MostMessages / 2));
    } else {
        mLogModel->appendRecords(news.value);
    }
    mLog->fitColumnsOnce();
    if (followsTheEnd && !news.value.isEmpty()) {
        mLog->view()->scrollToBottom();
    }
}

void GatewayPage::showSessions()
{
    const Outcome<ledger::Status> status = mBooks.ledger->status();
    QStringList lines;
    for (const ledger::Gateway& gateway : status.value.gateways) {
        lines.append(lineOf(gateway));
    }
    if (lines.isEmpty()) {
        lines.append(status.ok() ? Words::tr("没有登记的网关：已启动的实例不会发往对手方") : status.error);
    }
    mSessions->setText(lines.join(QLatin1Char('\n')));
}

QString GatewayPage::lineOf(const ledger::Gateway& gateway) const
{
    const QString why = gateway.isGone              ? Words::tr("此前%1").arg(shownState(gateway.state))
                        : gateway.state == LoggedOn ? QString()
                                                    : whyLoggedOut(gateway.session);
    const QString state = gateway.isGone ? Words::tr("网关已不在") : shownState(gateway.state);
    return Words::tr("%1　%2　%3%4，自 %5　%6")
        .arg(gateway.session, shownAccounts(gateway.accounts), state,
             why.isEmpty() ? why : Words::tr("（%1）").arg(why),
             gateway.since.toLocalTime().toString(QStringLiteral("MM-dd HH:mm:ss")),
             lastMessageOf(gateway.session));
}

/// What the last logout said, such as that sequence numbers do not fit: a person must know.
QString GatewayPage::whyLoggedOut(const QString& session) const
{
    const QList<ledger::WireMessage>& messages = mLogModel->records();
    for (auto message = messages.crbegin(); message != messages.crend(); ++message) {
        const QList<wire_text::Field> fields = wire_text::fieldsOf(message->text);
        const QString type = wire_text::valueOf(fields, MessageType);
        const bool isOurs = message->session == session;
        if (isOurs && type == Logout) {
            return wire_text::valueOf(fields, Text);
        }
        if (isOurs && type == Logon && !message->isOutgoing) {
            break;
        }
    }
    return {};
}

QString GatewayPage::lastMessageOf(const QString& session) const
{
    const QList<ledger::WireMessage>& messages = mLogModel->records();
    const auto last = std::find_if(messages.crbegin(), messages.crend(),
                                   [&](const ledger::WireMessage& one) { return one.session == session; });
    if (last == messages.crend()) {
        return {};
    }
    const QString type = wire_text::valueOf(wire_text::fieldsOf(last->text), MessageType);
    return Words::tr("最近消息 %1 %2 %3")
        .arg(last->at.toLocalTime().toString(Clock), last->isOutgoing ? Words::tr("发出") : Words::tr("收到"),
             wire_text::messageName(type));
}

void GatewayPage::showFields()
{
    const int row = mLog->currentRow();
    const bool isThere = row >= 0 && row < mLogModel->records().size();
    mFieldsModel->setRecords(isThere ? wire_text::fieldsOf(mLogModel->records().at(row).text)
                                     : QList<wire_text::Field>());
    mFields->fitColumnsOnce();
}
