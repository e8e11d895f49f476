#pragma once

#include <QString>
#include <QStringList>

namespace runner {

/// A refusal of what was typed, with what may have been meant where one of the known names is near.
///
///     didYouMean("没有命令“imprt”", "imprt", {"import", "rows"}) // "没有命令“imprt”；是否应为“import”？"
QString didYouMean(const QString& refusal, const QString& typed, const QStringList& known);

} // namespace runner
