#include "desk/window/RejectFile.h"

#include "host/AlgoConstants.h"
#include "table/Table.h"

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

constexpr int FirstLine = 2;   // of data; the header is line 1
constexpr int MostRows = table::MostOrders;

/// As the import puts it where the legs of a lock strategy cannot be told apart.
const QString FaultyLegs = QStringLiteral("导入方向、委托属性、限价中，某字段格式错误");
const QString Doubt = QStringLiteral("该行号可能不是文件行号，请核对");

using Reasons = QMap<int, QStringList>; // by line of the file

Reasons reasonsByLine(const QList<Problem>& problems, bool ofLegs)
{
    Reasons reasons;
    for (const Problem& problem : problems) {
        const bool isOfLegs = problem.reason == FaultyLegs;
        if (problem.place == Problem::Place::FileRow && isOfLegs == ofLegs) {
            reasons[problem.line].append(problem.reason);
        }
    }
    return reasons;
}

/// Whether the cells that hold one value for each leg hold two.
bool hasTwoLegs(const QStringList& row, const QStringList& header)
{
    for (const QString& title : {Algo_Values::AlgoParamId::traderOrder, Algo_Values::AlgoParamId::entrustProp,
                                 Algo_Fields::AlgoInstContentInfo::PriceLimits}) {
        if (row.value(import_problems::columnOf(title, header)).count(QLatin1Char('/')) != 1) {
            return false;
        }
    }
    return true;
}

/// Finds the rows whose legs are at fault, and adds them to `reasons`. False where they are not certain.
bool addFaultyLegs(const QList<Problem>& problems, const QList<QStringList>& fileRows, Reasons& reasons)
{
    const Reasons told = reasonsByLine(problems, true);
    Reasons found;
    QList<int> numbers; // by which the import would have told of them
    int number = FirstLine;
    for (int line = FirstLine; line <= qMin(fileRows.size(), MostRows + 1) && !told.isEmpty(); ++line) {
        const QStringList& row = fileRows.at(line - 1);
        if (table::isBlankOrNote(row) || reasons.contains(line)) {
            continue;
        }
        if (!hasTwoLegs(row, fileRows.first())) {
            found[line].append(FaultyLegs);
            numbers.append(number);
        }
        ++number;
    }
    const bool isCertain = numbers == told.keys();
    for (const int line : isCertain ? QList<int>() : told.keys()) {
        found[line] = told.value(line);
    }
    for (auto it = found.begin(); it != found.end(); ++it) {
        reasons[it.key()] += isCertain ? *it : *it << Doubt;
    }
    return isCertain;
}

} // namespace

Refused refusedRows(const QList<Problem>& problems, const QList<QStringList>& fileRows, bool datesForCsv)
{
    Refused refused;
    Reasons reasons = reasonsByLine(problems, false);
    if (!addFaultyLegs(problems, fileRows, reasons)) {
        refused.doubt = Doubt;
    }
    for (auto it = reasons.cbegin(); it != reasons.cend(); ++it) {
        if (it.key() < FirstLine || it.key() > fileRows.size()) {
            continue;
        }
        QStringList row = fileRows.at(it.key() - 1);
        if (datesForCsv) {
            std::transform(row.begin(), row.end(), row.begin(), withoutT);
        }
        refused.rows.append({row, it.value().join(QStringLiteral("；"))});
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
