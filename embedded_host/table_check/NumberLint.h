#pragma once

#include "embedded_host/table_check/Expectation.h"

#include <QString>

#include <optional>

namespace table_lint {

/// What is wrong with a number: a rule of table/CheckRules.h, and the number that could be meant.
struct NumberFault {
    QString rule;
    QString meant; ///< empty: nobody knows
};

/// A cell that the import reads as this kind of number. Nothing where it reads what the cell says.
std::optional<NumberFault> faultOfNumber(const QString& text, NumberKind kind);

/// A limit price that is a rate in per cent: 178.5 and 0.01785 for 1.785.
std::optional<NumberFault> faultOfRate(const QString& text);

/// A limit price with more decimals than the security's prices have: the import rounds it.
std::optional<NumberFault> faultOfDecimals(const QString& text, int precision);

/// The number that a person reads in a text: 3万, ¥9.86, (100), 1,000股, １５%, 1.000 in a column of whole
/// numbers. Empty where it is none.
QString plausibleNumber(const QString& text, NumberKind kind);

/// A quantity that nobody can order in one piece: what is wrong with it for a buyer, or a seller.
std::optional<NumberFault> faultOfLot(const QString& text, const KnownSecurity& security, bool sells);

/// Whether the spreadsheet shows another number than the import takes of the text.
bool showsAnother(const QString& shown, const QString& text, NumberKind kind, int precision);

} // namespace table_lint
