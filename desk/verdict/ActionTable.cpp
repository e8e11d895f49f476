// The product's floors. A rule that is not listed has that of its severity: errors and warnings are asked
// for, notices told.

#include "desk/verdict/RuleActions.h"

namespace verdict {

const QHash<QString, Action>& floors()
{
    static const QHash<QString, Action> table = {
        // Nobody means it, whoever agrees.
        {QStringLiteral("time.none"), Action::Refuse},
        {QStringLiteral("time.ended"), Action::Refuse},
        {QStringLiteral("direction.empty"), Action::Refuse},
        {QStringLiteral("direction.foreign"), Action::Refuse},
        {QStringLiteral("pair.side"), Action::Refuse},
        {QStringLiteral("pair.half"), Action::Refuse},
        {QStringLiteral("quantity.money"), Action::Refuse},
        // The broker would not take it, or not as it was meant.
        {QStringLiteral("broker.market"), Action::Refuse},
        {QStringLiteral("broker.value"), Action::Refuse},
        {QStringLiteral("broker.least"), Action::Refuse},
        {QStringLiteral("broker.most"), Action::Refuse},
        {QStringLiteral("broker.decimals"), Action::Refuse},
        {QStringLiteral("broker.short"), Action::Refuse},
        {QStringLiteral("broker.long"), Action::Refuse},
        {QStringLiteral("broker.condition"), Action::Refuse},
        // Changes no order by itself; where it does, another rule says so.
        {QStringLiteral("title.unknown"), Action::Tell},
        {QStringLiteral("blank.invisible"), Action::Tell},
        {QStringLiteral("digit.fullwidth"), Action::Tell},
        {QStringLiteral("number.digits"), Action::Tell},
        {QStringLiteral("quantity.odd"), Action::Tell},
    };
    return table;
}

} // namespace verdict
