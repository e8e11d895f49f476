#include "desk/verdict/Summary.h"

#include "words/Words.h"

#include <algorithm>

namespace verdict {

namespace {

constexpr int MostRows = 5;

QString money(const ledger::Decimal& amount)
{
    return Words::tr("%1 元").arg(amount.shown(2));
}

QString sides(const Summary::Side& side)
{
    return Words::tr("买入 %1，卖出 %2").arg(money(side.buy), money(side.sell));
}

QString named(const QString& code, const QString& name)
{
    return name.isEmpty() || name == code ? code : Words::tr("%1（%2）").arg(name, code);
}

Summary::Row rowOf(const ledger::InstanceDraft& instance, int row)
{
    Summary::Row large;
    large.row = row;
    QStringList symbols;
    for (const ledger::Leg& leg : instance.legs) {
        symbols.append(leg.symbol);
        large.amount += leg.amount;
        large.direction = leg.direction;
    }
    large.symbol = symbols.join(QLatin1Char('/'));
    return large;
}

} // namespace

Summary summaryOf(const ledger::BatchDraft& draft)
{
    Summary summary;
    summary.account = draft.account;
    summary.strategy = draft.strategy;
    summary.fileName = draft.fileName;
    summary.taken = draft.instances.size();
    for (int i = 0; i < draft.instances.size(); ++i) {
        summary.largest.append(rowOf(draft.instances.at(i), i + 1));
        for (const ledger::Leg& leg : draft.instances.at(i).legs) {
            Summary::Side& market = summary.markets[leg.exchange];
            market.buy += leg.buys() ? leg.amount : ledger::Decimal();
            market.sell += leg.sells() ? leg.amount : ledger::Decimal();
        }
    }
    std::stable_sort(summary.largest.begin(), summary.largest.end(),
                     [](const Summary::Row& a, const Summary::Row& b) { return a.amount > b.amount; });
    summary.largest = summary.largest.mid(0, MostRows);
    const ledger::Gross gross = ledger::grossOf(draft.instances);
    summary.day = {gross.buy, gross.sell};
    summary.dayInstances = summary.taken;
    return summary;
}

void addStanding(Summary& summary, const ledger::Standing& standing)
{
    summary.day.buy += standing.day.buy;
    summary.day.sell += standing.day.sell;
    summary.dayInstances += standing.day.instances;
    for (const ledger::Duplicate& duplicate : standing.duplicates) {
        if (duplicate.account != summary.account) {
            const QString what = duplicate.isSameFile
                                     ? Words::tr("同一文件")
                                     : Words::tr("%1 行同样的委托").arg(duplicate.rows.size());
            summary.elsewhere.append(Words::tr("%1今天已在账户 %2 创建（批次 %3）")
                                         .arg(what, duplicate.account, QString::number(duplicate.batch)));
        }
    }
}

QStringList linesOf(const Summary& summary)
{
    QStringList lines = {Words::tr("账户：%1").arg(named(summary.account, summary.accountName)),
                         Words::tr("算法：%1").arg(named(summary.strategy, summary.strategyName)),
                         Words::tr("文件：%1").arg(summary.fileName),
                         Words::tr("导入 %1 行，未导入 %2 行，跳过 %3 行")
                             .arg(summary.taken)
                             .arg(summary.refused)
                             .arg(summary.skipped)};
    if (summary.leftOut > 0) {
        lines.append(Words::tr("不再创建 %1 行：台账中已有").arg(summary.leftOut));
    }
    if (summary.replaces > 0) {
        lines.append(Words::tr("批次 %1 将被撤回，由本批替换（同时完成，或都不做）").arg(summary.replaces));
    }
    for (auto market = summary.markets.cbegin(); market != summary.markets.cend(); ++market) {
        lines.append(Words::tr("%1：%2").arg(market.key(), sides(*market)));
    }
    for (const Summary::Row& row : summary.largest) {
        lines.append(Words::tr("第 %1 行 %2 %3：%4")
                         .arg(QString::number(row.row), row.symbol, row.direction, money(row.amount)));
    }
    lines.append(
        Words::tr("当日合计（含本批）：%1，%2 个实例").arg(sides(summary.day)).arg(summary.dayInstances));
    lines += summary.elsewhere;
    for (const QString& scope : summary.optedOut) {
        lines.append(Words::tr("不受通用限额约束：%1").arg(scope));
    }
    return lines;
}

} // namespace verdict
