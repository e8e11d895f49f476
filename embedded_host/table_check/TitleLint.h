#pragma once

#include <QString>
#include <QStringList>

namespace table_lint {

/// The known title that a misspelt one comes nearest to, differences of width, blanks and letter case not
/// counted; empty where none is near: 委托数 -> 委托数量, "证券 代码" -> 证券代码.
QString nearestTitle(const QString& title, const QStringList& known);

} // namespace table_lint
