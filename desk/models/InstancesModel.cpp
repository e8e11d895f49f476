#include "desk/models/InstancesModel.h"

#include "desk/models/Money.h"
#include "host/AlgoConstants.h"

#include <QMap>

namespace {

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
    return amount == 0 ? QString() : money::shown(amount);
}

QString plainMoneyText(const ledger::Decimal& amount)
{
    return amount == 0 ? QString() : money::plain(amount);
}

template <typename TextOf> QString ofLegs(const QList<ledger::Leg>& legs, TextOf textOf)
{
    QStringList texts;
    for (const ledger::Leg& leg : legs) {
        texts.append(textOf(leg));
    }
    return texts.join(QStringLiteral(" / "));
}

QString tintOf(ledger::InstanceState state)
{
    const bool isOver = ledger::isOver(state);
    return isOver ? QStringLiteral("muted") : QString();
}

/// That of one side; a pair that buys and sells has that of neither.
QString tintOf(const QList<ledger::Leg>& legs)
{
    bool buys = false;
    bool sells = false;
    for (const ledger::Leg& leg : legs) {
        buys = buys || leg.buys();
        sells = sells || leg.sells();
    }
    if (buys == sells) {
        return {};
    }
    return buys ? QStringLiteral("buy") : QStringLiteral("sell");
}

const QList<ListModel::Column>& columns()
{
    static const QList<ListModel::Column> all = {
        {QStringLiteral("实例")},       {QStringLiteral("状态")},       {QStringLiteral("账户")},
        {QStringLiteral("算法")},       {QStringLiteral("证券代码")},   {QStringLiteral("名称")},
        {QStringLiteral("方向")},       {QStringLiteral("数量"), true}, {QStringLiteral("限价"), true},
        {QStringLiteral("金额"), true}, {QStringLiteral("变更时间")}};
    return all;
}

} // namespace

InstancesModel::InstancesModel(const NameOf& nameOf, QObject* parent)
    : PagedModel(columns(), parent), mNameOf(nameOf)
{
}

ListModel::Cell InstancesModel::cellOf(const ledger::Instance& instance, int column) const
{
    const QList<ledger::Leg>& legs = instance.legs;
    switch (Column(column)) {
    case Id:
        return {instance.id.text()};
    case State:
        return {ledger::shownName(instance.state), {}, tintOf(instance.state)};
    case Account:
        return {instance.account};
    case Strategy:
        return {instance.strategy};
    case Symbol:
        return {ofLegs(legs, [](const ledger::Leg& leg) { return leg.symbol; })};
    case Name:
        return {ofLegs(legs, [this](const ledger::Leg& leg) { return mNameOf(leg.symbol); })};
    case Direction:
        return {ofLegs(legs, [](const ledger::Leg& leg) { return shownDirection(leg.direction); }),
                {},
                tintOf(legs)};
    case Quantity:
        return {ofLegs(legs, [](const ledger::Leg& leg) { return numberText(leg.quantity); })};
    case Limit:
        return {ofLegs(legs, [](const ledger::Leg& leg) { return numberText(leg.limitPrice); })};
    case Amount:
        return {ofLegs(legs, [](const ledger::Leg& leg) { return moneyText(leg.amount); }),
                ofLegs(legs, [](const ledger::Leg& leg) { return plainMoneyText(leg.amount); })};
    case Changed:
        return {instance.changedAt.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))};
    }
    return {};
}

QVariant InstancesModel::roleOf(const ledger::Instance& instance, int role) const
{
    switch (role) {
    case BatchRole:
        return instance.id.batch;
    case StateRole:
        return int(instance.state);
    default:
        return {};
    }
}
