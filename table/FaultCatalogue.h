#pragma once

#include "table/Fault.h"

/// What is said of each fault: the one place that holds the sentences of rules.
namespace table {

enum class Language { Chinese, English };

struct RuleEntry {
    QString rule;
    Severity severity; ///< unless whoever finds the fault knows better
    /// %1, %2, … are the fault's arguments; a text without its placeholder stays as it stands.
    QString chinese;
    QString english; ///< empty: the sentence is exact in Chinese and has no other
};

/// Every rule of the house, each once, in the order of the catalogue's files.
const QList<RuleEntry>& allRules();
/// Null for a rule that nobody listed.
const RuleEntry* findRule(const QString& rule);

/// The sentence of a fault, without its line or row. Arguments are filled in all at once: a percent sign in
/// one is text.
QString sentence(const Fault& fault, Language language = Language::Chinese);

/// A fault with the rule's own severity.
Fault fault(const QString& rule, const QStringList& arguments = {});

} // namespace table
