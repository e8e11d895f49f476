#pragma once

#include <QString>

/// Names of the rules that an import and a batch may break, each with the arguments of its sentence. Who
/// needs to know what a fault is about compares its rule with one of these.
namespace table::rule {

// ---- the file and its header; they end an import

inline const QString ReaderError = QStringLiteral("import.readerError");     ///< the reader's own sentence
inline const QString ReadFailed = QStringLiteral("import.readFailed");       ///< no rows, no reason
inline const QString EmptyTable = QStringLiteral("import.emptyTable");       ///< not even a header
inline const QString MissingColumn = QStringLiteral("import.missingColumn"); ///< title
inline const QString NoDataRows = QStringLiteral("import.noDataRows");
inline const QString NoHongKong = QStringLiteral("import.noHongKong"); ///< the strategy takes none; of a row

// ---- a row; it is dropped

inline const QString UnknownCode = QStringLiteral("import.unknownCode");         ///< code as typed
inline const QString MarketMismatch = QStringLiteral("import.marketMismatch");   ///< market as typed, symbol
inline const QString BadCreateStatus = QStringLiteral("import.badCreateStatus"); ///< title
inline const QString NoSealingQuantity = QStringLiteral("import.noSealingQuantity");
inline const QString NoOrderQuantity = QStringLiteral("import.noOrderQuantity");
inline const QString EmptyCells = QStringLiteral("import.emptyCells");     ///< titles, joined
inline const QString NotSupported = QStringLiteral("import.notSupported"); ///< title, what is accepted
inline const QString BadDateTime = QStringLiteral("import.badDateTime");   ///< title, layout
inline const QString ReservedText = QStringLiteral("import.reservedText"); ///< a text with a meaning inside
inline const QString BadPairedFields = QStringLiteral("import.badPairedFields");

// ---- the batch at 确定; all but the first four are of a row

inline const QString NoAlgoType = QStringLiteral("validation.noAlgoType");
inline const QString NoAuthority = QStringLiteral("validation.noAuthority"); ///< alias of the strategy
inline const QString NoBatch = QStringLiteral("validation.noBatch");
inline const QString NoAccount = QStringLiteral("validation.noAccount");
inline const QString BadData = QStringLiteral("validation.badData");
inline const QString OnlyOnMarket = QStringLiteral("validation.onlyOnMarket"); ///< symbol, name of the market
inline const QString NoAccountType = QStringLiteral("validation.noAccountType");
inline const QString EntrustProperty = QStringLiteral("validation.entrustProperty");
inline const QString LegEntrustProperty = QStringLiteral("validation.legEntrustProperty");
inline const QString EntrustDirection = QStringLiteral("validation.entrustDirection");
inline const QString CollateralBuyOnly = QStringLiteral("validation.collateralBuyOnly");
inline const QString CollateralSellOnly = QStringLiteral("validation.collateralSellOnly");
inline const QString LegCount = QStringLiteral("validation.legCount");
inline const QString LegDirection = QStringLiteral("validation.legDirection");
inline const QString BadDirection = QStringLiteral("validation.badDirection");

// ---- a change of account; of a row

inline const QString MarketNotHeld = QStringLiteral("validation.marketNotHeld"); ///< symbol

} // namespace table::rule
