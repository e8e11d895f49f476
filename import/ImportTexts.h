#pragma once

#include <QString>

/// Every text of the import that a user sees, and the result codes of its steps.
namespace import {

/// Rows were read without row errors.
inline const QString Ok = QStringLiteral("0");
/// The user declined the row-limit question.
inline const QString Declined = QStringLiteral("1");
/// Rows were read, some with errors.
inline const QString RowErrors = QStringLiteral("2");

inline const QString OpenTitle = QStringLiteral("导入算法");
inline const QString ReadFailed = QStringLiteral("文件读取失败");
inline const QString TooManyRows =
    QStringLiteral("当前导入数量已超过%1条，是否取前%1条进行批量创建算法实例？");
inline const QString EmptyTable = QStringLiteral("导入文件的表格内容为空！");
inline const QString MissingColumn = QStringLiteral("导入文件表头缺少“%1”列！");
inline const QString NoData = QStringLiteral("导入文件的表格内容缺少数据！");

/// %1 line of the file (the header is line 1), %2 what is wrong.
inline const QString RowErrorLine = QStringLiteral("第%1行：%2\r\n");
inline const QString RowErrorList = QStringLiteral("导入文件中包含以下错误:\r\n%1");

inline const QString UnknownCode = QStringLiteral("证券代码%1不合法，未获取到市场");
inline const QString MarketMismatch = QStringLiteral("当前资产账号所属市场与标的%2市场存在不一致，请检查！");
inline const QString NoHongKong = QStringLiteral("该算法不支持港股标的！");
inline const QString BadCreateStatus = QStringLiteral("%1不支持，目前支持：0-创建不启动，7-创建并立即启动");
inline const QString NoSealingQuantity = QStringLiteral("封单数量计算为0");
inline const QString NoOrderQuantity = QStringLiteral("委托数量计算为0");
inline const QString EmptyCells = QStringLiteral("导入“%1”列值为空");
/// Behind each title of EmptyCells but the last.
inline const QString TitleSeparator = QStringLiteral("、");

inline const QString FinancingBuy = QStringLiteral("融资买入");
inline const QString SellToRepay = QStringLiteral("卖券还款");
/// Whose risk notice the host shows.
inline const QString RiskSource = QStringLiteral("算法交易New");

} // namespace import
