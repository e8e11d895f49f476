#include "import/RowParser.h"

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/CellRoles.h"
#include "dialog/ColumnNames.h"
#include "dialog/Logging.h"
#include "dialog/QuoteSubscription.h"
#include "dialog/StrategyLists.h"
#include "host/AlgoConstants.h"
#include "host/CBusinessDataBase.h"
#include "host/CDataBase.h"
#include "host/CommonQuotaHandler.h"
#include "host/NorvikConstants.h"
#include "host/QuotaFields.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/SolveyBusiUtils.h"
#include "import/ImportTexts.h"
#include "ui_AlgoBatchImportParamSetting.h"

namespace Field = Algo_Fields::AlgoParamFields;
namespace Info = Algo_Fields::AlgoInstContentInfo;

namespace {

bool isBlankOrNote(const QStringList& cells)
{
    if (cells.isEmpty() || (cells.size() == 1 && cells.first().isEmpty())) {
        return true;
    }
    return cells.size() > 2 && cells.at(0).trimmed().isEmpty() && cells.at(1).trimmed().isEmpty();
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
    subscribeAndAwaitQuotes(symbols);
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
        resolveMarket(row);
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
        return row.cell(mHeader.columnIndexMap.value(title, -1));
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

void RowParser::resolveMarket(Row& row) const
{
    row.exchange = SolveyBusiUtils::NormalizeSecurityExchange(row.market);
    row.marketName = CDataBase::GetInstance()->GetStaticCfgValue(MarketNameSection, row.exchange);
}

void RowParser::resolveAccount(Row& row) const
{
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
