#include "gateway/program/Printer.h"

#include <QDateTime>
#include <QFileDevice>
#include <QJsonArray>
#include <QJsonDocument>

namespace gateway {

Printer::Printer(QIODevice& out) : mOut(out) {}

void Printer::print(QJsonObject line)
{
    line.insert(QStringLiteral("at"), QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs));
    mOut.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
    if (auto* file = qobject_cast<QFileDevice*>(&mOut)) {
        file->flush();
    }
}

void Printer::session(const QString& session, const QString& state, const QString& text)
{
    print({{QStringLiteral("event"), QStringLiteral("session")},
           {QStringLiteral("session"), session},
           {QStringLiteral("state"), state},
           {QStringLiteral("text"), text}});
}

void Printer::instance(const InstanceKey& key, const QString& clOrdId, const Standing& standing)
{
    QJsonObject line = {{QStringLiteral("event"), QStringLiteral("instance")},
                        {QStringLiteral("id"), key.text()},
                        {QStringLiteral("clOrdId"), clOrdId},
                        {QStringLiteral("state"), gateway::nameOf(standing.state)},
                        {QStringLiteral("filledQuantity"), standing.fill.quantity},
                        {QStringLiteral("averagePrice"), standing.fill.averagePrice},
                        {QStringLiteral("reason"), standing.reason}};
    QJsonArray legs;
    for (const Fill& fill : standing.legs) {
        legs.append(QJsonObject{{QStringLiteral("filledQuantity"), fill.quantity},
                                {QStringLiteral("averagePrice"), fill.averagePrice}});
    }
    if (!legs.isEmpty()) {
        line.insert(QStringLiteral("legs"), legs);
    }
    print(line);
}

void Printer::kept(const KeptReport& report)
{
    print({{QStringLiteral("event"), QStringLiteral("report")},
           {QStringLiteral("clOrdId"), report.clOrdId},
           {QStringLiteral("execId"), report.execId},
           {QStringLiteral("reason"), report.complaint}});
}

void Printer::message(const Message& message)
{
    const auto text = [&](int tag) { return QString::fromStdString(message.text(tag)); };
    print({{QStringLiteral("event"), QStringLiteral("report")},
           {QStringLiteral("clOrdId"), text(11)},
           {QStringLiteral("execType"), text(150)},
           {QStringLiteral("ordStatus"), text(39)},
           {QStringLiteral("cumQty"), text(14)},
           {QStringLiteral("avgPx"), text(6)},
           {QStringLiteral("text"), text(58)}});
}

QString nameOf(SessionNews::State state)
{
    switch (state) {
    case SessionNews::State::Connected:
        return QStringLiteral("connected");
    case SessionNews::State::LoggedOn:
        return QStringLiteral("loggedOn");
    case SessionNews::State::LoggedOut:
        return QStringLiteral("loggedOut");
    case SessionNews::State::Disconnected:
        return QStringLiteral("disconnected");
    case SessionNews::State::GapFilled:
    case SessionNews::State::Note:
        break;
    }
    return QString();
}

} // namespace gateway
