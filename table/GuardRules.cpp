// The guard.

#include "table/CatalogueParts.h"

namespace table {

const QList<RuleEntry>& guardRules()
{
    static const QList<RuleEntry> rules;
    return rules;
}

} // namespace table
