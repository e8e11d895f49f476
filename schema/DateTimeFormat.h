#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace schema {

/// How a date and time is shown and sent, for example 2024-03-05 09:30:00.
inline const QString SentDateTimeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

/// A date and time as it is sent, in the digits 0 to 9 whatever the machine's locale; empty for an invalid
/// one.
inline QString sentDateTime(const QDateTime& dateTime)
{
    return dateTime.isValid() ? QLocale::c().toString(dateTime, SentDateTimeFormat) : QString();
}

/// How one is typed: as above, with or without leading zeros.
inline const QString TypedDateTimeFormat = QStringLiteral("yyyy-M-d H:m:s");
/// How the table reader gives one of a spreadsheet.
inline const QString SheetDateTimeFormat = QStringLiteral("yyyy-M-dTH:m:s.z");

} // namespace schema
