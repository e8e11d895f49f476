#include "desk/verdict/Judgement.h"

#include "host/AlgoConstants.h"
#include "ledger/LedgerTexts.h"
#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"
#include "table/GuardRules.h"
#include "words/Language.h"
#include "words/Words.h"

#include <algorithm>

namespace verdict {

namespace {

/// Rows that one line names.
constexpr int MostRows = 10;

/// Where faults stand: lines of the file, else rows of the batch, each once.
QString placesOf(const table::Faults& faults)
{
    QStringList places;
    for (const table::Fault& fault : faults) {
        const int place = fault.line > 0 ? fault.line : fault.row;
        const QString text = QString::number(place);
        if (place > 0 && !places.contains(text)) {
            places.append(text);
        }
    }
    const QString listed = places.mid(0, MostRows).join(Words::tr("、"));
    return places.size() > MostRows ? Words::tr("%1 等").arg(listed) : listed;
}

QString textOf(const table::Faults& faults)
{
    const QString first = words::sentence(faults.first());
    const bool isOne = std::all_of(faults.begin(), faults.end(), [&](const table::Fault& fault) {
        return words::sentence(fault) == first;
    });
    const QString places = placesOf(faults);
    const QString text = isOne ? first : Words::tr("%1 等").arg(first);
    if (!places.isEmpty()) {
        return Words::tr("%1（%2 处：第 %3 行）").arg(text, QString::number(faults.size()), places);
    }
    return faults.size() > 1 ? Words::tr("%1（%2 处）").arg(text, QString::number(faults.size())) : text;
}

/// The column that a rule of the ledger is about; empty where it is about none, or several.
QString columnOf(const QString& rule)
{
    namespace Info = Algo_Fields::AlgoInstContentInfo;
    namespace known = table::rule;
    static const QHash<QString, QString> columns = {
        {known::NoQuantity, Info::Quantity},        {known::RowQuantity, Info::Quantity},
        {known::MoneyLikeQuantity, Info::Quantity}, {known::PriceDistance, Info::PriceLimits},
        {known::ZeroLimit, Info::PriceLimits},      {known::Participation, Info::participationrate},
        {known::EndBeforeStart, Info::AlgoEndTime}};
    return columns.value(rule);
}

void append(QList<Line>& lines, const QList<ledger::Finding>& findings, Action floor,
            const RuleActions& actions)
{
    for (const ledger::Finding& finding : findings) {
        Line line{finding.rule, actions.of(finding.rule, floor), finding.text(), finding.count, {}};
        for (const int row : finding.rows) {
            table::Fault fault = table::fault(finding.rule, finding.arguments);
            fault.row = row;
            fault.column = columnOf(finding.rule);
            line.faults.append(fault);
        }
        lines.append(line);
    }
}

QString joined(const QList<Line>& lines)
{
    QStringList texts;
    for (const Line& line : lines) {
        texts.append(line.text);
    }
    return texts.join(Words::tr("；"));
}

} // namespace

QList<Line> Judgement::linesWith(Action action) const
{
    QList<Line> with;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(with),
                 [&](const Line& line) { return line.action == action; });
    return with;
}

QStringList Judgement::openRules(const QStringList& accepted) const
{
    QStringList open;
    for (const Line& line : linesWith(Action::Ask)) {
        if (!accepted.contains(line.rule)) {
            open.append(line.rule);
        }
    }
    return open;
}

QList<Line> linesOf(const table::Faults& faults, const RuleActions& actions)
{
    QList<Line> lines;
    QHash<QString, int> places;
    for (const table::Fault& fault : faults) {
        const QString rule = table::rule::codeOf(fault.rule);
        if (!places.contains(rule)) {
            places.insert(rule, lines.size());
            lines.append({rule, Action::Tell, QString(), 0, {}});
        }
        Line& line = lines[places.value(rule)];
        line.action = std::max(line.action, actions.of(fault));
        line.faults.append(fault);
    }
    for (Line& line : lines) {
        line.count = line.faults.size();
        line.text = textOf(line.faults);
    }
    return lines;
}

QList<Line> linesOf(const ledger::Verdict& verdict, const RuleActions& actions)
{
    QList<Line> all;
    append(all, verdict.refusals, Action::Refuse, actions);
    append(all, verdict.warnings, Action::Ask, actions);
    return all;
}

QList<Line> inOrder(QList<Line> lines)
{
    const auto rank = [](const Line& line) {
        const bool isMissing =
            line.rule == table::rule::MissingRows || line.rule == table::rule::RowsBeyondLimit;
        return isMissing ? -1 : int(Action::Refuse) - int(line.action);
    };
    std::stable_sort(lines.begin(), lines.end(),
                     [&](const Line& a, const Line& b) { return rank(a) < rank(b); });
    return lines;
}

QString objection(const Judgement& judgement, const Acceptance& acceptance)
{
    if (judgement.isEmpty()) {
        return Words::tr("没有要创建的行：%1 行都已在台账中。").arg(judgement.leftOut.size());
    }
    if (judgement.refuses()) {
        return ledger::texts::refused(joined(judgement.linesWith(Action::Refuse)));
    }
    QList<Line> open;
    const QStringList rules = judgement.openRules(acceptance.rules);
    for (const Line& line : judgement.lines) {
        if (rules.contains(line.rule) && line.action == Action::Ask) {
            open.append(line);
        }
    }
    if (!open.isEmpty()) {
        return ledger::texts::warningsOpen(joined(open));
    }
    return QString(); // the amount is the ledger's to ask for
}

Outcome<ledger::Batch> createJudged(ledger::Ledger& ledger, Judgement& judgement,
                                    const Acceptance& acceptance)
{
    const QString error = objection(judgement, acceptance);
    return error.isEmpty() ? ledger::createReviewed(ledger, judgement.review, {true, acceptance.typedAmount})
                           : Outcome<ledger::Batch>{{}, error};
}

} // namespace verdict
