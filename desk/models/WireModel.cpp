#include "desk/models/WireModel.h"

#include "words/Words.h"

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
    : RecordModel({{Words::tr("时间")},
                   {Words::tr("会话")},
                   {Words::tr("方向")},
                   {Words::tr("消息")},
                   {Words::tr("委托编号")},
                   {Words::tr("内容")}},
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
        return {message.isOutgoing ? Words::tr("→ 发出") : Words::tr("← 收到"), {}, tintOf(type)};
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
    : RecordModel({{Words::tr("字段"), true}, {Words::tr("名称")}, {Words::tr("值")}}, parent)
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
    : RecordModel({{Words::tr("时间")}, {Words::tr("回报编号")}, {Words::tr("说明")}}, parent)
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
