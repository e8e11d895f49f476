// The expected buy and sell amounts above the table.

#include "amounts/Logging.h"
#include "amounts/QuoteSubscription.h"
#include "amounts/Valuation.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "host/AlgoConstants.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/CommonQuotaHandler.h"
#include "host/FuturesLogicInterface.h"
#include "host/NorvikConstants.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/ZelTableView.h"
#include "strategy/CellRoles.h"
#include "strategy/ColumnNames.h"
#include "strategy/Traits.h"
#include "ui_AlgoBatchImportParamSetting.h"

#include <QStyle>
#include <QTextDocument>

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace Side = Algo_Values::AlgoOrderSide;

constexpr double Zero = 1e-10;

const QString Buy = QStringLiteral("Buy");
const QString Sell = QStringLiteral("Sell");
const QString BothSides = QStringLiteral("Buy/Sell");
const QString NotPriced = QStringLiteral("以下标的获取行情失败，未纳入预估金额计算：%1");
const QString RedWhenDisabled = QStringLiteral("QDoubleSpinBox:!enabled{color:red;}");

/// Where the amounts find their cells; -1 where the table has no such column.
struct AmountColumns {
    int symbol, direction, quantity, amount, exchange;

    explicit AmountColumns(const QStringList& names)
        : symbol(names.indexOf(Info::Symbol)), direction(directionColumn(names)),
          quantity(names.indexOf(Info::Quantity)), amount(names.indexOf(Info::Quantity_Amount)),
          exchange(names.indexOf(Info::Exchange))
    {
    }

    /// The first column where the table has none of its own.
    static int directionColumn(const QStringList& names)
    {
        for (const QString& name : {columns::OrderDirection, Algo_Values::AlgoParamId::traderOrder}) {
            if (names.contains(name)) {
                return names.indexOf(name);
            }
        }
        return 0;
    }
};

QVariant valueOf(const RecordData& row, int column)
{
    return row.value(column).value(cell_roles::Value);
}

/// One side's sum, and the securities that could not be priced.
struct ExpectedSide {
    double sum = 0.0;
    QStringList failures;
};

struct ExpectedAmounts {
    ExpectedSide buy;
    ExpectedSide sell;
};

bool isZero(double price)
{
    return -Zero < price && price < Zero;
}

QString securitiesDirection(const QString& direction)
{
    namespace Futures = Algo_Values::FutureSide;
    if (direction == Futures::BuyOpen || direction == Futures::BuyClose) {
        return Side::BuyValue;
    }
    if (direction == Futures::SellOpen || direction == Futures::SellClose) {
        return Side::SellValue;
    }
    return direction;
}

double priceOf(const QString& symbol)
{
    if (AlgoTradeLogicNew::GetInstance()->isBondRepoSymbol(symbol)) {
        return amounts::BondRepoPrice;
    }
    return CommonQuotaHandler::getLastPriceFromTick(
        CommonQuotaHandler::instance()->GetQuotaSnapshot(symbol, 0));
}

bool isHongKongSecurity(const QString& symbol)
{
    return amounts::isHongKongSubType(SolveyBusinessDataInterface::GetSecurityDetailsBySymbol(symbol)
                                          .value(Norvik_Fields::MDCFieldDefine::mdcSubSecurityType)
                                          .toString());
}

double exchangeRate(const QString& symbol, const QString& exchange, const QString& direction)
{
    if (!isHongKongSecurity(symbol)) {
        return amounts::SideFactors().of(direction);
    }
    HKExchangeRateTable rates;
    SolveyBusinessDataInterface::GetHKStockExchangeRate(rates);
    return amounts::hongKongFactors(rates, exchange).of(direction);
}

/// What a row is worth beyond price times quantity.
struct Valuation {
    double price;
    double quantity;
    double rate;
    bool futures;
};

void addOneSide(ExpectedSide& side, const QString& symbol, const Valuation& row)
{
    if (isZero(row.price) || row.rate <= Zero) {
        side.failures.append(symbol);
        return;
    }
    const double factor =
        row.futures ? double(FuturesLogicInterface::GetFuturesBaseData(symbol).contractMultiplier) : row.rate;
    side.sum += row.price * row.quantity * factor;
}

void addBothSides(ExpectedAmounts& amounts, const QString& symbol, const Valuation& row)
{
    if (isZero(row.price)) {
        amounts.sell.failures.append(symbol);
        amounts.buy.failures.append(symbol);
        return;
    }
    amounts.buy.sum += row.price * row.quantity;
    amounts.sell.sum += row.price * row.quantity;
}

void addRow(ExpectedAmounts& amounts, const RecordData& row, const AmountColumns& at, bool futures)
{
    const QString symbol = valueOf(row, at.symbol).toString();
    const double quantity = valueOf(row, at.quantity).toDouble();
    const QString typed = valueOf(row, at.direction).toString();
    const QString direction = futures ? securitiesDirection(typed) : typed;
    const double price = priceOf(symbol);
    const double rate = exchangeRate(symbol, valueOf(row, at.exchange).toString(), direction);
    const Valuation valuation = {price, quantity, rate, futures};
    if (direction == Buy) {
        addOneSide(amounts.buy, symbol, valuation);
    } else if (direction == Sell) {
        addOneSide(amounts.sell, symbol, valuation);
    } else if (direction == BothSides) {
        addBothSides(amounts, symbol, valuation);
    }
    qCDebug(lcAmounts) << " code: " << symbol << " quantity: " << quantity << " direction: " << direction
                       << " price: " << price;
}

ExpectedAmounts sumOfAmounts(const RecordDataList& rows, const AmountColumns& at)
{
    ExpectedAmounts amounts;
    for (const RecordData& row : rows) {
        const double amount = valueOf(row, at.amount).toDouble();
        const QString direction = valueOf(row, at.direction).toString();
        if (direction == Buy) {
            amounts.buy.sum += amount;
        } else if (direction == Sell) {
            amounts.sell.sum += amount;
        }
    }
    return amounts;
}

ExpectedAmounts pricedAmounts(const RecordDataList& rows, const AmountColumns& at, bool futures)
{
    QStringList symbols;
    for (const RecordData& row : rows) {
        symbols.append(valueOf(row, at.symbol).toString());
    }
    subscribeAndAwaitQuotes(symbols);

    ExpectedAmounts amounts;
    for (const RecordData& row : rows) {
        addRow(amounts, row, at, futures);
    }
    return amounts;
}

/// A tool tip, in which Qt would draw a symbol that looks like markup as markup.
QString notPriced(const QStringList& failures)
{
    const QString text = NotPriced.arg(failures.join(QStringLiteral("、")));
    return Qt::mightBeRichText(text) ? QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped()) : text;
}

void display(const ExpectedSide& side, QWidget* dialog, SolveyDecimalLineEdit* box, QLabel* warning)
{
    box->setValue(side.sum);
    box->setToolTip(side.failures.isEmpty() ? box->text() : notPriced(side.failures));
    box->setStyleSheet(side.failures.isEmpty() ? QString() : RedWhenDisabled);
    box->style()->polish(dialog);
    warning->setHidden(side.failures.isEmpty());
    warning->setToolTip(notPriced(side.failures));
}

} // namespace

void AlgoBatchImportParamSetting::calculateExpectAmount(RecordDataList rows)
{
    const AmountColumns at(mTableHeadLst);
    const strategy::Traits traits = strategy::traitsOf(mStrategy.name());
    const ExpectedAmounts amounts = traits.has(strategy::CollateralOnly)
                                        ? sumOfAmounts(rows, at)
                                        : pricedAmounts(rows, at, traits.has(strategy::Futures));
    qCDebug(lcAmounts) << Q_FUNC_INFO << amounts.buy.sum << amounts.sell.sum << amounts.buy.failures.count()
                       << amounts.sell.failures.count();
    display(amounts.buy, this, ui->expectBuyLine, ui->label_bWarning);
    display(amounts.sell, this, ui->expectSellLine, ui->label_sWarning);
}

void AlgoBatchImportParamSetting::slotUpdateAmount()
{
    if (!ui->table_paramSettings->isVisible()) {
        return;
    }
    const RecordDataList rows = ui->table_paramSettings->getViewData();
    if (!rows.isEmpty()) {
        calculateExpectAmount(rows);
    }
}
