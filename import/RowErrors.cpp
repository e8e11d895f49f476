#include "import/RowErrors.h"

#include "import/ImportTexts.h"

namespace import {

QString rowErrorText(const QMap<int, QString>& errors)
{
    constexpr int headerAndOneBased = 2;
    QString lines;
    for (auto error = errors.constBegin(); error != errors.constEnd(); ++error) {
        lines += RowErrorLine.arg(error.key() + headerAndOneBased).arg(error.value());
    }
    return RowErrorList.arg(lines);
}

} // namespace import
