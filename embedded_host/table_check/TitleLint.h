#pragma once

#include <QString>
#include <QStringList>

namespace table_lint {

/// The known title that a misspelt one comes nearest to, differences of width, blanks and letter case not
/// counted; empty where none is near: 委托数 -> 委托数量, "证券 代码" -> 证券代码.
QString nearestTitle(const QString& title, const QStringList& known);

/// The column that a person means by a title: 限价(元), 价格 and 委托价 for 委托限价, 股数 for 委托数量. One
/// of `columns`, or empty.
QString synonymOf(const QString& title, const QStringList& columns);

/// The column that a title may be about by one of its words: 保护价 and 目标价 for 委托限价, 执行风格 for
/// 风格参数; not what a file tells beside its orders, such as 最新价 and 持仓数量. One of `columns`, or
/// empty.
QString wordedAs(const QString& title, const QStringList& columns);

/// What the trade calls the column that a title names under whatever strategy: 委托限价 for 价格; empty where
/// it names none of those that make an order.
QString orderColumnOf(const QString& title);

} // namespace table_lint
