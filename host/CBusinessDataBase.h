#pragma once

#include "host/HostApi.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// Reference data of securities and of the login. GUI thread only; every call returns at once.
/// An unknown symbol answers with empty texts and empty lists.
class ALGO_HOST_API CBusinessDataBase {
public:
    /// Never null, never owned by the caller.
    static CBusinessDataBase* GetInstance();

    /// The logged-in user; names the folder of the account settings.
    QString GetLoginAccount();
    /// For example Norvik_Values::MdcSecurityType::FuturesType.
    QString GetSecurityTypeBySymbol(const QString& symbol);
    /// For example Solvey_Values::MdcSubSecurityType::ScienTechInnovateBoard.
    QString GetSecuritySubTypeBySymbol(const QString& symbol);
    /// The exchanges on which the symbol trades, the main one first.
    QStringList GetSecurityExchangeBySymbol(const QString& symbol);
    /// The market suffix, for example Norvik_Values::SymbolPost::hk.
    QString GetSymbolPostBySymbol(const QString& symbol);
    /// The name that is shown.
    QString GetSecurityChineseName(const QString& symbol);
    /// The system node of the account that the map holds under Norvik_Fields::UserAccount::tradingAccount.
    QString GetSysNodeIDByAccount(const QMap<QString, QVariant>& account);
};
