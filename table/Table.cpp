#include "table/Table.h"

namespace table {

bool isBlankOrNote(const QStringList& row)
{
    if (row.isEmpty() || (row.size() == 1 && row.first().isEmpty())) {
        return true;
    }
    return row.size() > 2 && row.at(0).trimmed().isEmpty() && row.at(1).trimmed().isEmpty();
}

} // namespace table
