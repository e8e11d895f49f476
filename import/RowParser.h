#pragma once

#include "host/RecordDataList.h"
#include "import/HeaderMatching.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>
#include <vector>

class AlgoBatchImportParamSetting;

/// Turns the data rows of one import into table records and parameter maps.
///
///     RowParser parser(dialog, header);
///     parser.subscribeToQuotes(rows);            // blocks for 300 ms
///     result = parser.parse(rows, records, errors);
///
/// Faulty rows are dropped, each with one error text under its 0-based index; the other rows go on.
class RowParser {
public:
    RowParser(AlgoBatchImportParamSetting& dialog, const import::HeaderMatch& header);

    /// One subscription for all securities, so that their first quotes are there when the rows are parsed.
    void subscribeToQuotes(const QList<QStringList>& rows);
    /// "0", or a text that ends the import.
    QString parse(const QList<QStringList>& rows, RecordDataList& records, QMap<int, QString>& errors);

private:
    /// How a table column is read.
    enum class Kind { Code, Market, SecurityName, CreateAndStart, SealingAmount, OrderAmount, Ordinary };

    /// What is known of a table column before any row is read.
    struct Column {
        QString title;
        int index;      ///< in the table
        int fileColumn; ///< in the file; -1 when it has none
        Kind kind;
        bool compulsory;      ///< an empty cell is an error
        bool required;        ///< likewise, by the parameter's own attribute
        bool optionalMissing; ///< the file lacks it and may lack it
        bool dateTime;
        bool repeating; ///< a cell text means the same in every row
        QString defaultValue;
        QString defaultShown;
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
        QString emptyTitles;          ///< each followed by a separator
        std::optional<QString> error; ///< set: the row is dropped (the text itself may be empty)

        /// Empty where the row is shorter, or the file has no such column.
        QString cell(int fileColumn) const { return cells.value(fileColumn); }
    };

    static Kind kindOf(const QString& title);
    Column describe(const QString& title, int index) const;
    QStringList completed(const QStringList& cells) const;
    Row identified(const QStringList& cells) const;
    bool translate(const Row& row, const Column& column, QString& shown, QString& value, QString& error);
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
    void write(Row& row, const Column& column, QString shown, QString value) const;
    void writeWithParameter(Row& row, const Column& column, const QString& shown, const QString& value) const;

    void showWhatEntrustPropertyMeans(RecordData& record) const;
    void accept(Row& row, RecordDataList& records);

    AlgoBatchImportParamSetting& mDialog;
    const import::HeaderMatch& mHeader;
    QString mStrategy;
    QString mTradingAccount;
    QString mAssetProp;
    std::vector<Column> mColumns;
    /// Column and cell text -> shown text and value. Times and choices repeat from row to row, and reading a
    /// time costs more than all else that a cell needs.
    QHash<QPair<int, QString>, QPair<QString, QString>> mTranslations;
    QStringList mRiskSymbols;
};
