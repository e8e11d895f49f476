#include "table/FaultCatalogue.h"

#include "table/CatalogueParts.h"

#include <QHash>

namespace table {

namespace {

QHash<QString, const RuleEntry*> byRule()
{
    QHash<QString, const RuleEntry*> index;
    for (const RuleEntry& entry : allRules()) {
        index.insert(entry.rule, &entry);
    }
    return index;
}

/// In one pass, so that what an argument holds is never taken for a placeholder.
QString filledIn(const QString& text, const QStringList& arguments)
{
    QString filled;
    for (int i = 0; i < text.size(); ++i) {
        const int number =
            text.at(i) == QLatin1Char('%') && i + 1 < text.size() ? text.at(i + 1).digitValue() : -1;
        if (number < 1) {
            filled += text.at(i);
            continue;
        }
        filled += arguments.value(number - 1);
        ++i;
    }
    return filled;
}

} // namespace

QString nameOf(Severity severity)
{
    switch (severity) {
    case Severity::Notice:
        return QStringLiteral("notice");
    case Severity::Warning:
        return QStringLiteral("warning");
    case Severity::Error:
        break;
    }
    return QStringLiteral("error");
}

const QList<RuleEntry>& allRules()
{
    static const QList<RuleEntry> rules = importRules() + validationRules() + checkRules() + guardRules();
    return rules;
}

const RuleEntry* findRule(const QString& rule)
{
    static const QHash<QString, const RuleEntry*> index = byRule();
    return index.value(rule, nullptr);
}

QString sentence(const Fault& fault, Language language)
{
    const RuleEntry* entry = findRule(fault.rule);
    if (entry == nullptr) {
        return fault.rule;
    }
    const bool english = language == Language::English && !entry->english.isEmpty();
    return filledIn(english ? entry->english : entry->chinese, fault.arguments);
}

Fault fault(const QString& rule, const QStringList& arguments)
{
    const RuleEntry* entry = findRule(rule);
    Fault made;
    made.rule = rule;
    made.severity = entry == nullptr ? Severity::Error : entry->severity;
    made.arguments = arguments;
    return made;
}

} // namespace table
