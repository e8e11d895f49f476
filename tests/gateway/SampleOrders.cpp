#include "tests/gateway/SampleOrders.h"

#include <gtest/gtest.h>

#include <QVariant>

namespace sample {

namespace {

const char Json[] = R"({
  "accounts": ["80010001"],
  "exchanges": {"SH": "XSHG", "SZ": "XSHE", "CFE": "CCFX"},
  "sides": {"Buy": {"54": "1"}, "Sell": {"54": "2"}, "BuyOpen": {"54": "1", "77": "O"},
            "SellOpen": {"54": "2", "77": "O"}},
  "strategies": {
    "AITWAP": {
      "fields": {"847": "1001"},
      "parameters": [
        {"paramId": "开始时间", "tag": 168, "type": "UTCTimestamp"},
        {"paramId": "结束时间", "tag": 126, "type": "UTCTimestamp"},
        {"paramId": "最大市场占比", "name": "MaxPctVolume", "type": "Percentage"},
        {"paramId": "风格参数", "name": "Style", "type": "String", "values": {"neutral": "1"}},
        {"paramId": "委托属性", "name": "EntrustProperty", "type": "String"}
      ],
      "ignore": ["实例备注"]
    },
    "AILOCK": {
      "fields": {"847": "1002", "59": "4"},
      "parameters": [
        {"paramId": "开始时间", "tag": 168, "type": "UTCTimestamp"},
        {"paramId": "委托属性", "name": "EntrustProperty", "type": "String", "legTag": 20058}
      ],
      "ignore": ["配对编号"]
    }
  }
})";

QMap<QString, QVariant> legOf(const QString& symbol, const QString& market, const QString& quantity)
{
    return {{QStringLiteral("证券代码"), symbol},
            {QStringLiteral("市场"), market},
            {QStringLiteral("委托数量"), quantity},
            {QStringLiteral("证券账号"), QStringLiteral("A1")}};
}

QString print(const gateway::Fields& fields)
{
    QStringList texts;
    for (const gateway::Field& field : fields) {
        texts.append(QStringLiteral("%1=%2").arg(field.tag).arg(QString::fromStdString(field.value)));
    }
    return texts.join(QLatin1Char('|'));
}

} // namespace

const char* profileJson()
{
    return Json;
}

gateway::Profile profile()
{
    const Outcome<gateway::Profile> read = gateway::readProfile(Json);
    EXPECT_EQ(read.error, QString());
    return read.value;
}

QDateTime now()
{
    return QDateTime(QDate(2026, 11, 23), QTime(1, 30), Qt::UTC);
}

gateway::Order single()
{
    gateway::Order order;
    order.draftId = QUuid(QStringLiteral("6dbde99a-dd38-48b0-838c-6ca434ae6f54"));
    order.row = 7;
    order.strategy = QStringLiteral("AITWAP");
    order.parameters = {
        {QStringLiteral("sysnodeid"), QStringLiteral("node-sh-01")},
        {QStringLiteral("BatchCreate"), QString()},
        {QStringLiteral("创建后是否立即启动"), QStringLiteral("7")},
        {QStringLiteral("交易账号"), QStringLiteral("80010001")},
        {QStringLiteral("交易方向"), QStringLiteral("Buy")},
        {QStringLiteral("委托限价"), QStringLiteral("11.520")},
        {QStringLiteral("开始时间"), QStringLiteral("2026-11-23 09:35:00")},
        {QStringLiteral("最大市场占比"), QStringLiteral("15")},
        {QStringLiteral("风格参数"), QStringLiteral("neutral")},
        {QStringLiteral("实例备注"), QStringLiteral("建仓")},
        {QStringLiteral("委托属性"), QStringLiteral("0")},
        {QStringLiteral("证券代码和委托数量"),
         QVariantList{legOf(QStringLiteral("600000.SH"), QStringLiteral("SH"), QStringLiteral("1000"))}}};
    return order;
}

gateway::Order pair()
{
    gateway::Order order = single();
    order.row = 8;
    order.strategy = QStringLiteral("AILOCK");
    QMap<QString, QVariant> first =
        legOf(QStringLiteral("600000.SH"), QStringLiteral("SH"), QStringLiteral("2000"));
    first.insert(QStringLiteral("交易方向"), QStringLiteral("Buy"));
    first.insert(QStringLiteral("委托限价"), QStringLiteral("11.40"));
    first.insert(QStringLiteral("委托属性"), QStringLiteral("6"));
    QMap<QString, QVariant> second =
        legOf(QStringLiteral("000001.SZ"), QStringLiteral("SZ"), QStringLiteral("1000"));
    second.insert(QStringLiteral("交易方向"), QStringLiteral("Sell"));
    second.insert(QStringLiteral("委托属性"), QStringLiteral("0"));
    order.parameters = {{QStringLiteral("交易账号"), QStringLiteral("80010001")},
                        {QStringLiteral("开始时间"), QStringLiteral("2026-11-23 09:35:00")},
                        {QStringLiteral("证券代码和委托数量"), QVariantList{first, second}}};
    return order;
}

QString print(const gateway::Message& message)
{
    QStringList texts = {QStringLiteral("35=") + QString::fromStdString(message.type)};
    for (const gateway::Fields& fields : {message.header, message.body}) {
        if (!fields.empty()) {
            texts.append(print(fields));
        }
    }
    for (const gateway::Group& group : message.groups) {
        QString text = QStringLiteral("%1=").arg(group.countTag);
        for (const gateway::Fields& entry : group.entries) {
            text += QLatin1Char('{') + print(entry) + QLatin1Char('}');
        }
        texts.append(text);
    }
    return texts.join(QLatin1Char('|'));
}

} // namespace sample
