#pragma once

#include <QDate>
#include <QString>
#include <QTime>

/// Texts of the document as values of a table.
namespace atdl {

/// Where the table's times are.
inline const QString Shanghai = QStringLiteral("Asia/Shanghai");

/// A hundred times the number, digit for digit: "0.15" is "15", "0.015" is "1.5", "1" is "100".
QString hundredfold(const QString& number);

/// "09:30:00", with or without a fraction; `isUtc` where it ends in Z. Invalid where it is none.
QTime timeOf(const QString& text, bool& isUtc);
/// "20261123" or "2026-11-23".
QDate dateOf(const QString& text);

bool isKnownZone(const QString& zone);
/// The same moment of any day in Shanghai; invalid where that depends on the day, as with summer time, or the
/// zone is not known.
QTime inShanghai(const QTime& time, const QString& zone);

bool isTrue(const QString& text);

} // namespace atdl
