#pragma once

#include "host/AccountTypes.h"
#include "host/AesStrategy.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QPair>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>

struct Market {
    QString exchange;   ///< unique code, such as SH
    QString name;       ///< shown name
    QString post;       ///< suffix of its symbols, such as SH, HK, CFE
    int codeLength = 0; ///< 0: codes are never padded
    QStringList aliases;
};

struct Security {
    QString symbol; ///< unique, such as 600000.SH
    QString code;
    QString name;
    QString post;
    QStringList exchanges; ///< where it trades, the main one first; may be empty
    QString securityType = QStringLiteral("STOCK");
    QString subType;
    int dispFactor = 1;
    int minQtyPerOrder = 100;
    int qtyStep = 100;
    int pricePrecision = 2;
    bool bondRepo = false;
};

struct FuturesContract {
    QString symbol;
    int multiplier = 1;
    int pricePrecision = 2;
};

struct SecurityAccount {
    QString tradingAccount;
    QString exchange;
    QString securityAccount;
};

/// "*" in either field stands for all.
struct Authority {
    QString tradingAccount;
    QString strategy;
};

/// Snapshot fields of a symbol as texts: LastPx, MaxPx, MinPx, PreClosePx; absent ones are left out.
struct Quote {
    QString symbol;
    QMap<QString, QVariant> fields;
};

/// Solvey_Fields::HKSExchgRate keys of one exchange; absent ones are left out.
struct HkRate {
    QString exchange;
    QMap<QString, QVariant> rates;
};

/// The tables of a reference data folder, in file order.
struct ReferenceTables {
    QList<Market> markets;
    QList<Security> securities;
    QList<FuturesContract> futures;
    QList<tagUserAccountInfo> accounts;
    QList<SecurityAccount> securityAccounts;
    QList<Authority> authorities;
    bool everythingAllowed = true; ///< no authorities file: every account may run every strategy
    QList<Quote> quotes;
    QList<HkRate> hkRates;
    QList<AesStrategy> strategies;
};

/// The tables with an index for every look-up, so that none costs more as the securities grow. An immutable
/// value.
class ReferenceData {
public:
    ReferenceData() = default;
    explicit ReferenceData(ReferenceTables tables);

    const ReferenceTables& tables() const { return mTables; }

    /// Null when unknown.
    const Security* security(const QString& symbol) const;
    const FuturesContract* futuresContract(const QString& symbol) const;
    /// Decimals of the security's prices; 2 when unknown.
    int priceDecimals(const QString& symbol) const;
    const tagUserAccountInfo* account(const QString& tradingAccount) const;
    const Market* market(const QString& exchange) const;
    const AesStrategy* strategy(const QString& name) const;
    const Quote* quote(const QString& symbol) const;

    /// Blanks around the text dropped; then the exchange code, alias (letter case ignored for both) or shown
    /// name that equals it gives the exchange code; anything else comes back trimmed.
    QString normalizedExchange(const QString& text) const;
    /// The symbol of a code on a market; a short code of digits is tried again padded with zeros on the left
    /// to the market's code length. Empty when unknown.
    QString symbolOf(const QString& code, const QString& market) const;
    QString securityAccount(const QString& tradingAccount, const QString& exchange) const;
    bool isAllowed(const QString& tradingAccount, const QString& strategy) const;

private:
    using TextPair = QPair<QString, QString>;

    void indexMarketTexts();
    void indexCodes();
    void indexAccountRights();
    const Market* marketMeant(const QString& text) const;

    ReferenceTables mTables;
    // Positions in the tables.
    QHash<QString, int> mSecurityBySymbol;
    QHash<TextPair, int> mSecurityByPostAndCode;
    QHash<QString, int> mFuturesBySymbol;
    QHash<QString, int> mAccountByTradingAccount;
    QHash<QString, int> mMarketByExchange;
    QHash<QString, int> mMarketByFoldedText; // exchange codes and aliases
    QHash<QString, int> mMarketByName;
    QHash<QString, int> mStrategyByName;
    QHash<QString, int> mQuoteBySymbol;
    QHash<TextPair, QString> mSecurityAccounts; // trading account, exchange
    QSet<TextPair> mAuthorities;                // trading account, strategy
};
