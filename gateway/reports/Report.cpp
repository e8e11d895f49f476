#include "gateway/reports/Report.h"

#include "gateway/messages/Order.h"
#include "words/Words.h"

namespace gateway {

namespace {

QString textOf(const Message& message, int tag)
{
    return QString::fromStdString(message.text(tag));
}

/// A field of the report, else of its first leg.
QString textOfLeg(const Message& message, int tag)
{
    const Group* legs = message.group(555);
    if (message.has(tag) || legs == nullptr || legs->entries.empty()) {
        return textOf(message, tag);
    }
    const std::string* value = findField(legs->entries.front(), tag);
    return value == nullptr ? QString() : QString::fromStdString(*value);
}

/// The order that the message is about: a cancel's identifier names its order, too, in 41.
QString orderOf(const Message& message)
{
    const QString own = textOf(message, 11);
    const QString order = orderIdIn(own);
    return order != own || !message.has(41) ? order : orderIdIn(textOf(message, 41));
}

Outcome<Report> lacking(const QString& what)
{
    return {{}, Words::tr("回报缺少字段 %1").arg(what)};
}

Outcome<Report> readExecution(const Message& message)
{
    Report report;
    report.clOrdId = orderOf(message);
    report.execId = textOf(message, 17);
    report.execRefId = textOf(message, 19);
    report.execType = textOf(message, 150);
    report.ordStatus = textOf(message, 39);
    report.orderId = textOf(message, 37);
    report.cumQty = textOf(message, 14);
    report.avgPx = textOf(message, 6);
    report.rejectCode = textOf(message, 103);
    report.text = textOf(message, 58);
    report.legReport = textOf(message, 442);
    report.legNumber = textOfLeg(message, 654);
    report.symbol = textOf(message, 55);
    report.requestId = textOf(message, 790);
    const std::string* possDup = findField(message.header, 43);
    report.isResent = possDup != nullptr && *possDup == "Y";
    if (report.execType.isEmpty() || report.ordStatus.isEmpty()) {
        return lacking(report.ordStatus.isEmpty() ? QStringLiteral("39") : QStringLiteral("150"));
    }
    return report.execId.isEmpty() && !report.isStatusAnswer() ? lacking(QStringLiteral("17"))
                                                               : Outcome<Report>{report, QString()};
}

Outcome<Report> readCancelReject(const Message& message)
{
    Report report;
    report.kind = Report::Kind::CancelReject;
    report.clOrdId = orderOf(message);
    report.ordStatus = textOf(message, 39);
    report.orderId = textOf(message, 37);
    report.rejectCode = textOf(message, 102);
    report.text = textOf(message, 58);
    return report.ordStatus.isEmpty() ? lacking(QStringLiteral("39")) : Outcome<Report>{report, QString()};
}

Report readReject(const Message& message, Report::Kind kind)
{
    const bool isBusiness = kind == Report::Kind::BusinessReject;
    Report report;
    report.kind = kind;
    report.clOrdId = isBusiness ? orderIdIn(textOf(message, 379)) : QString();
    report.refSeqNum = textOf(message, 45);
    report.refMsgType = textOf(message, 372);
    report.rejectCode = textOf(message, isBusiness ? 380 : 373);
    report.text = textOf(message, 58);
    return report;
}

} // namespace

bool Report::deniesOrder() const
{
    return isStatusAnswer() && ordStatus == QLatin1String("8") &&
           (orderId == QLatin1String("NONE") || rejectCode == QLatin1String("5"));
}

bool Report::saysDuplicate() const
{
    return kind == Kind::Execution && !isStatusAnswer() && rejectCode == QLatin1String("6") &&
           (rejects() || ordStatus == QLatin1String("8"));
}

bool isReport(const std::string& type)
{
    return type == "8" || type == "9" || type == "j" || type == "3";
}

Outcome<Report> readReport(const Message& message)
{
    if (message.type == "8") {
        return readExecution(message);
    }
    if (message.type == "9") {
        return readCancelReject(message);
    }
    if (message.type == "j") {
        return {readReject(message, Report::Kind::BusinessReject), QString()};
    }
    return {readReject(message, Report::Kind::SessionReject), QString()};
}

} // namespace gateway
