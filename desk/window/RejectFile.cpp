#include "desk/window/RejectFile.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>

namespace reject_file {

namespace {

// 2024-03-05T09:30:00.000 -> 2024-03-05 09:30:00
QString withoutT(const QString& cell)
{
    static const QRegularExpression stamp(
        QStringLiteral("^(\\d{4}-\\d{2}-\\d{2})T(\\d{2}:\\d{2}:\\d{2})\\.\\d{3}$"));
    const QRegularExpressionMatch match = stamp.match(cell);
    return match.hasMatch() ? match.captured(1) + QLatin1Char(' ') + match.captured(2) : cell;
}

QMap<int, QStringList> reasonsByLine(const QList<Problem>& problems)
{
    QMap<int, QStringList> reasons;
    for (const Problem& problem : problems) {
        if (problem.place == Problem::Place::FileRow) {
            reasons[problem.line].append(problem.reason);
        }
    }
    return reasons;
}

} // namespace

QList<table_writer::RefusedRow> refusedRows(const QList<Problem>& problems,
                                            const QList<QStringList>& fileRows, bool datesForCsv)
{
    QList<table_writer::RefusedRow> refused;
    const QMap<int, QStringList> reasons = reasonsByLine(problems);
    for (auto it = reasons.cbegin(); it != reasons.cend(); ++it) {
        if (it.key() < 2 || it.key() > fileRows.size()) {
            continue;
        }
        QStringList row = fileRows.at(it.key() - 1);
        if (datesForCsv) {
            std::transform(row.begin(), row.end(), row.begin(), withoutT);
        }
        refused.append({row, it.value().join(QStringLiteral("；"))});
    }
    return refused;
}

QString suggestedPath(const QString& originalPath, bool spreadsheet)
{
    const QFileInfo original(originalPath);
    QString stem = original.completeBaseName();
    stem.replace(QLatin1Char('.'), QLatin1Char('_'));
    return original.dir().filePath(stem + QStringLiteral("_问题行.") +
                                   (spreadsheet ? QStringLiteral("xlsx") : QStringLiteral("csv")));
}

} // namespace reject_file
