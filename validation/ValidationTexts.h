#pragma once

#include <QString>

/// Every text of the batch checks. %1 is the 1-based row unless said otherwise.
namespace validation {

inline const QString NoData = QStringLiteral("未获取到数据！");
inline const QString NoAccount = QStringLiteral("未获取到交易账号！");
inline const QString BadData = QStringLiteral("第%1行：获取数据错误！\r\n");

/// %1 symbol, %2 name of the one market on which it trades.
inline const QString OnlyOnMarket = QStringLiteral("%1标的仅是%2标的！");
/// %2 OnlyOnMarket. Ends without a line break, so that the next row's text follows on the same line.
inline const QString MarketFault = QStringLiteral("第%1行：%2");

/// Shown as it stands: its placeholder has no digit.
inline const QString NoAccountType = QStringLiteral("第%行：未获取到账号类型!\r\n");
/// For the legs of a lock pair: no exclamation mark.
inline const QString LegPropertyFault =
    QStringLiteral("第%1行：当前资产账号与模板中委托属性校验未通过，请检查\r\n");
inline const QString PropertyFault =
    QStringLiteral("第%1行：当前资产账号与模板中委托属性校验未通过，请检查!\r\n");
inline const QString DirectionFault = QStringLiteral("第%1行：委托属性与交易方向不一致\r\n");
inline const QString CollateralBuyOnly = QStringLiteral("第%1行：仅支持担保品买入、融资买入\r\n");
inline const QString CollateralSellOnly = QStringLiteral("第%1行：仅支持担保品卖出\r\n");

/// Import: a row's entry in the error list.
inline const QString BadPairedFields = QStringLiteral("导入方向、委托属性、限价中，某字段格式错误");
inline const QString BadLegCount = QStringLiteral("第%1行：标的数目错误！\r\n");
inline const QString LegDirectionFault = QStringLiteral("第%1行：交易方向与委托属性不符！\r\n");
inline const QString BadDirection = QStringLiteral("第%1行：交易方向错误！\r\n");

/// Account change; %1 symbol.
inline const QString MarketNotHeld = QStringLiteral("当前资产账号所属市场与标的%1市场存在不一致!\r\n");
inline const QString CheckAndImportAgain = QStringLiteral("请检查后重新导入");

} // namespace validation
