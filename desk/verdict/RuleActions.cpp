#include "desk/verdict/RuleActions.h"

#include "embedded_host/reference_data/CsvTable.h"
#include "embedded_host/reference_data/ReferenceFile.h"
#include "embedded_host/reference_data/ReferenceFolder.h"
#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"
#include "table/GuardRules.h"
#include "words/Words.h"

#include <QMap>

#include <algorithm>
#include <optional>

namespace verdict {

namespace {

struct RuleRow {
    QString rule;
    Action action = Action::Ask;
};

const QMap<QString, Action>& actionNames()
{
    static const QMap<QString, Action> names = {{QStringLiteral("tell"), Action::Tell},
                                                {QStringLiteral("ask"), Action::Ask},
                                                {QStringLiteral("refuse"), Action::Refuse}};
    return names;
}

Action floorOfSeverity(table::Severity severity)
{
    return severity == table::Severity::Notice ? Action::Tell : Action::Ask;
}

/// The strictest of the sentences of one rule; nothing where nobody knows the rule.
std::optional<Action> floorOfName(const QString& rule)
{
    if (table::rule::isOfLedger(rule) && table::findRule(rule) != nullptr) {
        return Action::Tell; // whether it refuses is the ledger's to say
    }
    std::optional<Action> floor;
    for (const table::RuleEntry& entry : table::allRules()) {
        if (table::rule::codeOf(entry.rule) == rule) {
            const Action own = floors().value(rule, floorOfSeverity(entry.severity));
            floor = floor ? std::max(*floor, own) : own;
        }
    }
    return floor;
}

QString takeAction(RuleRow& row, const QString& cell)
{
    const auto action = actionNames().constFind(cell.trimmed());
    if (action == actionNames().constEnd()) {
        return Words::tr("action 应为 refuse、ask 或 tell：%1").arg(cell);
    }
    row.action = *action;
    const std::optional<Action> floor = floorOfName(row.rule);
    if (!floor) {
        return Words::tr("没有规则“%1”").arg(row.rule);
    }
    return row.action < *floor ? Words::tr("规则“%1”不能低于 %2").arg(row.rule, nameOf(*floor)) : QString();
}

const ReferenceTable<RuleRow>& ruleTable()
{
    using Column = ReferenceColumn<RuleRow>;
    static const ReferenceTable<RuleRow> table{QStringLiteral("rules"),
                                               nullptr,
                                               {Column{QStringLiteral("rule"),
                                                       [](RuleRow& row, const QString& cell) {
                                                           row.rule = cell.trimmed();
                                                           return QString();
                                                       },
                                                       nullptr, Column::Key},
                                                Column{QStringLiteral("action"), takeAction, nullptr}}};
    return table;
}

} // namespace

QString nameOf(Action action)
{
    return actionNames().key(action);
}

Outcome<RuleActions> RuleActions::read(const QString& folder)
{
    const QString path = folder + QLatin1Char('/') + ruleTable().fileName();
    if (!isReferenceFileThere(path)) {
        return {};
    }
    const Outcome<QByteArray> file = readReferenceFile(path, reference_limits::CsvBytes);
    QList<RuleRow> rows;
    QString error = file.error;
    if (!file.ok() || !CsvTable(ruleTable(), path).read(file.value, rows, error)) {
        return {{}, error};
    }
    RuleActions actions;
    for (const RuleRow& row : qAsConst(rows)) {
        actions.mStricter.insert(row.rule, row.action);
    }
    return {actions, {}};
}

Action RuleActions::floorOf(const table::Fault& fault)
{
    return floors().value(table::rule::codeOf(fault.rule), floorOfSeverity(fault.severity));
}

Action RuleActions::of(const table::Fault& fault) const
{
    return of(table::rule::codeOf(fault.rule), floorOf(fault));
}

Action RuleActions::of(const QString& rule, Action floor) const
{
    return std::max(floor, mStricter.value(rule, floor));
}

} // namespace verdict
