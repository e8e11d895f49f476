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

// ---- of the workbook
inline const QString ActiveSheet = QStringLiteral("sheet.active"); ///< its name, the one that is read
inline const QString OtherSheet = QStringLiteral("sheet.other");   ///< likewise
// ---- of the header
inline const QString SecondTitle = QStringLiteral("title.second"); ///< title, the one that is read
inline const QString IgnoredTitle = QStringLiteral("title.ignored");
inline const QString NamelessColumn = QStringLiteral("title.empty"); ///< letters of the column
inline const QString HiddenColumn = QStringLiteral("title.hidden");
inline const QString OtherStrategy = QStringLiteral("title.strategy"); ///< columns, strategies
// ---- of a row
inline const QString OrderWithoutCode = QStringLiteral("row.code");
inline const QString HeaderAgain = QStringLiteral("row.header");
inline const QString TotalRow = QStringLiteral("row.total");
inline const QString SameOrder = QStringLiteral("row.repeated"); ///< line of the first one
inline const QString StruckRow = QStringLiteral("row.struck");
// ---- of a cell
inline const QString Uncalculated = QStringLiteral("formula.uncalculated");
inline const QString ShownOtherwise = QStringLiteral("number.shown"); ///< as taken, as shown
inline const QString NoFreeNumber = QStringLiteral("number.invalid.free");
inline const QString BelowZero = QStringLiteral("number.below");
inline const QString ZeroNumber = QStringLiteral("number.below.zero");
inline const QString NoPercent = QStringLiteral("number.percent");
inline const QString SmallShare = QStringLiteral("share.small"); ///< number, what could be meant
inline const QString PointForGroups = QStringLiteral("number.grouping");
inline const QString SmallAmount = QStringLiteral("amount.small");
inline const QString RoundedPrice = QStringLiteral("price.rounded"); ///< price, as it is taken
inline const QString OddRate = QStringLiteral("price.rate");
inline const QString NoWholeLot = QStringLiteral("quantity.lot");
inline const QString OddLotSold = QStringLiteral("quantity.odd");
inline const QString OtherName = QStringLiteral("name.differs"); ///< name, the security
inline const QString LostChoice = QStringLiteral("choice.lost");
inline const QString EmptyByMerge =
    QStringLiteral("merged.empty"); ///< text, address of the area's first cell

/// The first two words: number.invalid of number.invalid.price.
inline QString codeOf(const QString& rule)
{
    return rule.section(QLatin1Char('.'), 0, 1);
}

} // namespace table::rule
