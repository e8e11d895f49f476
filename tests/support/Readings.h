#pragma once

#include "embedded_host/RecordingPrompts.h"
#include "import/RowErrors.h"
#include "import/TableReading.h"
#include "strategy/Strategy.h"
#include "table/FaultCatalogue.h"

#include <QMap>
#include <QString>

/// A reading without a dialog beside what the dialog shows of the same table.
namespace readings {

/// The text of the one box that the dialog would show of a reading; empty where it would show none.
inline QString boxText(const import::Reading& reading)
{
    if (reading.end) {
        return table::sentence(*reading.end);
    }
    QMap<int, QString> errors;
    for (const table::Fault& fault : reading.faults) {
        errors[fault.row - 1] = table::sentence(fault);
    }
    return errors.isEmpty() ? QString() : import::rowErrorText(errors);
}

/// The texts of the error boxes that came up, one behind the other; questions are none.
inline QString errorTexts(const RecordingPrompts& prompts)
{
    constexpr int error = 1;
    QString texts;
    for (const ShownBox& box : prompts.boxes()) {
        texts += box.type == error ? box.text : QString();
    }
    return texts;
}

inline strategy::Strategy parsed(const AesStrategy& offered)
{
    const Outcome<strategy::Strategy> outcome =
        strategy::Strategy::parse(offered.name(), offered.alias(), offered.paramFormats());
    return outcome.ok() ? outcome.value
                        : strategy::Strategy::withoutParameters(offered.name(), offered.alias());
}

/// Rows on lines that no counting of rows gives: 10, 17, 24, …
inline table::Table tableOf(const QList<QStringList>& rows)
{
    table::Table table;
    table.rows = rows;
    for (int i = 0; i < rows.size(); ++i) {
        table.lines.append(10 + 7 * i);
    }
    return table;
}

inline int lineOfRow(int row)
{
    return 10 + 7 * row;
}

} // namespace readings
