#include "embedded_host/reference_data/ReferenceColumns.h"

#include "embedded_host/reference_data/ReferenceFaults.h"
#include "host/QuotaFields.h"
#include "host/SolveyConstants.h"

#include <QtNumeric>

#include <array>
#include <limits>

namespace {

constexpr QChar ListSeparator = QLatin1Char('|');
constexpr int LongestCode = 32;     ///< characters; codes are padded up to it
constexpr int FinestPrecision = 15; ///< decimals that a double can hold

template <typename Row> ReferenceColumn<Row> text(const char* name, QString Row::*field)
{
    return {QString::fromLatin1(name),
            [field](Row& row, const QString& cell) {
                row.*field = cell;
                return QString();
            },
            [field](const Row& row) { return row.*field; }};
}

template <typename Row> ReferenceColumn<Row> key(const char* name, QString Row::*field)
{
    ReferenceColumn<Row> column = text(name, field);
    column.kind = ReferenceColumn<Row>::Key;
    return column;
}

QStringList splitList(const QString& cell)
{
    QStringList parts;
    for (const QString& part : cell.split(ListSeparator)) {
        const QString trimmed = part.trimmed();
        if (!trimmed.isEmpty()) {
            parts.append(trimmed);
        }
    }
    return parts;
}

/// Texts separated by a vertical bar; blanks around them and empty ones are dropped.
template <typename Row> ReferenceColumn<Row> list(const char* name, QStringList Row::*field)
{
    return {QString::fromLatin1(name),
            [field](Row& row, const QString& cell) {
                row.*field = splitList(cell);
                return QString();
            },
            [field](const Row& row) { return (row.*field).join(ListSeparator); }};
}

template <typename Row>
ReferenceColumn<Row> whole(const char* name, int Row::*field, int least = std::numeric_limits<int>::min(),
                           int most = std::numeric_limits<int>::max())
{
    const QString column = QString::fromLatin1(name);
    return {column,
            [=](Row& row, const QString& cell) {
                bool isWhole = false;
                row.*field = cell.toInt(&isWhole);
                if (!isWhole) {
                    return reference_faults::notWhole(column, cell);
                }
                const bool fits = row.*field >= least && row.*field <= most;
                return fits ? QString() : reference_faults::outOfRange(column, cell, least, most);
            },
            [field](const Row& row) { return QString::number(row.*field); }};
}

template <typename Row> ReferenceColumn<Row> flag(const char* name, bool Row::*field)
{
    const QString column = QString::fromLatin1(name);
    return {column,
            [=](Row& row, const QString& cell) {
                row.*field = cell == QLatin1String("1");
                const bool isFlag = row.*field || cell == QLatin1String("0");
                return isFlag ? QString() : reference_faults::notFlag(column, cell);
            },
            [field](const Row& row) { return QString::number(row.*field ? 1 : 0); }};
}

/// A price or rate that stays the text that it is, under its own name; an empty cell leaves it out.
template <typename Row> ReferenceColumn<Row> number(const QString& name, QMap<QString, QVariant> Row::*fields)
{
    return {name,
            [=](Row& row, const QString& cell) {
                bool isNumber = false;
                const double value = cell.toDouble(&isNumber);
                if (!isNumber || !qIsFinite(value)) {
                    return reference_faults::notNumber(name, cell);
                }
                if (value < 0) {
                    return reference_faults::negative(name, cell);
                }
                (row.*fields).insert(name, cell);
                return QString();
            },
            [=](const Row& row) { return (row.*fields).value(name).toString(); }};
}

/// One argument of a strategy's constructor; strategies are immutable, so reading one makes a new one.
using StrategyTexts = std::array<QString, 4>;

StrategyTexts textsOf(const AesStrategy& strategy)
{
    return {strategy.name(), strategy.alias(), strategy.paramFormats(), strategy.globalType()};
}

ReferenceColumn<AesStrategy> strategyText(const char* name, std::size_t position)
{
    return {QString::fromLatin1(name),
            [position](AesStrategy& strategy, const QString& cell) {
                StrategyTexts texts = textsOf(strategy);
                texts[position] = cell;
                strategy = AesStrategy(texts[0], texts[1], texts[2], texts[3]);
                return QString();
            },
            [position](const AesStrategy& strategy) { return textsOf(strategy)[position]; },
            position == 0 ? ReferenceColumn<AesStrategy>::Key : ReferenceColumn<AesStrategy>::Ordinary};
}

void defaultAssetProp(tagUserAccountInfo& account)
{
    if (account.assetProp.isEmpty()) {
        account.assetProp = account.fundAccountType;
    }
}

} // namespace

const ReferenceTable<Market>& marketTable()
{
    static const ReferenceTable<Market> table{
        QStringLiteral("markets"),
        &ReferenceTables::markets,
        {key("exchange", &Market::exchange), text("name", &Market::name), text("post", &Market::post),
         whole("codeLength", &Market::codeLength, 0, LongestCode), list("aliases", &Market::aliases)},
        ReferenceTable<Market>::Required};
    return table;
}

const ReferenceTable<Security>& securityTable()
{
    static const ReferenceTable<Security> table{
        QStringLiteral("securities"),
        &ReferenceTables::securities,
        {key("symbol", &Security::symbol), text("code", &Security::code), text("name", &Security::name),
         text("post", &Security::post), list("exchanges", &Security::exchanges),
         text("securityType", &Security::securityType), text("subType", &Security::subType),
         whole("dispFactor", &Security::dispFactor, 0), whole("minQtyPerOrder", &Security::minQtyPerOrder, 0),
         whole("qtyStep", &Security::qtyStep, 0),
         whole("pricePrecision", &Security::pricePrecision, 0, FinestPrecision),
         flag("bondRepo", &Security::bondRepo)},
        ReferenceTable<Security>::Required};
    return table;
}

const ReferenceTable<FuturesContract>& futuresTable()
{
    static const ReferenceTable<FuturesContract> table{
        QStringLiteral("futures"),
        &ReferenceTables::futures,
        {key("symbol", &FuturesContract::symbol), whole("multiplier", &FuturesContract::multiplier, 0),
         whole("pricePrecision", &FuturesContract::pricePrecision, 0, FinestPrecision)}};
    return table;
}

const ReferenceTable<tagUserAccountInfo>& accountTable()
{
    using Account = tagUserAccountInfo;
    static const ReferenceTable<Account> table{
        QStringLiteral("accounts"),
        &ReferenceTables::accounts,
        {key("tradingAccount", &Account::tradingAccount), text("name", &Account::name),
         text("fundAccountType", &Account::fundAccountType), text("assetProp", &Account::assetProp),
         text("sysNodeId", &Account::sysNodeId)},
        ReferenceTable<Account>::Required,
        ReferenceTable<Account>::Unique,
        defaultAssetProp};
    return table;
}

const ReferenceTable<SecurityAccount>& securityAccountTable()
{
    static const ReferenceTable<SecurityAccount> table{
        QStringLiteral("security_accounts"),
        &ReferenceTables::securityAccounts,
        {key("tradingAccount", &SecurityAccount::tradingAccount), key("exchange", &SecurityAccount::exchange),
         text("securityAccount", &SecurityAccount::securityAccount)}};
    return table;
}

const ReferenceTable<Authority>& authorityTable()
{
    static const ReferenceTable<Authority> table{
        QStringLiteral("authorities"),
        &ReferenceTables::authorities,
        {key("tradingAccount", &Authority::tradingAccount), key("strategy", &Authority::strategy)},
        ReferenceTable<Authority>::Optional,
        ReferenceTable<Authority>::Repeatable};
    return table;
}

const ReferenceTable<Quote>& quoteTable()
{
    static const ReferenceTable<Quote> table{
        QStringLiteral("quotes"),
        &ReferenceTables::quotes,
        {key("symbol", &Quote::symbol), number(QuotaFields::LastPx, &Quote::fields),
         number(QuotaFields::MaxPx, &Quote::fields), number(QuotaFields::MinPx, &Quote::fields),
         number(QuotaFields::PreClosePx, &Quote::fields)}};
    return table;
}

const ReferenceTable<HkRate>& hkRateTable()
{
    using namespace Solvey_Fields::HKSExchgRate;
    static const ReferenceTable<HkRate> table{QStringLiteral("hk_rates"),
                                              &ReferenceTables::hkRates,
                                              {key("exchange", &HkRate::exchange),
                                               number(HKSExchgRateBuy, &HkRate::rates),
                                               number(HKSExchgRateSell, &HkRate::rates)}};
    return table;
}

const ReferenceTable<AesStrategy>& strategyTable()
{
    static const ReferenceTable<AesStrategy> table{QStringLiteral("strategies"),
                                                   &ReferenceTables::strategies,
                                                   {strategyText("name", 0), strategyText("alias", 1),
                                                    strategyText("paramFormats", 2),
                                                    strategyText("globalType", 3)},
                                                   ReferenceTable<AesStrategy>::Required};
    return table;
}
