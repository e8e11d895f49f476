#pragma once

#include "host/RecordDataList.h"
#include "import/HeaderMatching.h"
#include "schema/CellTranslation.h"
#include "strategy/Strategy.h"
#include "table/Fault.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>
#include <vector>

namespace import {

/// The account that an import is for.
struct Account {
    QString tradingAccount;
    QString assetProp; ///< Solvey_Values::FundAccountType or another text
};

/// The rows behind a header.
struct DataRows {
    QList<QStringList> cells;
    QList<int> lines; ///< of the file, a row each; empty: they follow the header, which is line 1

    int lineOf(int row) const { return lines.value(row, row + 2); }
};

/// What became of data rows.
struct RowsRead {
    RecordDataList records;
    QList<QMap<QString, QVariant>> instances; ///< parameter maps; the n-th belongs to the n-th record
    QList<int> rows;                          ///< of each record its data row, from 0
    QStringList symbols;                      ///< of each record
    /// Of dropped rows. `row` counts the data rows from 1, whatever lines they stand on.
    table::Faults faults;
    std::optional<table::Fault> end; ///< what ended the reading before its last row
    int passedOver = 0;              ///< blank rows and notes
};

/// The security of every data row, notes included; empty where it is not known.
QStringList symbolsOf(const QList<QStringList>& rows, const HeaderMatch& header,
                      const strategy::Traits& traits);

/// Turns the data rows of one import into table records and parameter maps. A faulty row is dropped with one
/// fault; the other rows go on. Securities whose quotes are needed are subscribed before.
///
///     RowsRead read = RowReader(strategy, header, account, dateTimeFormat).read({rows, lines});
class RowReader {
public:
    /// Strategy and header outlive the reader.
    RowReader(const strategy::Strategy& strategy, const HeaderMatch& header, Account account,
              const QString& dateTimeFormat);

    RowsRead read(const DataRows& rows);

private:
    /// A column of the strategy, and where this file has it.
    struct Column {
        const strategy::Column& column;
        int index;            ///< in the table
        int fileColumn;       ///< in the file; -1 when it has none
        bool optionalMissing; ///< the file lacks it and may lack it
        bool repeating;       ///< a cell text means the same in every row
    };

    /// One data row on its way.
    struct Row {
        QStringList cells;
        QString code;
        QString market;
        QString direction;
        QString symbol;
        QString exchange;
        QString marketName;
        RecordData record;
        QMap<QString, QVariant> securityEntry;
        QMap<QString, QVariant> paramMap;
        QStringList emptyTitles;
        std::optional<table::Fault> fault; ///< set: the row is dropped

        /// Empty where the row is shorter, or the file has no such column.
        QString cell(int fileColumn) const { return cells.value(fileColumn); }
    };

    Row identified(const QStringList& cells) const;
    Row parsed(const QStringList& cells, bool& ends);
    const QString& codeTitle() const;
    bool isHongKongRefused(const Row& row) const;
    void resolveMarket(Row& row) const;
    void resolveAccount(Row& row) const;
    void fillPriceLimits(Row& row) const;

    void fillColumns(Row& row);
    void fillColumn(Row& row, const Column& column);
    void fillCreateStatus(Row& row, const Column& column) const;
    bool fillQuantityOf(double amount, Row& row, const Column& column, const QString& noQuantity) const;
    void fillSealingAmount(Row& row, const Column& column) const;
    void fillOrderAmount(Row& row, const Column& column) const;
    void fillOrdinary(Row& row, const Column& column);
    void fillDefault(Row& row, const Column& column) const;
    void write(Row& row, const Column& column, const QString& shown, const QString& value) const;
    void file(Row& row, const Column& column, const QString& value) const;
    void writeWithParameter(Row& row, const Column& column, const QString& shown, const QString& value) const;
    schema::Translation translated(const Row& row, const Column& column, const QString& cell);
    void drop(Row& row, const QString& title, table::Fault fault) const;

    void showWhatEntrustPropertyMeans(RecordData& record) const;
    void accept(Row& row, int index, RowsRead& read) const;

    const strategy::Strategy& mStrategy;
    const HeaderMatch& mHeader;
    const Account mAccount;
    const schema::Translator mTranslator;
    std::vector<Column> mColumns;
    int mEntrustProp; ///< in the table
    int mDirection;   ///< likewise
    /// Column and cell text -> translation. Times and choices repeat from row to row, and reading a time
    /// costs more than all else that a cell needs.
    QHash<QPair<int, QString>, schema::Translation> mTranslations;
};

} // namespace import
