#pragma once

#include <QString>

/// Rules of the file check. The first two words are what programs know a rule by; a third tells the sentences
/// of one rule apart.
namespace table::rule {

inline const QString UnreadableFile = QStringLiteral("file.unreadable");
inline const QString UnknownTitle = QStringLiteral("title.unknown");
inline const QString NearTitle = QStringLiteral("title.near");
inline const QString RepeatedTitle = QStringLiteral("title.repeated");
inline const QString LostZeros = QStringLiteral("code.zeros");
inline const QString ExponentForm = QStringLiteral("number.exponent");
inline const QString LostDigits = QStringLiteral("number.digits");
inline const QString NoNumber = QStringLiteral("number.invalid");
inline const QString NoPrice = QStringLiteral("number.invalid.price");
inline const QString OutOfRange = QStringLiteral("number.range");
inline const QString LostFraction = QStringLiteral("number.fraction");
inline const QString NegativeNumber = QStringLiteral("number.negative");
inline const QString InvisibleBlank = QStringLiteral("blank.invisible");
inline const QString FullWidthDigit = QStringLiteral("digit.fullwidth");
inline const QString HiddenByMerge = QStringLiteral("merged.hidden");
inline const QString HiddenRow = QStringLiteral("row.hidden");
/// How many rows an import neither took nor found a fault in, since it ended before them.
inline const QString LostRows = QStringLiteral("file.lostRows");
inline const QString ReplacedText = QStringLiteral("text.replaced");
inline const QString UnknownCodePage = QStringLiteral("text.codepage");

/// The first two words: number.invalid of number.invalid.price.
inline QString codeOf(const QString& rule)
{
    return rule.section(QLatin1Char('.'), 0, 1);
}

} // namespace table::rule
