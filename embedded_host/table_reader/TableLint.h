#pragma once

#include "embedded_host/table_reader/TableReader.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

/// Looks for what may go wrong when a table is imported. Never changes a value; the reader's options must
/// have asked for inspection, or merged areas, hidden rows and lines are not told.
namespace table_lint {

enum class Severity {
    Warning, ///< imported, but look at it
    Error,   ///< refused, or imported as something else than was meant
};

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

struct Finding {
    QString code; ///< stable, for programs: title.unknown, title.near, title.repeated, code.zeros,
                  ///< number.exponent, number.digits, number.invalid, number.range, number.fraction,
                  ///< number.negative, blank.invisible, digit.fullwidth, merged.hidden, row.hidden,
                  ///< text.replaced
    Severity severity = Severity::Warning;
    QString chinese; ///< sentence for the user
    QString english;
    QString sheet;           ///< empty for csv
    QString address;         ///< A1; of a whole row its number; empty where the finding is of the file
    int line = 0;            ///< of a csv file, from 1; 0: not known
    QString raw;             ///< the text in question, as stored
    QStringList suggestions; ///< titles or securities that could be meant
};

/// Whether the import passes over a row of the file: a blank one, or a note, whose first two cells are blank.
bool isPassedOver(const QStringList& row);

/// All findings, titles first, then cells row by row, at most this many.
constexpr int MaxFindings = 1000;
QList<Finding> lint(const table_reader::Table& table, const Expectation& expectation);

} // namespace table_lint
