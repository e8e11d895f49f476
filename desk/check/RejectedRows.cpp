#include "desk/check/RejectedRows.h"

#include "table/FaultCatalogue.h"
#include "words/Language.h"
#include "words/Words.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace rejected_rows {

namespace {

// 2024-03-05T09:30:00.000 -> 2024-03-05 09:30:00
QString withoutT(const QString& cell)
{
    static const QRegularExpression stamp(
        QStringLiteral("^(\\d{4}-\\d{2}-\\d{2})T(\\d{2}:\\d{2}:\\d{2})\\.\\d{3}$"));
    const QRegularExpressionMatch match = stamp.match(cell);
    return match.hasMatch() ? match.captured(1) + QLatin1Char(' ') + match.captured(2) : cell;
}

QHash<int, QStringList> reasonsByLine(const table::Faults& faults)
{
    QHash<int, QStringList> reasons;
    for (const table::Fault& fault : faults) {
        reasons[fault.line].append(words::sentence(fault));
    }
    return reasons;
}

} // namespace

QList<table_writer::RefusedRow> of(const table::Faults& faults, const table::Table& table, bool datesForCsv)
{
    const QHash<int, QStringList> reasons = reasonsByLine(faults);
    QList<table_writer::RefusedRow> refused;
    for (int row = 1; row < table.rows.size(); ++row) {
        const auto found = reasons.constFind(table.lineOf(row));
        if (found == reasons.constEnd()) {
            continue;
        }
        QStringList cells = table.rows.at(row);
        if (datesForCsv) {
            std::transform(cells.begin(), cells.end(), cells.begin(), withoutT);
        }
        refused.append({cells, found->join(Words::tr("；"))});
    }
    return refused;
}

bool needDatesForCsv(const table::Table& table, const QString& path)
{
    return table.format != QLatin1String("csv") &&
           !path.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive);
}

QString write(const QString& path, const table::Table& table, const QList<table_writer::RefusedRow>& rows)
{
    return table_writer::writeRejects(path, table.rows.value(0), rows);
}

QString suggestedPath(const QString& originalPath, bool spreadsheet)
{
    const QFileInfo original(originalPath);
    QString stem = original.completeBaseName();
    stem.replace(QLatin1Char('.'), QLatin1Char('_'));
    return original.dir().filePath(stem + Words::tr("_问题行.") +
                                   (spreadsheet ? QStringLiteral("xlsx") : QStringLiteral("csv")));
}

} // namespace rejected_rows
