#include "desk/runner/JudgementJson.h"

#include "desk/runner/FaultJson.h"
#include "desk/runner/LedgerJson.h"

#include <QSet>

#include <algorithm>

namespace runner {

namespace {

using verdict::Action;
using verdict::Line;
using verdict::Summary;

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

QJsonArray rowsOf(const Line& line)
{
    QList<int> rows;
    for (const table::Fault& fault : line.faults) {
        if (fault.row > 0 && !rows.contains(fault.row)) {
            rows.append(fault.row);
        }
    }
    std::sort(rows.begin(), rows.end());
    QJsonArray array;
    std::copy(rows.begin(), rows.end(), std::back_inserter(array));
    return array;
}

QJsonArray toJson(const QList<Line>& lines)
{
    QJsonArray array;
    for (const Line& line : lines) {
        array.append(QJsonObject{{key("rule"), line.rule},
                                 {key("count"), line.count},
                                 {key("text"), line.text},
                                 {key("rows"), rowsOf(line)},
                                 {key("faults"), runner::toJson(line.faults)}});
    }
    return array;
}

QJsonObject toJson(const Summary::Side& side)
{
    return {{key("buy"), side.buy.toDouble()}, {key("sell"), side.sell.toDouble()}};
}

QJsonObject toJson(const Summary& summary)
{
    QJsonObject markets;
    for (auto market = summary.markets.cbegin(); market != summary.markets.cend(); ++market) {
        markets[market.key()] = toJson(*market);
    }
    QJsonArray largest;
    for (const Summary::Row& row : summary.largest) {
        largest.append(QJsonObject{{key("row"), row.row},
                                   {key("symbol"), row.symbol},
                                   {key("direction"), row.direction},
                                   {key("amount"), row.amount.toDouble()}});
    }
    QJsonObject day = toJson(summary.day);
    day[key("instances")] = summary.dayInstances;
    return {{key("account"), summary.account},
            {key("accountName"), summary.accountName},
            {key("strategy"), summary.strategy},
            {key("strategyName"), summary.strategyName},
            {key("fileName"), summary.fileName},
            {key("taken"), summary.taken},
            {key("refused"), summary.refused},
            {key("skipped"), summary.skipped},
            {key("markets"), markets},
            {key("largest"), largest},
            {key("day"), day},
            {key("elsewhere"), QJsonArray::fromStringList(summary.elsewhere)},
            {key("optedOut"), QJsonArray::fromStringList(summary.optedOut)}};
}

QJsonObject toJson(const verdict::DuplicateChoice& choice, const QList<int>& leftOut)
{
    QJsonArray rows;
    std::copy(leftOut.begin(), leftOut.end(), std::back_inserter(rows));
    return {{key("way"), verdict::nameOf(choice.way)},
            {key("against"), choice.against > 0 ? QJsonValue(choice.against) : QJsonValue(QJsonValue::Null)},
            {key("leftOut"), rows}};
}

} // namespace

QJsonObject toJson(const verdict::Judgement& judgement)
{
    QJsonObject json = toJson(judgement.review.verdict);
    json[key("refusals")] = toJson(judgement.linesWith(Action::Refuse));
    json[key("warnings")] = toJson(judgement.linesWith(Action::Ask));
    json[key("told")] = toJson(judgement.linesWith(Action::Tell));
    json[key("summary")] = toJson(judgement.summary);
    return json;
}

QJsonObject creationToJson(const verdict::Judgement& judgement, const Outcome<ledger::Batch>& created)
{
    QJsonObject json = creationToJson(judgement.review.verdict, created);
    json[key("guard")] = toJson(judgement);
    if (judgement.choice.way != verdict::DuplicateChoice::Way::CreateAll) {
        json[key("duplicates")] = toJson(judgement.choice, judgement.leftOut);
    }
    return json;
}

} // namespace runner
