// The columns of one row, each by its kind: cells into the record, values into the parameter maps.

#include "amounts/BalanceToQuantity.h"
#include "host/AlgoConstants.h"
#include "host/CBusinessDataBase.h"
#include "host/SolveyConstants.h"
#include "import/Logging.h"
#include "import/RowReader.h"
#include "schema/CreateStatus.h"
#include "schema/DateTimeFormat.h"
#include "schema/RecordBuilding.h"
#include "strategy/ColumnNames.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"

#include <QDateTime>

namespace import {

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace rule = table::rule;

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
void RowReader::fillColumns(Row& row)
{
    for (const Column& column : mColumns) {
        qCDebug(lcImport) << " index: " << column.index << " csvRowContentLst: " << row.cells
                          << " csvColumnIndexMap: " << mHeader.columnIndexMap
                          << " strColName: " << column.column.title;
        fillColumn(row, column);
        if (row.fault) {
            return;
        }
    }
}

void RowReader::fillColumn(Row& row, const Column& column)
{
    if (column.column.compulsory && row.cell(column.fileColumn).isEmpty()) {
        row.emptyTitles.append(column.column.title);
        return;
    }
    switch (column.column.kind) {
    case strategy::Kind::Code:
        return writeWithParameter(row, column, row.code, row.symbol);
    case strategy::Kind::Market:
        return writeWithParameter(row, column, row.marketName, row.exchange);
    case strategy::Kind::SecurityName: {
        const QString name = CBusinessDataBase::GetInstance()->GetSecurityChineseName(row.symbol);
        return write(row, column, name, name);
    }
    case strategy::Kind::CreateAndStart:
        return fillCreateStatus(row, column);
    case strategy::Kind::SealingAmount:
        return fillSealingAmount(row, column);
    case strategy::Kind::OrderAmount:
        return fillOrderAmount(row, column);
    case strategy::Kind::Ordinary:
        return fillOrdinary(row, column);
    }
}

void RowReader::fillCreateStatus(Row& row, const Column& column) const
{
    const QString value = row.cell(column.fileColumn);
    const QString shown = schema::shownCreateStatus(value);
    if (shown == schema::UnknownText) {
        const QString& title = column.column.title;
        return drop(row, title, table::fault(rule::BadCreateStatus, {title}));
    }
    writeWithParameter(row, column, shown, value);
}

/// Shows the amount and sends the quantity that it pays for. A quantity of 0 drops the row; false then.
bool RowReader::fillQuantityOf(double amount, Row& row, const Column& column, const QString& noQuantity) const
{
    const QString shown = printed(amount, 0);
    write(row, column, shown, shown);
    const qint64 quantity = amounts::quantityFor(row.symbol, row.direction, amount);
    if (quantity == 0) {
        drop(row, column.column.title, table::fault(noQuantity));
        return false;
    }
    file(row, column, printed(double(quantity), 0));
    return true;
}

void RowReader::fillSealingAmount(Row& row, const Column& column) const
{
    const double amount = row.cell(column.fileColumn).toDouble();
    if (fillQuantityOf(amount, row, column, rule::NoSealingQuantity)) {
        row.paramMap[instance_keys::SealingAmountInTenThousands] = amount / TenThousand;
    }
}

void RowReader::fillOrderAmount(Row& row, const Column& column) const
{
    const double amount = row.cell(column.fileColumn).toDouble();
    if (mStrategy.traits.has(strategy::CollateralOnly)) {
        const QString exact = printed(amount, 2);
        return writeWithParameter(row, column, exact, exact);
    }
    if (fillQuantityOf(amount, row, column, rule::NoOrderQuantity)) {
        // Deliberately crosswise: the order amount carries the quantity, the instance's quantity the money.
        row.paramMap[Info::Quantity] = printed(amount, 0);
    }
}

void RowReader::fillOrdinary(Row& row, const Column& column)
{
    if (column.optionalMissing) {
        return fillDefault(row, column);
    }
    const QString cell = row.cell(column.fileColumn);
    if (cell.isEmpty()) {
        if (column.column.required) {
            row.emptyTitles.append(column.column.title);
            return;
        }
        return fillDefault(row, column);
    }
    const schema::Translation translation = translated(row, column, cell);
    if (!translation.ok()) {
        return drop(row, column.column.title, translation.fault.value_or(table::fault(rule::ReservedText)));
    }
    writeWithParameter(row, column, translation.shown, translation.value);
}

schema::Translation RowReader::translated(const Row& row, const Column& column, const QString& cell)
{
    if (!column.repeating) {
        return mTranslator.translated(column.column, row.symbol, cell);
    }
    const QPair<int, QString> key(column.index, cell);
    const auto known = mTranslations.constFind(key);
    if (known != mTranslations.constEnd()) {
        return *known;
    }
    const schema::Translation translation = mTranslator.translated(column.column, row.symbol, cell);
    if (translation.ok()) {
        mTranslations.insert(key, translation);
    }
    return translation;
}

void RowReader::fillDefault(Row& row, const Column& column) const
{
    QString value = column.column.defaultValue;
    QString shown = column.column.defaultShown;
    if (column.column.title == Info::minAmout &&
        mAccount.assetProp == Solvey_Values::FundAccountType::Credit) {
        value = CreditMinAmount;
    }
    if (column.column.editor == Algo_Values::AlgoParamUiType::DateTime) {
        value = shown = defaultDateTime(value);
    }
    writeWithParameter(row, column, shown, value);
}

void RowReader::write(Row& row, const Column& column, const QString& shown, const QString& value) const
{
    schema::writeCell(row.record, column.index, shown, value);
}

void RowReader::file(Row& row, const Column& column, const QString& value) const
{
    schema::fileValue({mStrategy.securityParameters, mStrategy.instanceParameters},
                      {column.column.title, column.column.id}, value, row.securityEntry, row.paramMap);
}

void RowReader::writeWithParameter(Row& row, const Column& column, const QString& shown,
                                   const QString& value) const
{
    write(row, column, shown, value);
    file(row, column, value);
}

} // namespace import
