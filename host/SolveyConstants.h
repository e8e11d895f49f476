#pragma once

#include <QString>
#include <QStringList>

/// Names and values of accounts, markets and templates. Every text stands here once; nothing else spells it.

namespace Solvey_Values {

/// Direction of a futures order as it is typed into an import file.
namespace SideUnion {
inline const QString openBuy = QStringLiteral("3");
inline const QString openSell = QStringLiteral("4");
inline const QString closeBuy = QStringLiteral("5");
inline const QString closeSell = QStringLiteral("6");
} // namespace SideUnion

/// Fund account type; accounts of other types carry other texts, such as Futures.
namespace FundAccountType {
inline const QString Cash = QStringLiteral("Cash");
inline const QString Credit = QStringLiteral("Credit");
} // namespace FundAccountType

/// Sub-types of securities that lot rules and exchange rates depend on.
namespace MdcSubSecurityType {
inline const QString ScienTechInnovateBoard = QStringLiteral("STAR");
inline const QString BjSelectedStock = QStringLiteral("BJ_SELECTED");
inline const QStringList HKSharesTypeList = {QStringLiteral("HK_MAIN"), QStringLiteral("HK_GEM")};
inline const QString HStcokCirculation = QStringLiteral("H_CIRCULATION");
} // namespace MdcSubSecurityType

} // namespace Solvey_Values

namespace Solvey_Fields {

/// Keys of the Hong Kong connect rates of one exchange.
namespace HKSExchgRate {
inline const QString HKSExchgRateBuy = QStringLiteral("HKSExchgRateBuy");
inline const QString HKSExchgRateSell = QStringLiteral("HKSExchgRateSell");
} // namespace HKSExchgRate

} // namespace Solvey_Fields

namespace SolveyConstants {

/// Kinds of template file that SolveyUtils::DownloadTemplateFile knows.
namespace TemplateFileType {
inline const QString AlgoBatchSingle = QStringLiteral("AlgoBatchSingle");
} // namespace TemplateFileType

/// Stands for every strategy where SolveyUtils::DownloadTemplateFile wants names.
inline const QString AllTemplates = QStringLiteral("全部");

/// Section of CDataBase::GetStaticCfgValue that gives an exchange code its shown name.
inline const QString MarketNameSection = QStringLiteral("TransExchangeToMarketName");

} // namespace SolveyConstants
