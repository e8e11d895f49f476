#pragma once

#include <QString>

namespace schema {

/// A date and time in a layout, as it is sent: what sentDateTime() makes of QDateTime::fromString(). Of a
/// text in its plain form, as of 2024-3-5 9:30:0 and 2024-03-05T09:30:00.000, it needs a fraction of the
/// time, and of a file that has a time of its own in every row that is most of its import.
QString sentDateTimeIn(const QString& text, const QString& layout);

} // namespace schema
