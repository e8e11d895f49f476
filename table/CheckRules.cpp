// The file check.

#include "table/CatalogueParts.h"

namespace table {

const QList<RuleEntry>& checkRules()
{
    static const QList<RuleEntry> rules;
    return rules;
}

} // namespace table
