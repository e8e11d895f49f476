// The columns of one row, each by its kind: cells into the record, values into the parameter maps.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/ColumnNames.h"
#include "dialog/Logging.h"
#include "dialog/StrategyLists.h"
#include "host/AlgoConstants.h"
#include "host/CBusinessDataBase.h"
#include "host/SolveyConstants.h"
#include "import/ImportTexts.h"
#include "import/RowParser.h"
#include "schema/DateTimeFormat.h"
#include "schema/TranslationError.h"

#include <QDateTime>

namespace Info = Algo_Fields::AlgoInstContentInfo;

namespace {

constexpr double TenThousand = 10000.0;

const QString CreditMinAmount = QStringLiteral("10000");

QString printed(double number, int decimals)
{
    return QString::number(number, 'f', decimals);
}

/// Today at the default's time; an unreadable default is midnight.
QString defaultDateTime(const QString& defaultValue)
{
    QDateTime dateTime = QDateTime::currentDateTime();
    if (defaultValue != Algo_Values::AlgoParamOptions::currentTime) {
        dateTime.setTime(QTime::fromString(defaultValue, Qt::TextDate));
    }
    return schema::sentDateTime(dateTime);
}

} // namespace

/// Stops at the first column that drops the row.
void RowParser::fillColumns(Row& row)
{
    for (const Column& column : mColumns) {
        qCDebug(lcImport) << " index: " << column.index << " csvRowContentLst: " << row.cells
                          << " csvColumnIndexMap: " << mHeader.columnIndexMap
                          << " strColName: " << column.title;
        fillColumn(row, column);
        if (row.error) {
            row.record.clear();
            return;
        }
    }
}

void RowParser::fillColumn(Row& row, const Column& column)
{
    if (column.compulsory && row.cell(column.fileColumn).isEmpty()) {
        row.emptyTitles += column.title + import::TitleSeparator;
        return;
    }
    switch (column.kind) {
    case Kind::Code:
        return writeWithParameter(row, column, row.code, row.symbol);
    case Kind::Market:
        return writeWithParameter(row, column, row.marketName, row.exchange);
    case Kind::SecurityName: {
        const QString name = CBusinessDataBase::GetInstance()->GetSecurityChineseName(row.symbol);
        return write(row, column, name, name);
    }
    case Kind::CreateAndStart:
        return fillCreateStatus(row, column);
    case Kind::SealingAmount:
        return fillSealingAmount(row, column);
    case Kind::OrderAmount:
        return fillOrderAmount(row, column);
    case Kind::Ordinary:
        return fillOrdinary(row, column);
    }
}

void RowParser::fillCreateStatus(Row& row, const Column& column) const
{
    const QString value = row.cell(column.fileColumn);
    const QString shown = mDialog.getCreateIfStartName(value);
    if (shown == QLatin1String("-1")) {
        row.error = import::BadCreateStatus.arg(column.title);
        return;
    }
    writeWithParameter(row, column, shown, value);
}

/// Shows the amount and sends the quantity that it pays for. A quantity of 0 drops the row; false then.
bool RowParser::fillQuantityOf(double amount, Row& row, const Column& column, const QString& noQuantity) const
{
    const QString shown = printed(amount, 0);
    write(row, column, shown, shown);
    const qint64 quantity = mDialog.transBalance2Qty(row.symbol, row.direction, amount);
    if (quantity == 0) {
        row.error = noQuantity;
        return false;
    }
    mDialog.transColData2ParamMap(column.title, printed(double(quantity), 0), row.securityEntry,
                                  row.paramMap);
    return true;
}

void RowParser::fillSealingAmount(Row& row, const Column& column) const
{
    const double amount = row.cell(column.fileColumn).toDouble();
    if (fillQuantityOf(amount, row, column, import::NoSealingQuantity)) {
        row.paramMap[instance_keys::SealingAmountInTenThousands] = amount / TenThousand;
    }
}

void RowParser::fillOrderAmount(Row& row, const Column& column) const
{
    const double amount = row.cell(column.fileColumn).toDouble();
    if (CollateralOnlyStrategyList.contains(mStrategy)) {
        const QString exact = printed(amount, 2);
        return writeWithParameter(row, column, exact, exact);
    }
    if (fillQuantityOf(amount, row, column, import::NoOrderQuantity)) {
        // Deliberately crosswise: the order amount carries the quantity, the instance's quantity the money.
        row.paramMap[Info::Quantity] = printed(amount, 0);
    }
}

void RowParser::fillOrdinary(Row& row, const Column& column)
{
    if (column.optionalMissing) {
        return fillDefault(row, column);
    }
    QString value = row.cell(column.fileColumn);
    if (value.isEmpty()) {
        if (column.required) {
            row.emptyTitles += column.title + import::TitleSeparator;
            return;
        }
        return fillDefault(row, column);
    }
    QString shown;
    QString error;
    if (!translate(row, column, shown, value, error)) {
        row.error = error;
        return;
    }
    writeWithParameter(row, column, shown, value);
}

/// `value` comes in as the cell text. False and `error` when the cell cannot be translated.
bool RowParser::translate(const Row& row, const Column& column, QString& shown, QString& value,
                          QString& error)
{
    const QPair<int, QString> cell(column.index, value);
    const auto known = column.repeating ? mTranslations.constFind(cell) : mTranslations.constEnd();
    if (known != mTranslations.constEnd()) {
        shown = known->first;
        value = known->second;
        return true;
    }
    shown = mDialog.transColData2ColDataName(row.symbol, column.title, value, error);
    if (shown == schema::TranslationError) {
        return false;
    }
    if (column.repeating) {
        mTranslations.insert(cell, {shown, value});
    }
    return true;
}

void RowParser::fillDefault(Row& row, const Column& column) const
{
    QString value = column.defaultValue;
    QString shown = column.defaultShown;
    if (column.title == Info::minAmout && mAssetProp == Solvey_Values::FundAccountType::Credit) {
        value = CreditMinAmount;
    }
    if (column.dateTime) {
        value = shown = defaultDateTime(value);
    }
    writeWithParameter(row, column, shown, value);
}

void RowParser::write(Row& row, const Column& column, QString shown, QString value) const
{
    mDialog.transRecordMap(row.record, column.index, shown, value);
}

void RowParser::writeWithParameter(Row& row, const Column& column, const QString& shown,
                                   const QString& value) const
{
    write(row, column, shown, value);
    mDialog.transColData2ParamMap(column.title, value, row.securityEntry, row.paramMap);
}
