#pragma once

#include "desk/working_copy/WorkingCopy.h"

/// What people read of edits.
namespace working_copy {

/// "文件第 5 行“证券代码”：“60000” → “600000”"; of many cells or lines the first ones.
QString sentence(const Edit& edit);
/// One a line, in the order in which they were made.
QStringList sentences(const QList<Edit>& edits);
/// Of a list that the ledger kept; what another program did to a file stands there as it was kept.
QStringList sentences(const QJsonArray& edits);

} // namespace working_copy
