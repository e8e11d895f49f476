#pragma once

#include "host/AccountTypes.h"
#include "host/HostApi.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// Exchange code -> (Solvey_Fields::HKSExchgRate key -> rate in CNY per HKD).
using HKExchangeRateTable = QMap<QString, QMap<QString, QVariant>>;

/// Reference data of securities and accounts. GUI thread only; every call returns at once. An unknown symbol
/// is an ordinary stock to the lot rules below: factor 1, minimum and step 100, 2 decimals.
class ALGO_HOST_API SolveyBusinessDataInterface {
public:
    /// The symbol of a security code on a market, such as "600000.SH" for "600000" and "SH"; empty when
    /// unknown.
    static QString GetSymbolBySecurityIDAndExchange(QString code, QString exchange);
    /// The symbol's main exchange; empty when it has none.
    static QString GetASecurityExchangeBySymbol(const QString& symbol);
    /// The account that holds the securities of a trading account on an exchange; empty when there is none.
    static QString GetCurrentSecurityAccountByTradingAndExchange(const QString& tradingAccount,
                                                                 const QString& exchange);
    /// Records of one trading account, the decisive one first; empty for an unknown account.
    /// `includeDisabled`: also those that may not trade now. The dialog passes true, so that a batch is
    /// judged by what the account is.
    static QList<tagUserAccountInfo> GetAccountInfoListFromTrade(QString account, bool includeDisabled);
    /// Accounts that a trader may choose, without the trading accounts that are `excluded`. The other
    /// selectors and flags are the host's; the dialog passes 11, 16, true, an empty list, true.
    static QList<tagUserAccountInfo> GetFundAccountListByFundProp(int firstProperty, int secondProperty,
                                                                  bool onlyTradable,
                                                                  const QStringList& excluded, bool sorted);
    /// Fields of a security; the dialog reads Norvik_Fields::MDCFieldDefine::mdcSubSecurityType.
    static QMap<QString, QVariant> GetSecurityDetailsBySymbol(QString symbol);
    /// Units per displayed quantity. 0 is taken as 1.
    static int GetDispFactorBySymbol(const QString& symbol);
    /// Least quantity of one order.
    static int GetMinQtyPerOrderBySymbol(QString symbol);
    /// Step between valid quantities. 0 is taken as 1.
    static int GetQtyStepBySymbol(QString symbol);
    /// Decimal places of prices of a security that is no futures contract.
    static int GetPricePrecisionBySymbol(QString symbol, const QString& exchange);
    /// Fills the Hong Kong connect rates; leaves the table empty where there are none.
    static void GetHKStockExchangeRate(HKExchangeRateTable& rates);
    /// Shows the host's risk notice for the symbols where it has one. False when the user does not accept it;
    /// the dialog, which passes the source 算法交易New, imports in either case.
    static bool CheckSymbolRiskInfo(const QStringList& symbols, const QString& source);
};
