#pragma once

#include <QString>

/// Columns of hand-off files: the fields of the messages under the standard's own names.
namespace gateway {

/// "ClOrdID" of 11; of a field that has no name here its number, "20058".
QString columnOf(int tag);
/// The field of a column, by name or number; 0: nobody knows it.
int tagOfColumn(const QString& column);

} // namespace gateway
