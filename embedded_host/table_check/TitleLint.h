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

} // namespace table_lint
