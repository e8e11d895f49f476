#include "gateway/messages/OrderMessages.h"

#include "tests/gateway/SampleOrders.h"

#include <gtest/gtest.h>

namespace {

using namespace gateway;

const QString Legs = QStringLiteral("证券代码和委托数量");

QString printed(const Order& order)
{
    const Outcome<Message> built = newOrder(sample::profile(), order, sample::now());
    return built.ok() ? sample::print(built.value) : built.error;
}

QVariantMap legOf(const Order& order, int index)
{
    return order.parameters.value(Legs).toList().at(index).toMap();
}

void setInLeg(Order& order, int index, const QString& name, const QVariant& value)
{
    QVariantList legs = order.parameters.value(Legs).toList();
    QVariantMap leg = legs.at(index).toMap();
    leg.insert(name, value);
    legs[index] = leg;
    order.parameters.insert(Legs, legs);
}

TEST(OrderMessages, NameAnInstanceByItsDraftAndRow)
{
    EXPECT_EQ(clOrdIdOf(sample::single()), QStringLiteral("NW66TGW5HBELBA4MNSSDJLTPKQ-7"));
    EXPECT_EQ(orderIdIn(QStringLiteral("X-7-C12")), QStringLiteral("X-7"));
    EXPECT_EQ(orderIdIn(QStringLiteral("X-7")), QStringLiteral("X-7"));
    EXPECT_EQ(clOrdIdOf(QUuid::createUuid(), 1000).size(), 31);
}

TEST(OrderMessages, OneLegIsANewOrderSingle)
{
    EXPECT_EQ(
        printed(sample::single()),
        QStringLiteral("35=D|11=NW66TGW5HBELBA4MNSSDJLTPKQ-7|1=80010001|21=1|55=600000|207=XSHG|54=1|38=1000|"
                       "40=2|44=11.520|59=0|60=20261123-01:30:00.000|847=1001|168=20261123-01:35:00|"
                       "957={958=MaxPctVolume|959=11|960=0.15}{958=Style|959=14|960=1}"
                       "{958=EntrustProperty|959=14|960=0}"));
}

TEST(OrderMessages, TwoLegsAreANewOrderMultileg)
{
    EXPECT_EQ(
        printed(sample::pair()),
        QStringLiteral("35=AB|11=NW66TGW5HBELBA4MNSSDJLTPKQ-8|1=80010001|21=1|55=600000|207=XSHG|54=B|40=2|"
                       "60=20261123-01:30:00.000|59=4|847=1002|168=20261123-01:35:00|"
                       "555={600=600000|616=XSHG|624=1|687=2000|566=11.40|654=1|20058=6}"
                       "{600=000001|616=XSHE|624=2|687=1000|654=2|20058=0}"));
}

TEST(OrderMessages, WhereLegsAgreeAParameterGoesOutOnce)
{
    Order order = sample::pair();
    setInLeg(order, 0, QStringLiteral("委托属性"), QStringLiteral("0"));
    EXPECT_TRUE(printed(order).endsWith(QStringLiteral("957={958=EntrustProperty|959=14|960=0}")))
        << printed(order).toStdString();
    EXPECT_FALSE(printed(order).contains(QStringLiteral("20058")));
}

TEST(OrderMessages, PositionEffectsGoIntoTheLegs)
{
    Order order = sample::pair();
    setInLeg(order, 0, QStringLiteral("交易方向"), QStringLiteral("BuyOpen"));
    EXPECT_TRUE(printed(order).contains(QStringLiteral("624=1|687=2000|566=11.40|654=1|564=O")));
    Order single = sample::single();
    single.parameters.insert(QStringLiteral("交易方向"), QStringLiteral("BuyOpen"));
    EXPECT_TRUE(printed(single).contains(QStringLiteral("|54=1|77=O|38=1000|")));
}

TEST(OrderMessages, AMarketOrderHasNoPriceAndAnAmountNoQuantity)
{
    Order order = sample::single();
    order.parameters.insert(QStringLiteral("委托限价"), QStringLiteral("0"));
    EXPECT_TRUE(printed(order).contains(QStringLiteral("|38=1000|40=1|59=0|")));
    setInLeg(order, 0, QStringLiteral("委托数量"), QString());
    setInLeg(order, 0, QStringLiteral("委托金额"), QStringLiteral("180000.50"));
    EXPECT_TRUE(printed(order).contains(QStringLiteral("|152=180000.50|40=1|")));
    EXPECT_FALSE(printed(order).contains(QStringLiteral("|38=")));
}

TEST(OrderMessages, RefuseWhatTheProfileDoesNotKnowByName)
{
    Order order = sample::single();
    order.strategy = QStringLiteral("POV");
    EXPECT_EQ(printed(order), QStringLiteral("网关配置中没有算法“POV”"));
    order = sample::single();
    order.parameters.insert(QStringLiteral("最差滑点"), QStringLiteral("5"));
    EXPECT_EQ(printed(order), QStringLiteral("网关配置中参数“最差滑点”既未映射也未忽略"));
    order.parameters.insert(QStringLiteral("最差滑点"), QString());
    EXPECT_TRUE(printed(order).startsWith(QStringLiteral("35=D")));
    setInLeg(order, 0, QStringLiteral("备用"), QStringLiteral("5"));
    EXPECT_EQ(printed(order), QStringLiteral("网关配置中参数“备用”既未映射也未忽略"));
    order = sample::single();
    setInLeg(order, 0, QStringLiteral("市场"), QStringLiteral("BJ"));
    EXPECT_EQ(printed(order), QStringLiteral("网关配置中没有市场“BJ”"));
    order = sample::single();
    order.parameters.insert(QStringLiteral("交易方向"), QStringLiteral("SellClose"));
    EXPECT_EQ(printed(order), QStringLiteral("网关配置中没有交易方向“SellClose”"));
}

TEST(OrderMessages, RefuseWhatIsNoOrder)
{
    Order order = sample::single();
    setInLeg(order, 0, QStringLiteral("委托数量"), QString());
    EXPECT_EQ(printed(order), QStringLiteral("缺少“委托数量”"));
    setInLeg(order, 0, QStringLiteral("委托数量"), QStringLiteral("-5"));
    EXPECT_EQ(printed(order), QStringLiteral("参数“委托数量”的值“-5”不是大于零的数字"));
    order.parameters.insert(Legs, QVariantList());
    EXPECT_EQ(printed(order), QStringLiteral("实例有 0 个标的，网关只能发送一个或两个"));
    Order pair = sample::pair();
    setInLeg(pair, 1, QStringLiteral("风格"), QStringLiteral("a"));
    EXPECT_EQ(printed(pair), QStringLiteral("网关配置中参数“风格”既未映射也未忽略"));
    EXPECT_EQ(legOf(pair, 1).value(QStringLiteral("风格")).toString(), QStringLiteral("a"));
}

TEST(OrderMessages, ARepeatedOneSaysSoInItsHeader)
{
    const Message order = newOrder(sample::profile(), sample::single(), sample::now()).value;
    EXPECT_TRUE(sample::print(repeated(order)).startsWith(QStringLiteral("35=D|97=Y|11=NW66")));
}

TEST(OrderMessages, ACancelAndAQuestionNameTheirOrder)
{
    const Message order = newOrder(sample::profile(), sample::single(), sample::now()).value;
    EXPECT_EQ(
        sample::print(
            cancelRequest(order, clOrdIdOf(sample::single()) + QStringLiteral("-C2"), sample::now())),
        QStringLiteral("35=F|11=NW66TGW5HBELBA4MNSSDJLTPKQ-7-C2|41=NW66TGW5HBELBA4MNSSDJLTPKQ-7|1=80010001|"
                       "55=600000|207=XSHG|54=1|38=1000|60=20261123-01:30:00.000"));
    EXPECT_EQ(sample::print(statusRequest(order, QStringLiteral("S1"))),
              QStringLiteral("35=H|11=NW66TGW5HBELBA4MNSSDJLTPKQ-7|790=S1|55=600000|54=1"));
}

TEST(OrderMessages, OneRefusedOfAPairRefusesAll)
{
    Order good = sample::pair();
    good.parameters.insert(QStringLiteral("配对编号"), QStringLiteral("P1"));
    Order bad = good;
    bad.row = 9;
    setInLeg(bad, 0, QStringLiteral("市场"), QStringLiteral("BJ"));
    Order other = sample::pair();
    other.row = 10;
    const QHash<int, QString> refusals = refusalsOf(sample::profile(), {good, bad, other}, sample::now());
    EXPECT_EQ(refusals.size(), 2);
    EXPECT_EQ(refusals.value(9), QStringLiteral("网关配置中没有市场“BJ”"));
    EXPECT_EQ(refusals.value(8), QStringLiteral("配对编号“P1”中有实例不能发送：网关配置中没有市场“BJ”"));
}

} // namespace
