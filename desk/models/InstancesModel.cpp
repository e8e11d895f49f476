#include "desk/models/InstancesModel.h"

#include "desk/models/Money.h"
#include "host/AlgoConstants.h"
#include "words/Words.h"

#include <QMap>

#include <algorithm>
#include <optional>

namespace {

QString shownDirection(const QString& sent)
{
    namespace Futures = Algo_Values::FutureSide;
    static const QMap<QString, const char*> shown = {
        {Algo_Values::AlgoOrderSide::BuyValue, QT_TRANSLATE_NOOP("Words", "买入")},
        {Algo_Values::AlgoOrderSide::SellValue, QT_TRANSLATE_NOOP("Words", "卖出")},
        {Futures::BuyOpen, QT_TRANSLATE_NOOP("Words", "买入开仓")},
        {Futures::SellOpen, QT_TRANSLATE_NOOP("Words", "卖出开仓")},
        {Futures::BuyClose, QT_TRANSLATE_NOOP("Words", "买入平仓")},
        {Futures::SellClose, QT_TRANSLATE_NOOP("Words", "卖出平仓")}};
    const char* words = shown.value(sent);
    return words == nullptr ? sent : Words::tr(words);
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
    if (state == ledger::InstanceState::Rejected || state == ledger::InstanceState::Unknown) {
        return QStringLiteral("warning");
    }
    return ledger::isOver(state) ? QStringLiteral("muted") : QString();
}

/// What was traded: of the order, or of each of its two legs.
QList<ledger::Decimal> ofTrades(const ledger::Instance& instance, ledger::Decimal ledger::Instance::*whole,
                                ledger::Decimal ledger::Leg::*ofLeg)
{
    if (instance.legs.size() < 2) {
        return {instance.*whole};
    }
    QList<ledger::Decimal> numbers;
    for (const ledger::Leg& leg : instance.legs) {
        numbers.append(leg.*ofLeg);
    }
    return numbers;
}

QString numberTexts(const QList<ledger::Decimal>& numbers)
{
    QStringList texts;
    for (const ledger::Decimal& number : numbers) {
        texts.append(numberText(number));
    }
    return texts.join(QString()).isEmpty() ? QString() : texts.join(QStringLiteral(" / "));
}

QList<ledger::Decimal> filledOf(const ledger::Instance& instance)
{
    return ofTrades(instance, &ledger::Instance::filledQuantity, &ledger::Leg::filledQuantity);
}

QList<ledger::Decimal> averageOf(const ledger::Instance& instance)
{
    return ofTrades(instance, &ledger::Instance::averagePrice, &ledger::Leg::averagePrice);
}

/// "300 / 1000", of each leg; nothing before it went out.
QString filledText(const ledger::Instance& instance)
{
    const QList<ledger::Decimal> filled = filledOf(instance);
    QStringList texts;
    for (int i = 0; i < instance.legs.size() && !instance.clOrdId.isEmpty(); ++i) {
        const ledger::Decimal& quantity = instance.legs.at(i).quantity;
        texts.append(filled.at(i).text() +
                     (quantity == 0 ? QString() : QStringLiteral(" / ") + quantity.text()));
    }
    return texts.join(Words::tr("；"));
}

/// By quantities; an order of an amount by what was paid. Nothing before it went out.
std::optional<double> progressOf(const ledger::Instance& instance)
{
    const QList<ledger::Decimal> filled = filledOf(instance);
    const QList<ledger::Decimal> average = averageOf(instance);
    double done = 0;
    double ordered = 0;
    for (int i = 0; i < instance.legs.size(); ++i) {
        const ledger::Leg& leg = instance.legs.at(i);
        const bool isAmount = leg.quantity == 0;
        done += (isAmount ? filled.at(i) * average.at(i) : filled.at(i)).toDouble();
        ordered += (isAmount ? leg.amount : leg.quantity).toDouble();
    }
    const bool wentOut = !instance.clOrdId.isEmpty();
    return wentOut && ordered > 0 ? std::make_optional(std::min(done / ordered, 1.0)) : std::nullopt;
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

QList<ListModel::Column> instanceColumns()
{
    return {{Words::tr("实例")},       {Words::tr("状态")},       {Words::tr("账户")},
            {Words::tr("算法")},       {Words::tr("证券代码")},   {Words::tr("名称")},
            {Words::tr("方向")},       {Words::tr("数量"), true}, {Words::tr("成交"), true},
            {Words::tr("均价"), true}, {Words::tr("限价"), true}, {Words::tr("金额"), true},
            {Words::tr("原因")},       {Words::tr("变更时间")}};
}

} // namespace

InstancesModel::InstancesModel(const NameOf& nameOf, const DecimalsOf& decimalsOf, QObject* parent)
    : PagedModel(instanceColumns(), parent), mNameOf(nameOf), mDecimalsOf(decimalsOf)
{
}

/// Zero stands for none.
QString InstancesModel::priceText(const ledger::Decimal& price, const ledger::Leg& leg) const
{
    return price == 0 ? QString() : money::price(price, mDecimalsOf(leg.symbol));
}

/// Of the order, or of each of its two legs.
QString InstancesModel::averageText(const ledger::Instance& instance) const
{
    const QList<ledger::Decimal> averages = averageOf(instance);
    QStringList texts;
    for (int i = 0; i < averages.size(); ++i) {
        texts.append(priceText(averages.at(i), instance.legs.value(i)));
    }
    return texts.join(QString()).isEmpty() ? QString() : texts.join(QStringLiteral(" / "));
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
    case Filled:
        return {filledText(instance), numberTexts(filledOf(instance))};
    case Average:
        return {averageText(instance)};
    case Limit:
        return {ofLegs(legs, [this](const ledger::Leg& leg) { return priceText(leg.limitPrice, leg); })};
    case Amount:
        return {ofLegs(legs, [](const ledger::Leg& leg) { return moneyText(leg.amount); }),
                ofLegs(legs, [](const ledger::Leg& leg) { return plainMoneyText(leg.amount); })};
    case Reason:
        return {instance.reason, {}, tintOf(instance.state)};
    case Changed:
        return {instance.changedAt.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))};
    }
    return {};
}

bool InstancesModel::isSame(const ledger::Instance& one, const ledger::Instance& other) const
{
    return one.id == other.id;
}

QVariant InstancesModel::roleOf(const ledger::Instance& instance, int role) const
{
    switch (role) {
    case BatchRole:
        return instance.id.batch;
    case StateRole:
        return int(instance.state);
    case ProgressRole: {
        const std::optional<double> progress = progressOf(instance);
        return progress ? QVariant(*progress) : QVariant();
    }
    default:
        return {};
    }
}
