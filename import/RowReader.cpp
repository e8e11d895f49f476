#include "import/RowReader.h"

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
#include "import/Logging.h"
#include "strategy/CellRoles.h"
#include "strategy/ColumnNames.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "table/Table.h"
#include "validation/AccountNode.h"

namespace import {

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace UiType = Algo_Values::AlgoParamUiType;
namespace rule = table::rule;

const QString& codeTitleOf(const HeaderMatch& header)
{
    return header.columnIndexMap.contains(Info::Symbol) ? Info::Symbol : columns::Code;
}

QString symbolOf(const QString& code, const QString& market)
{
    return SolveyBusinessDataInterface::GetSymbolBySecurityIDAndExchange(code, market);
}

} // namespace

QStringList symbolsOf(const QList<QStringList>& rows, const HeaderMatch& header,
                      const strategy::Traits& traits)
{
    const int code = header.columnOf(codeTitleOf(header));
    const int market = header.columnOf(Info::Exchange);
    QStringList symbols;
    for (const QStringList& row : rows) {
        const QStringList cells = completedRow(row, traits);
        symbols.append(symbolOf(cells.value(code), cells.value(market)));
    }
    return symbols;
}

RowReader::RowReader(const strategy::Strategy& strategy, const HeaderMatch& header, Account account,
                     const QString& dateTimeFormat)
    : mStrategy(strategy), mHeader(header),
      mAccount(std::move(account)), mTranslator{strategy.traits.has(strategy::Lock), dateTimeFormat}
{
    const QStringList titles = strategy.titles();
    mEntrustProp = titles.indexOf(Algo_Values::AlgoParamId::entrustProp);
    mDirection = titles.indexOf(Algo_Values::AlgoParamId::traderOrder);
    for (int index = 0; index < strategy.columns.size(); ++index) {
        const strategy::Column& column = strategy.columns.at(index);
        mColumns.push_back({column, index, header.columnOf(column.title),
                            header.optionalMissing.contains(column.title),
                            column.editor == UiType::DateTime || column.editor == UiType::ComboBox});
    }
}

RowsRead RowReader::read(const DataRows& rows)
{
    RowsRead read;
    for (int i = 0; i < rows.cells.size(); ++i) {
        if (table::isBlankOrNote(rows.cells.at(i))) {
            ++read.passedOver;
            continue;
        }
        bool ends = false;
        Row row = parsed(rows.cells.at(i), ends);
        if (!row.fault) {
            if (!row.record.isEmpty()) {
                accept(row, i, read);
            }
            continue;
        }
        row.fault->line = rows.lineOf(i);
        row.fault->row = i + 1;
        if (ends) {
            read.end = row.fault;
            return read;
        }
        read.faults.append(*row.fault);
    }
    return read;
}

/// `ends`: the fault is not the row's alone.
RowReader::Row RowReader::parsed(const QStringList& cells, bool& ends)
{
    Row row = identified(cells);
    resolveMarket(row);
    if (CBusinessDataBase::GetInstance()->GetSecurityExchangeBySymbol(row.symbol).isEmpty()) {
        drop(row, codeTitle(), table::fault(rule::UnknownCode, {row.code}));
        return row;
    }
    if (isHongKongRefused(row)) {
        drop(row, codeTitle(), table::fault(rule::NoHongKong));
        ends = true;
        return row;
    }
    resolveAccount(row);
    if (!row.fault) {
        fillColumns(row);
    }
    if (!row.emptyTitles.isEmpty()) {
        drop(row, row.emptyTitles.first(),
             table::fault(rule::EmptyCells, {row.emptyTitles.join(TitleSeparator)}));
    }
    return row;
}

const QString& RowReader::codeTitle() const
{
    return codeTitleOf(mHeader);
}

/// Reads which security a row means.
RowReader::Row RowReader::identified(const QStringList& cells) const
{
    Row row;
    row.cells = completedRow(cells, mStrategy.traits);
    row.code = row.cell(mHeader.columnOf(codeTitle()));
    row.market = row.cell(mHeader.columnOf(Info::Exchange));
    row.direction = row.cell(mHeader.columnOf(Algo_Values::AlgoParamId::traderOrder));
    row.symbol = symbolOf(row.code, row.market);
    return row;
}

bool RowReader::isHongKongRefused(const Row& row) const
{
    return !mStrategy.traits.has(strategy::HongKong) &&
           CBusinessDataBase::GetInstance()->GetSymbolPostBySymbol(row.symbol) ==
               Norvik_Values::SymbolPost::hk;
}

void RowReader::resolveMarket(Row& row) const
{
    row.exchange = SolveyBusiUtils::NormalizeSecurityExchange(row.market);
    row.marketName =
        CDataBase::GetInstance()->GetStaticCfgValue(SolveyConstants::MarketNameSection, row.exchange);
}

void RowReader::resolveAccount(Row& row) const
{
    const QString securityAccount =
        SolveyBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(mAccount.tradingAccount,
                                                                                   row.exchange);
    if (securityAccount.isEmpty()) {
        return drop(row, Info::Exchange, table::fault(rule::MarketMismatch, {row.market, row.symbol}));
    }
    row.securityEntry[Info::TradingAccount] = mAccount.tradingAccount;
    row.securityEntry[Info::SecurityAccount] = securityAccount;
    if (mStrategy.traits.has(strategy::PriceLimit)) {
        fillPriceLimits(row);
    }
}

void RowReader::fillPriceLimits(Row& row) const
{
    const QMap<QString, QVariant> quote = CommonQuotaHandler::instance()->GetQuotaSnapshot(row.symbol, 0);
    qCDebug(lcImport) << " quote: " << quote;
    row.securityEntry[Info::maxPrice] = quote.value(QuotaFields::MaxPx).toString();
    row.securityEntry[Info::preClosePrice] = quote.value(QuotaFields::PreClosePx).toString();
}

/// Entrust property 6 finances a purchase and repays by a sale; its one option text tells neither.
void RowReader::showWhatEntrustPropertyMeans(RecordData& record) const
{
    const bool bothColumns = mHeader.directionColumn >= 0 && mHeader.entrustPropColumn >= 0;
    if (!bothColumns || !mStrategy.traits.has(strategy::TellsRepayment) ||
        record.value(mEntrustProp).value(cell_roles::Value) != Algo_Values::entrustProp::financingBuy) {
        return;
    }
    const QVariant direction = record.value(mDirection).value(cell_roles::Value);
    if (direction == Algo_Values::AlgoOrderSide::BuyValue) {
        record[mEntrustProp][cell_roles::Shown] = FinancingBuy;
    } else if (direction == Algo_Values::AlgoOrderSide::SellValue) {
        record[mEntrustProp][cell_roles::Shown] = SellToRepay;
    }
}

void RowReader::accept(Row& row, int index, RowsRead& read) const
{
    showWhatEntrustPropertyMeans(row.record);
    row.securityEntry[Info::SymbolMdcType] =
        CBusinessDataBase::GetInstance()->GetSecuritySubTypeBySymbol(row.symbol);
    row.paramMap[Algo_Values::AlgoParamId::AlgoSecurityList] = QVariantList{row.securityEntry};
    row.paramMap[Info::TradingAccount] = mAccount.tradingAccount;
    row.paramMap[instance_keys::SysNodeId] = validation::nodeOf(mAccount.tradingAccount);
    row.paramMap[instance_keys::BatchCreate] = QString();
    qCDebug(lcImport) << "single param data: "
                      << " insAndSymbolVarMap: " << row.paramMap;

    read.records.append(row.record);
    read.instances.append(row.paramMap);
    read.rows.append(index);
    read.symbols.append(row.symbol);
}

void RowReader::drop(Row& row, const QString& title, table::Fault fault) const
{
    place(fault, mHeader, title, row.cells);
    row.fault = std::move(fault);
    row.record.clear();
}

} // namespace import
