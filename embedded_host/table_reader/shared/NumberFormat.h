#pragma once

#include <QHash>
#include <QString>
#include <QVector>

namespace table_reader {

/// What kind of value a number format shows.
enum class NumberFormat : quint8 {
    Plain,
    Date,    ///< a day, or a day and a time
    Time,    ///< a time of day alone
    Elapsed, ///< hours, minutes or seconds that run on beyond a day
};

/// The kind of a format that every workbook has by its number: 14 to 22, 27 to 36, 45 to 47 and 50 to 58 show
/// dates and times (27 to 36 and 50 to 58 in East Asian editions), all others plain numbers.
NumberFormat builtInFormat(int number);

/// The kind of a format of the workbook's own, from the first section of its code: "yyyy\-mm\-dd;@" is a
/// date.
NumberFormat customFormat(const QString& code);

/// The formats of these numbers, as the workbook says by its own formats or else as every workbook has them.
QVector<NumberFormat> formatsOf(const QVector<int>& numbers, const QHash<int, NumberFormat>& custom);

} // namespace table_reader
