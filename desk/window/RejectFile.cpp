#include "desk/window/RejectFile.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>

namespace reject_file {

namespace {

const QString ReasonTitle = QStringLiteral("问题说明");

// 2024-03-05T09:30:00.000 -> 2024-03-05 09:30:00
QString withoutT(const QString& cell)
{
    static const QRegularExpression stamp(
        QStringLiteral("^(\\d{4}-\\d{2}-\\d{2})T(\\d{2}:\\d{2}:\\d{2})\\.\\d{3}$"));
    const QRegularExpressionMatch match = stamp.match(cell);
    return match.hasMatch() ? match.captured(1) + QLatin1Char(' ') + match.captured(2) : cell;
}

QStringList padded(QStringList row, int size)
{
    while (row.size() < size) {
        row.append(QString());
    }
    return row;
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

QList<QStringList> rowsOf(const QList<Problem>& problems, const QList<QStringList>& fileRows,
                          bool spreadsheet)
{
    if (fileRows.isEmpty()) {
        return {};
    }
    QStringList header = fileRows.first();
    header.removeAll(ReasonTitle); // the reject file of a reject file has one such column, not two
    const int reasonColumn = fileRows.first().indexOf(ReasonTitle);
    QList<QStringList> rows{header + QStringList{ReasonTitle}};
    const QMap<int, QStringList> reasons = reasonsByLine(problems);
    for (auto it = reasons.cbegin(); it != reasons.cend(); ++it) {
        if (it.key() < 2 || it.key() > fileRows.size()) {
            continue;
        }
        QStringList row = padded(fileRows.at(it.key() - 1), fileRows.first().size());
        if (reasonColumn >= 0) {
            row.removeAt(reasonColumn);
        }
        if (spreadsheet) {
            std::transform(row.begin(), row.end(), row.begin(), withoutT);
        }
        rows.append(row + QStringList{it.value().join(QStringLiteral("；"))});
    }
    return rows;
}

QString suggestedPath(const QString& originalPath)
{
    const QFileInfo original(originalPath);
    QString stem = original.completeBaseName();
    stem.replace(QLatin1Char('.'), QLatin1Char('_'));
    return original.dir().filePath(stem + QStringLiteral("_问题行.csv"));
}

} // namespace reject_file
