#pragma once

#include "table/Fault.h"
#include "table/Table.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

/// Looks for what may go wrong when a table is imported. Never changes a value; the reader's options must
/// have asked for inspection, or merged areas and hidden rows are not told.
namespace table_lint {

/// What the import makes of a cell that must be a number.
enum class NumberKind {
    Whole,  ///< cut off behind the point; 0 where it is no number
    Amount, ///< 0 where it is no number
    Price,  ///< 0 where it is no number, which means: no limit
};

/// What the import knows, for comparison.
struct Expectation {
    QStringList titles; ///< the table's columns; empty: titles are not compared
    /// Title that a file may use -> column title; read in both directions, as the import does.
    QMap<QString, QString> aliases;
    QString codeTitle; ///< the column of security codes, such as 证券代码; empty: none
    /// The securities with exactly this code, as the user should see them ("000001.SZ 平安银行"); may be
    /// null.
    std::function<QStringList(const QString& code)> securities;
    /// Titles under which a file may have columns of numbers, aliases among them.
    QMap<QString, NumberKind> numbers;
    bool pairedPrices = false; ///< a price cell may hold one price for each of two legs: 9.8/9.9
};

/// A fault of the file check, whose rules are those of table/CheckRules.h, and where it stands on the sheet.
struct Finding {
    table::Fault fault;      ///< its cell is the text in question, as stored
    QString address;         ///< A1; of a whole row its number; empty where the finding is of the file
    QStringList suggestions; ///< titles or securities that could be meant
};

/// All findings, titles first, then cells row by row, at most this many.
constexpr int MaxFindings = 1000;
QList<Finding> lint(const table::Table& table, const Expectation& expectation);

} // namespace table_lint
