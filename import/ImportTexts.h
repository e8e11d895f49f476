#pragma once

#include <QString>

/// Texts of the import that are no fault (those stand in the catalogue), and the result codes of its steps.
namespace import {

/// Rows were read without row errors.
inline const QString Ok = QStringLiteral("0");
/// The user declined the row-limit question.
inline const QString Declined = QStringLiteral("1");
/// Rows were read, some with errors.
inline const QString RowErrors = QStringLiteral("2");

inline const QString OpenTitle = QStringLiteral("导入算法");
inline const QString TooManyRows =
    QStringLiteral("当前导入数量已超过%1条，是否取前%1条进行批量创建算法实例？");

/// %1 line of the file (the header is line 1), %2 what is wrong.
inline const QString RowErrorLine = QStringLiteral("第%1行：%2\r\n");
inline const QString RowErrorList = QStringLiteral("导入文件中包含以下错误:\r\n%1");

/// Between the titles of empty cells.
inline const QString TitleSeparator = QStringLiteral("、");

inline const QString FinancingBuy = QStringLiteral("融资买入");
inline const QString SellToRepay = QStringLiteral("卖券还款");
/// Whose risk notice the host shows.
inline const QString RiskSource = QStringLiteral("算法交易New");

} // namespace import
