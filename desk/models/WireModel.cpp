#include "desk/models/WireModel.h"

namespace {

constexpr int MessageType = 35;
constexpr int ClOrdId = 11;

const QString Muted = QStringLiteral("muted");

QString shownTime(const QDateTime& at)
{
    return at.toLocalTime().toString(QStringLiteral("MM-dd HH:mm:ss.zzz"));
}

/// Heartbeats and the like are read past; rejects are looked for.
QString tintOf(const QString& type)
{
    static const QStringList quiet{QStringLiteral("0"), QStringLiteral("1")};
    static const QStringList rejects{QStringLiteral("3"), QStringLiteral("9"), QStringLiteral("j")};
    return quiet.contains(type) ? Muted : rejects.contains(type) ? QStringLiteral("warning") : QString();
}

} // namespace

WireModel::WireModel(QObject* parent)
    : RecordModel({{QStringLiteral("时间")},
                   {QStringLiteral("会话")},
                   {QStringLiteral("方向")},
                   {QStringLiteral("消息")},
                   {QStringLiteral("委托编号")},
                   {QStringLiteral("内容")}},
                  parent)
{
}

ListModel::Cell WireModel::cellOf(const ledger::WireMessage& message, int column) const
{
    const QList<wire_text::Field> fields = wire_text::fieldsOf(message.text);
    const QString type = wire_text::valueOf(fields, MessageType);
    switch (Column(column)) {
    case At:
        return {shownTime(message.at), {}, tintOf(type)};
    case Session:
        return {message.session, {}, Muted};
    case Direction:
        return {message.isOutgoing ? QStringLiteral("→ 发出") : QStringLiteral("← 收到"), {}, tintOf(type)};
    case Kind:
        return {wire_text::messageName(type), {}, tintOf(type)};
    case Order:
        return {wire_text::valueOf(fields, ClOrdId)};
    case Content:
        return {wire_text::summaryOf(fields), {}, tintOf(type)};
    }
    return {};
}

WireFieldsModel::WireFieldsModel(QObject* parent)
    : RecordModel({{QStringLiteral("字段"), true}, {QStringLiteral("名称")}, {QStringLiteral("值")}}, parent)
{
}

ListModel::Cell WireFieldsModel::cellOf(const wire_text::Field& field, int column) const
{
    switch (Column(column)) {
    case Tag:
        return {QString::number(field.tag), {}, Muted};
    case Name:
        return {field.name};
    case Value:
        return {field.value};
    }
    return {};
}

StraysModel::StraysModel(QObject* parent)
    : RecordModel({{QStringLiteral("时间")}, {QStringLiteral("回报编号")}, {QStringLiteral("说明")}}, parent)
{
}

ListModel::Cell StraysModel::cellOf(const ledger::StrayReport& stray, int column) const
{
    switch (Column(column)) {
    case At:
        return {shownTime(stray.at)};
    case ExecId:
        return {stray.execId};
    case Text:
        return {(stray.clOrdId + QLatin1Char(' ') + stray.text).trimmed(), {}, QStringLiteral("warning")};
    }
    return {};
}
