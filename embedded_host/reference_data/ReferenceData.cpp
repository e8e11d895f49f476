#include "embedded_host/reference_data/ReferenceData.h"

#include <algorithm>
#include <utility>

namespace {

/// Stands for every account or every strategy in an authority.
const QString Everyone = QStringLiteral("*");

/// Keys that appear twice keep their first place in file order.
template <typename Key> void insertFirst(QHash<Key, int>& index, const Key& key, int position)
{
    if (!index.contains(key)) {
        index.insert(key, position);
    }
}

template <typename Row, typename KeyOf> QHash<QString, int> indexBy(const QList<Row>& rows, KeyOf keyOf)
{
    QHash<QString, int> index;
    index.reserve(rows.size());
    for (int i = 0; i < rows.size(); ++i) {
        insertFirst(index, keyOf(rows.at(i)), i);
    }
    return index;
}

template <typename Row>
const Row* rowAt(const QList<Row>& rows, const QHash<QString, int>& index, const QString& key)
{
    const auto found = index.constFind(key);
    return found == index.constEnd() ? nullptr : &rows.at(*found);
}

bool isDigitsAlone(const QString& text)
{
    return !text.isEmpty() && std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    });
}

} // namespace

ReferenceData::ReferenceData(ReferenceTables tables) : mTables(std::move(tables))
{
    mMarketByExchange = indexBy(mTables.markets, [](const Market& market) { return market.exchange; });
    mSecurityBySymbol = indexBy(mTables.securities, [](const Security& security) { return security.symbol; });
    mFuturesBySymbol =
        indexBy(mTables.futures, [](const FuturesContract& contract) { return contract.symbol; });
    mAccountByTradingAccount =
        indexBy(mTables.accounts, [](const auto& account) { return account.tradingAccount; });
    mStrategyByName =
        indexBy(mTables.strategies, [](const AesStrategy& strategy) { return strategy.name(); });
    mQuoteBySymbol = indexBy(mTables.quotes, [](const Quote& quote) { return quote.symbol; });
    indexMarketTexts();
    indexCodes();
    indexAccountRights();
}

/// Codes of all markets come before aliases of any, so that an alias never hides a code.
void ReferenceData::indexMarketTexts()
{
    const QList<Market>& markets = mTables.markets;
    for (int i = 0; i < markets.size(); ++i) {
        insertFirst(mMarketByFoldedText, markets.at(i).exchange.toCaseFolded(), i);
    }
    for (int i = 0; i < markets.size(); ++i) {
        for (const QString& alias : markets.at(i).aliases) {
            insertFirst(mMarketByFoldedText, alias.toCaseFolded(), i);
        }
    }
    mMarketByName = indexBy(markets, [](const Market& market) { return market.name; });
}

void ReferenceData::indexCodes()
{
    mSecurityByPostAndCode.reserve(mTables.securities.size());
    for (int i = 0; i < mTables.securities.size(); ++i) {
        const Security& security = mTables.securities.at(i);
        if (!security.code.isEmpty()) {
            insertFirst(mSecurityByPostAndCode, qMakePair(security.post, security.code), i);
        }
    }
}

void ReferenceData::indexAccountRights()
{
    for (const SecurityAccount& account : qAsConst(mTables.securityAccounts)) {
        mSecurityAccounts.insert({account.tradingAccount, account.exchange}, account.securityAccount);
    }
    for (const Authority& authority : qAsConst(mTables.authorities)) {
        mAuthorities.insert({authority.tradingAccount, authority.strategy});
    }
}

const Security* ReferenceData::security(const QString& symbol) const
{
    return rowAt(mTables.securities, mSecurityBySymbol, symbol);
}

int ReferenceData::priceDecimals(const QString& symbol) const
{
    if (const FuturesContract* contract = futuresContract(symbol)) {
        return contract->pricePrecision;
    }
    const Security* known = security(symbol);
    return known != nullptr ? known->pricePrecision : Security().pricePrecision;
}

const FuturesContract* ReferenceData::futuresContract(const QString& symbol) const
{
    return rowAt(mTables.futures, mFuturesBySymbol, symbol);
}

const tagUserAccountInfo* ReferenceData::account(const QString& tradingAccount) const
{
    return rowAt(mTables.accounts, mAccountByTradingAccount, tradingAccount);
}

const Market* ReferenceData::market(const QString& exchange) const
{
    return rowAt(mTables.markets, mMarketByExchange, exchange);
}

const AesStrategy* ReferenceData::strategy(const QString& name) const
{
    return rowAt(mTables.strategies, mStrategyByName, name);
}

const Quote* ReferenceData::quote(const QString& symbol) const
{
    return rowAt(mTables.quotes, mQuoteBySymbol, symbol);
}

/// The market that a person means by a trimmed text; null when unknown.
const Market* ReferenceData::marketMeant(const QString& text) const
{
    if (text.isEmpty()) {
        return nullptr;
    }
    const Market* market = rowAt(mTables.markets, mMarketByFoldedText, text.toCaseFolded());
    return market ? market : rowAt(mTables.markets, mMarketByName, text);
}

QString ReferenceData::normalizedExchange(const QString& text) const
{
    const QString trimmed = text.trimmed();
    const Market* market = marketMeant(trimmed);
    return market ? market->exchange : trimmed;
}

QString ReferenceData::symbolOf(const QString& code, const QString& market) const
{
    const Market* meant = marketMeant(market.trimmed());
    if (!meant) {
        return QString();
    }
    const QString trimmed = code.trimmed();
    int position = mSecurityByPostAndCode.value(qMakePair(meant->post, trimmed), -1);
    if (position < 0 && trimmed.size() < meant->codeLength && isDigitsAlone(trimmed)) {
        const QString padded = trimmed.rightJustified(meant->codeLength, QLatin1Char('0'));
        position = mSecurityByPostAndCode.value(qMakePair(meant->post, padded), -1);
    }
    return position < 0 ? QString() : mTables.securities.at(position).symbol;
}

QString ReferenceData::securityAccount(const QString& tradingAccount, const QString& exchange) const
{
    return mSecurityAccounts.value({tradingAccount, exchange});
}

bool ReferenceData::isAllowed(const QString& tradingAccount, const QString& strategy) const
{
    return mTables.everythingAllowed || mAuthorities.contains({tradingAccount, strategy}) ||
           mAuthorities.contains({tradingAccount, Everyone}) || mAuthorities.contains({Everyone, strategy}) ||
           mAuthorities.contains({Everyone, Everyone});
}
