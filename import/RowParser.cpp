#include "import/RowParser.h"

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/CellRoles.h"
#include "dialog/ColumnNames.h"
#include "dialog/Logging.h"
#include "dialog/StrategyLists.h"
#include "host/AlgoConstants.h"
#include "host/CBusinessDataBase.h"
#include "host/CDataBase.h"
#include "host/CommonQuotaHandler.h"
#include "host/NorvikConstants.h"
#include "host/QuotaFields.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/SolveyBusiUtils.h"
#include "host/SolveyConstants.h"
#include "import/ImportTexts.h"
#include "schema/TranslationError.h"
#include "ui_AlgoBatchImportParamSetting.h"

#include <QDateTime>
#include <QThread>

namespace Field = Algo_Fields::AlgoParamFields;
namespace Info = Algo_Fields::AlgoInstContentInfo;

namespace {

constexpr unsigned long QuoteWaitMs = 300;
constexpr double TenThousand = 10000.0;

const QString CreditMinAmount = QStringLiteral("10000");
const QString SentDateTimeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

QString cellAt(const QStringList& cells, int column)
{
    return column >= 0 && column < cells.size() ? cells.at(column) : QString();
}

bool isBlankOrNote(const QStringList& cells)
{
    if (cells.isEmpty() || (cells.size() == 1 && cells.first().isEmpty())) {
        return true;
    }
    return cells.size() > 2 && cells.at(0).trimmed().isEmpty() && cells.at(1).trimmed().isEmpty();
}

QString money(double amount, int decimals)
{
    return QString::number(amount, 'f', decimals);
}

/// Today at the default's time; an unreadable default is midnight.
QString defaultDateTime(const QString& defaultValue)
{
    QDateTime dateTime = QDateTime::currentDateTime();
    if (defaultValue != Algo_Values::AlgoParamOptions::currentTime) {
        dateTime.setTime(QTime::fromString(defaultValue, Qt::TextDate));
    }
    return dateTime.toString(SentDateTimeFormat);
}

} // namespace

RowParser::RowParser(AlgoBatchImportParamSetting& dialog, const import::HeaderMatch& header)
    : mDialog(dialog), mHeader(header), mStrategy(dialog.mStrategy.name())
{
    for (int index = 0; index < dialog.mTableHeadLst.size(); ++index) {
        mColumns.push_back(describe(dialog.mTableHeadLst.at(index), index));
    }
}

RowParser::Kind RowParser::kindOf(const QString& title)
{
    static const QMap<QString, Kind> kinds = {{columns::Code, Kind::Code},
                                              {Info::Symbol, Kind::Code},
                                              {Info::Exchange, Kind::Market},
                                              {columns::SecurityName, Kind::SecurityName},
                                              {columns::CreateAndStart, Kind::CreateAndStart},
                                              {columns::SealingAmount, Kind::SealingAmount},
                                              {Info::Quantity_Amount, Kind::OrderAmount}};
    return kinds.value(title, Kind::Ordinary);
}

RowParser::Column RowParser::describe(const QString& title, int index) const
{
    const QString no = QStringLiteral("false");
    const QMap<QString, QVariant> format = mDialog.mColParamFmtMap.value(title);
    const QVariantMap defaults = format.value(Field::strDefault).toMap();
    Column column;
    column.title = title;
    column.index = index;
    column.fileColumn = mHeader.columnIndexMap.value(title, -1);
    column.kind = kindOf(title);
    column.compulsory = mDialog.mSymbolParamLst.contains(title) || mDialog.mExtraColNameLst.contains(title);
    column.required = format.value(Field::required, no).toString() != no;
    column.optionalMissing = mHeader.optionalMissing.contains(title);
    const QString uiType = mDialog.mColUiTypeMap.value(title);
    column.dateTime = format.value(Field::ui).toString() == Algo_Values::AlgoParamUiType::DateTime;
    column.repeating =
        uiType == Algo_Values::AlgoParamUiType::DateTime || uiType == Algo_Values::AlgoParamUiType::ComboBox;
    column.defaultValue = defaults.value(Field::value).toString();
    column.defaultShown = defaults.value(Field::display).toString();
    return column;
}

/// The row as its header reads: strategies that always start on creation have that cell in front.
QStringList RowParser::completed(const QStringList& cells) const
{
    QStringList row = cells;
    if (StartOnCreateStrategyList.contains(mStrategy)) {
        row.prepend(Algo_Values::AlgoInstruction::StartOnCreate);
    }
    return row;
}

void RowParser::subscribeToQuotes(const QList<QStringList>& rows)
{
    QStringList symbols;
    for (const QStringList& cells : rows) {
        symbols.append(identified(cells).symbol);
    }
    CommonQuotaHandler::instance()->SubscribeQuota(symbols, true, 0);
    QThread::msleep(QuoteWaitMs);
    mTradingAccount = mDialog.ui->combx_account->GetCurTradingAccount();
    mAssetProp = mDialog.ui->combx_account->GetCurAccountAssetProp();
}

QString RowParser::parse(const QList<QStringList>& rows, RecordDataList& records, QMap<int, QString>& errors)
{
    for (int i = 0; i < rows.size(); ++i) {
        if (isBlankOrNote(rows.at(i))) {
            continue;
        }
        Row row = identified(rows.at(i));
        if (CBusinessDataBase::GetInstance()->GetSecurityExchangeBySymbol(row.symbol).isEmpty()) {
            errors[i] = import::UnknownCode.arg(row.code);
            continue;
        }
        if (isHongKongRefused(row)) {
            return import::NoHongKong;
        }
        resolveAccount(row);
        if (!row.error) {
            fillColumns(row);
        }
        if (!row.emptyTitles.isEmpty()) {
            row.emptyTitles.chop(import::TitleSeparator.size());
            errors[i] = import::EmptyCells.arg(row.emptyTitles);
        } else if (row.error) {
            errors[i] = *row.error;
        } else if (!row.record.isEmpty()) {
            accept(row, records);
        }
    }
    if (AilockStrategyList.contains(mStrategy)) {
        mDialog.processParams4AILOCK(records, errors);
    }
    SolveyBusinessDataInterface::CheckSymbolRiskInfo(mRiskSymbols, import::RiskSource);
    return import::Ok;
}

/// Reads which security a row means.
RowParser::Row RowParser::identified(const QStringList& cells) const
{
    Row row;
    row.cells = completed(cells);
    const auto cellOf = [&](const QString& title) {
        return cellAt(row.cells, mHeader.columnIndexMap.value(title, -1));
    };
    const QString codeTitle = mHeader.columnIndexMap.contains(Info::Symbol) ? Info::Symbol : columns::Code;
    row.code = cellOf(codeTitle);
    row.market = cellOf(Info::Exchange);
    row.direction = cellOf(Algo_Values::AlgoParamId::traderOrder);
    row.symbol = SolveyBusinessDataInterface::GetSymbolBySecurityIDAndExchange(row.code, row.market);
    return row;
}

bool RowParser::isHongKongRefused(const Row& row) const
{
    return !mDialog.mStrategyCodeLst.contains(mStrategy) &&
           CBusinessDataBase::GetInstance()->GetSymbolPostBySymbol(row.symbol) ==
               Norvik_Values::SymbolPost::hk;
}

void RowParser::resolveAccount(Row& row) const
{
    row.exchange = SolveyBusiUtils::NormalizeSecurityExchange(row.market);
    row.marketName = CDataBase::GetInstance()->GetStaticCfgValue(MarketNameSection, row.exchange);
    const QString securityAccount =
        SolveyBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(mTradingAccount,
                                                                                   row.exchange);
    if (securityAccount.isEmpty()) {
        row.error = import::MarketMismatch.arg(row.symbol);
        return;
    }
    row.securityEntry[Info::TradingAccount] = mTradingAccount;
    row.securityEntry[Info::SecurityAccount] = securityAccount;
    if (PriceLimitStrategyList.contains(mStrategy)) {
        fillPriceLimits(row);
    }
}

void RowParser::fillPriceLimits(Row& row) const
{
    const QMap<QString, QVariant> quote = CommonQuotaHandler::instance()->GetQuotaSnapshot(row.symbol, 0);
    qCDebug(lcImport) << " quote: " << quote;
    row.securityEntry[Info::maxPrice] = quote.value(QuotaFields::MaxPx).toString();
    row.securityEntry[Info::preClosePrice] = quote.value(QuotaFields::PreClosePx).toString();
}

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
    if (column.compulsory && cellAt(row.cells, column.fileColumn).isEmpty()) {
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
    const QString value = cellAt(row.cells, column.fileColumn);
    const QString shown = mDialog.getCreateIfStartName(value);
    if (shown == QLatin1String("-1")) {
        row.error = import::BadCreateStatus.arg(column.title);
        return;
    }
    writeWithParameter(row, column, shown, value);
}

void RowParser::fillSealingAmount(Row& row, const Column& column) const
{
    const double amount = cellAt(row.cells, column.fileColumn).toDouble();
    const QString shown = money(amount, 0);
    write(row, column, shown, shown);
    const qint64 quantity = mDialog.transBalance2Qty(row.symbol, row.direction, amount);
    if (quantity == 0) {
        row.error = import::NoSealingQuantity;
        return;
    }
    mDialog.transColData2ParamMap(column.title, QString::number(quantity), row.securityEntry, row.paramMap);
    row.paramMap[instance_keys::SealingAmountInTenThousands] = amount / TenThousand;
}

void RowParser::fillOrderAmount(Row& row, const Column& column) const
{
    const double amount = cellAt(row.cells, column.fileColumn).toDouble();
    if (CollateralOnlyStrategyList.contains(mStrategy)) {
        const QString exact = money(amount, 2);
        return writeWithParameter(row, column, exact, exact);
    }
    const QString shown = money(amount, 0);
    write(row, column, shown, shown);
    const qint64 quantity = mDialog.transBalance2Qty(row.symbol, row.direction, amount);
    if (quantity == 0) {
        row.error = import::NoOrderQuantity;
        return;
    }
    mDialog.transColData2ParamMap(column.title, QString::number(quantity), row.securityEntry, row.paramMap);
    // Deliberately crosswise: the order amount carries the quantity, the instance's quantity the money.
    row.paramMap[Info::Quantity] = shown;
}

void RowParser::fillOrdinary(Row& row, const Column& column)
{
    if (column.optionalMissing) {
        return fillDefault(row, column);
    }
    QString value = cellAt(row.cells, column.fileColumn);
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

/// Entrust property 6 finances a purchase and repays by a sale; its one option text tells neither.
void RowParser::showWhatEntrustPropertyMeans(RecordData& record) const
{
    const bool bothColumns = mHeader.directionColumn >= 0 && mHeader.entrustPropColumn >= 0;
    if (!bothColumns || !CreateStatusStrategyList.contains(mStrategy)) {
        return;
    }
    const QStringList& titles = mDialog.mTableHeadLst;
    const int entrustProp = titles.indexOf(Algo_Values::AlgoParamId::entrustProp);
    if (record.value(entrustProp).value(cell_roles::Value) != Algo_Values::entrustProp::financingBuy) {
        return;
    }
    const QVariant direction =
        record.value(titles.indexOf(Algo_Values::AlgoParamId::traderOrder)).value(cell_roles::Value);
    if (direction == Algo_Values::AlgoOrderSide::BuyValue) {
        record[entrustProp][cell_roles::Shown] = import::FinancingBuy;
    } else if (direction == Algo_Values::AlgoOrderSide::SellValue) {
        record[entrustProp][cell_roles::Shown] = import::SellToRepay;
    }
}

void RowParser::accept(Row& row, RecordDataList& records)
{
    showWhatEntrustPropertyMeans(row.record);
    records.append(row.record);

    CBusinessDataBase* data = CBusinessDataBase::GetInstance();
    row.securityEntry[Info::SymbolMdcType] = data->GetSecuritySubTypeBySymbol(row.symbol);
    row.paramMap[Algo_Values::AlgoParamId::AlgoSecurityList] = QVariantList{row.securityEntry};
    row.paramMap[Info::TradingAccount] = mTradingAccount;
    const QString node =
        data->GetSysNodeIDByAccount({{Norvik_Fields::UserAccount::tradingAccount, mTradingAccount}});
    qCDebug(lcImport) << "get sysnodeid by trading account return:" << node;
    row.paramMap[instance_keys::SysNodeId] = node;
    row.paramMap[instance_keys::BatchCreate] = QString();
    qCDebug(lcImport) << "single param data: "
                      << " insAndSymbolVarMap: " << row.paramMap;

    mRiskSymbols.append(row.symbol);
    mDialog.mAllParamVarMapLst.append(row.paramMap);
}
