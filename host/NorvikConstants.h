#pragma once

#include <QString>

/// Names and values of orders and market data. Every text stands here once; nothing else spells it.

namespace Norvik_Values {

/// Direction of a securities order as it is typed into an import file.
namespace OrderSide {
inline const QString buy = QStringLiteral("1");
inline const QString sell = QStringLiteral("2");
} // namespace OrderSide

namespace MdcSecurityType {
inline const QString FuturesType = QStringLiteral("FUTURES");
} // namespace MdcSecurityType

/// Market suffix of a symbol.
namespace SymbolPost {
inline const QString hk = QStringLiteral("HK");
} // namespace SymbolPost

} // namespace Norvik_Values

namespace Norvik_Fields {

namespace UserAccount {
inline const QString tradingAccount = QStringLiteral("tradingAccount");
} // namespace UserAccount

namespace MDCFieldDefine {
inline const QString mdcSubSecurityType = QStringLiteral("mdcSubSecurityType");
} // namespace MDCFieldDefine

} // namespace Norvik_Fields
