#pragma once

#include <QMap>
#include <QString>

namespace import {

/// Row errors keyed by the 0-based data row, as the text of one box: a line per row in ascending order, each
/// with the line of the file, for example "第2行：委托数量计算为0\r\n" for key 0.
QString rowErrorText(const QMap<int, QString>& errors);

} // namespace import
