#include "desk/window/InstancesPage.h"

#include "desk/window/FilteredTable.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/skin/SkinService.h"
#include "host/AlgoConstants.h"

#include <QColor>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// The newest ones.
constexpr int MostInstances = 1000;

enum Column { Id, State, Account, Strategy, Symbol, Name, Direction, Quantity, Limit, Amount, Changed };

const QStringList& titles()
{
    static const QStringList texts = {
        QStringLiteral("实例"),     QStringLiteral("状态"), QStringLiteral("账户"),    QStringLiteral("算法"),
        QStringLiteral("证券代码"), QStringLiteral("名称"), QStringLiteral("方向"),    QStringLiteral("数量"),
        QStringLiteral("限价"),     QStringLiteral("金额"), QStringLiteral("变更时间")};
    return texts;
}

QString shownDirection(const QString& sent)
{
    namespace Futures = Algo_Values::FutureSide;
    static const QMap<QString, QString> shown = {
        {Algo_Values::AlgoOrderSide::BuyValue, QStringLiteral("买入")},
        {Algo_Values::AlgoOrderSide::SellValue, QStringLiteral("卖出")},
        {Futures::BuyOpen, Futures::BuyOpenChi},
        {Futures::SellOpen, Futures::SellOpenChi},
        {Futures::BuyClose, Futures::BuyCloseChi},
        {Futures::SellClose, Futures::SellCloseChi}};
    return shown.value(sent, sent);
}

// Zero stands for none.
QString numberText(const ledger::Decimal& number)
{
    return number == 0 ? QString() : number.text();
}

QString moneyText(const ledger::Decimal& amount)
{
    return amount == 0 ? QString() : amount.shown(2);
}

bool isOver(const QString& shownState)
{
    using ledger::InstanceState;
    const QList<InstanceState>& states = ledger::allInstanceStates();
    return std::any_of(states.begin(), states.end(), [&](InstanceState state) {
        return ledger::isOver(state) && ledger::shownName(state) == shownState;
    });
}

template <typename TextOf> QString ofLegs(const QList<ledger::Leg>& legs, TextOf textOf)
{
    QStringList texts;
    for (const ledger::Leg& leg : legs) {
        texts.append(textOf(leg));
    }
    return texts.join(QStringLiteral(" / "));
}

} // namespace

InstancesPage::InstancesPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts,
                             QWidget* parent)
    : QWidget(parent), mHost(host), mBooks(books), mModel(new TextTable(titles(), this)),
      mTable(new FilteredTable(mModel, {QStringLiteral("算法实例"), QString()}, prompts, this)),
      mAllBatches(mTable->addButton(QStringLiteral("显示全部批次"), QStringLiteral("button_allBatches")))
{
    mModel->setNumeric({Quantity, Limit, Amount});
    mModel->setTint([this](int row, int column) { return tintOf(row, column); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(mTable);
    connect(mAllBatches, &QPushButton::clicked, this, [this] { showBatch(std::nullopt); });
    connect(mTable, &FilteredTable::said, this, &InstancesPage::said);
    reload();
}

void InstancesPage::showBatch(std::optional<qint64> batch)
{
    mBatch = batch;
    reload();
}

void InstancesPage::reload()
{
    mAllBatches->setVisible(mBatch.has_value());
    Outcome<QList<ledger::Instance>> instances{{}, mBooks.ledgerError};
    if (mBooks.ledger) {
        instances = mBatch ? mBooks.ledger->instancesOf(*mBatch)
                           : mBooks.ledger->instancesBefore(std::nullopt, MostInstances);
        if (!mBatch) {
            std::reverse(instances.value.begin(), instances.value.end());
        }
    }
    QList<QStringList> rows;
    for (const ledger::Instance& instance : qAsConst(instances.value)) {
        rows.append(rowOf(instance));
    }
    mError = instances.error;
    mTable->setEmptyText(mError.isEmpty() ? QStringLiteral("还没有实例") : mError);
    mModel->setRows(rows);
    mTable->fitColumnsOnce();
    if (!mError.isEmpty()) {
        emit said(mError);
    }
}

QStringList InstancesPage::rowOf(const ledger::Instance& instance) const
{
    const QList<ledger::Leg>& legs = instance.legs;
    const auto nameOf = [this](const ledger::Leg& leg) {
        const Security* security = mHost.referenceData().security(leg.symbol);
        return security ? security->name : QString();
    };
    return {instance.id.text(),
            ledger::shownName(instance.state),
            instance.account,
            instance.strategy,
            ofLegs(legs, [](const ledger::Leg& leg) { return leg.symbol; }),
            ofLegs(legs, nameOf),
            ofLegs(legs, [](const ledger::Leg& leg) { return shownDirection(leg.direction); }),
            ofLegs(legs, [](const ledger::Leg& leg) { return numberText(leg.quantity); }),
            ofLegs(legs, [](const ledger::Leg& leg) { return numberText(leg.limitPrice); }),
            ofLegs(legs, [](const ledger::Leg& leg) { return moneyText(leg.amount); }),
            instance.changedAt.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))};
}

QColor InstancesPage::tintOf(int row, int column) const
{
    const SkinColours& colours = mHost.skins().colours();
    const QStringList& cells = mModel->rows().at(row);
    if (column == State) {
        return isOver(cells.at(State)) ? colours.colour(QStringLiteral("muted")) : QColor();
    }
    if (column != Direction) {
        return {};
    }
    const bool buys = cells.at(Direction).contains(QStringLiteral("买"));
    const bool sells = cells.at(Direction).contains(QStringLiteral("卖"));
    if (buys == sells) {
        return {}; // neither, or one leg of each
    }
    return colours.colour(buys ? QStringLiteral("buy") : QStringLiteral("sell"));
}
