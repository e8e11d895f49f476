#pragma once

#include "embedded_host/table_reader/shared/NumberFormat.h"

#include <QString>

#include <optional>

namespace table_reader {

/// From which day a workbook counts its dates.
enum class DateSystem {
    From1900, ///< 1 is 1 January 1900, and 60 a 29 February that never was
    From1904, ///< 0 is 1 January 1904
};

/// A decimal number of a file, blanks around it ignored; nothing where the text is none.
std::optional<double> parseNumber(const QStringRef& text);

/// Whether numberText() of this number is certain to be this very text, as of 600000 or -0.25: then nobody
/// need read and write it. False where it is not certain.
bool isShortestNumber(const QStringRef& text);

/// The shortest decimal that reads back as the same number, never with an exponent: 600000, 0.1, -2.5.
QString numberText(double value);

/// TRUE or FALSE.
QString boolText(bool value);

/// A number as its format shows its kind: plain, or a date or time where it is one that can be.
QString shownNumber(double value, NumberFormat format, DateSystem system);

/// An ISO 8601 date, time or both, such as 2021-01-01 or 2021-01-01T10:10:10.5Z, in the reader's form; the
/// text itself where it is none. The zone is dropped: a sheet's times have none.
QString isoDateText(const QString& text);

/// A time of day, or a longer one, rounded to the millisecond, as HH:mm:ss: hours beyond 24 are kept,
/// fractions of a second dropped. What is below a day stays below it.
QString timeText(double seconds);

} // namespace table_reader
