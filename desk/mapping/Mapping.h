#pragma once

#include "table/Outcome.h"
#include "table/Table.h"

#include <QDate>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

class ReferenceData;

/// How a stranger's table is told in the words of the import: which sheet and line, which column is which,
/// which value is which.
namespace mapping {

/// Titles are looked for so far down.
constexpr int MostTitleRows = 100;

/// How the cells of a column are told anew, where no value says it. What a form does not read for certain
/// stays as it stands, for the file check and the import to complain of.
enum class Form {
    AsIs,
    Code,     ///< 600000.SH, SH600000 -> 600000, and the market SH
    Quantity, ///< 1,000 and 1,000.00 -> 1000; a fraction that is not 0 stays
    Amount,   ///< 1,234.50 -> 1234.50; more than two decimals stay
    Decimal,  ///< 1,234.50 -> 1234.50; 1,680 alone may be a fraction, and stays
    DateTime, ///< 2026/11/23 9:35, 20261123 093500 -> 2026-11-23 09:35:00; 9:35 is today's
};

/// In which order a date of two small numbers names them.
enum class DateOrder { YearFirst, DayFirst, MonthFirst };

struct Column {
    QString from;   ///< title in the file, as it stands
    int number = 1; ///< of several columns with the same title: the first, the second, …
    QString to;     ///< the strategy's column
    Form form = Form::AsIs;
    DateOrder order = DateOrder::YearFirst;
    /// Text in the file -> text that the import takes. Blanks around it and letter case do not count. A cell
    /// of two legs, B/S, is told leg by leg.
    QMap<QString, QString> values;
};

/// What is not named here stays out of the import.
///
///     {"strategy": "AITWAP", "headerLine": 2,
///      "columns": [{"from": "Ticker", "to": "证券代码", "form": "code"},
///                  {"from": "Side", "to": "交易方向", "values": {"B": "1", "S": "2"}},
///                  {"from": "Qty", "to": "委托数量", "form": "quantity"}],
///      "constants": {"委托属性": "0", "创建后是否立即启动": "0"}}
struct Mapping {
    QString strategy;   ///< code
    QString sheet;      ///< empty: the one that the reader chooses
    int headerLine = 0; ///< of the file, from 1; 0: the first line that has all titles
    QList<Column> columns;
    QMap<QString, QString> constants; ///< column that the file lacks -> its text in every row

    /// Null where no column of the file is this one of the strategy.
    const Column* columnTo(const QString& title) const;
};

/// What is known beside table and strategy.
struct Surroundings {
    /// Spelling of a market or suffix of a code, in capitals -> codes of the exchanges that it may mean:
    /// XSHG -> SH, HK -> HKSH and HKSZ.
    QMap<QString, QStringList> markets;
    QMap<QString, QStringList> postfixes; ///< of symbols, likewise
    QSet<QString> codes;                  ///< of the securities that are known
    QDate today;                          ///< of the exchange
};

/// Those of the reference data, and today in Shanghai.
Surroundings surroundingsOf(const ReferenceData& data);

/// The table in the import's own words: a header of the strategy's titles, code and market in front, and
/// every row below the header line with its line of the file. Fails with a sentence for the user where sheet,
/// header line or a title is not there. The table must have been read from the mapping's sheet.
///
///     Outcome<table::Table> own = apply(mapping, file.table, surroundingsOf(data));
Outcome<table::Table> apply(const Mapping& mapping, const table::Table& table,
                            const Surroundings& surroundings);

/// The row of the table that has the mapping's titles; -1: none has.
int headerRow(const Mapping& mapping, const table::Table& table);

QJsonObject toJson(const Mapping& mapping);
/// As the first of what was changed on the desk in a batch's file: {"edit": "map", "mapping": {…}}.
QJsonObject asEdit(const Mapping& mapping);
/// The error names each thing that is wrong by its path, such as columns[2].form.
Outcome<Mapping> fromJson(const QByteArray& json);
/// The same of a file; the error names it.
Outcome<Mapping> readFile(const QString& path);

} // namespace mapping
