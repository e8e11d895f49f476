#include "host/CBusinessDataBase.h"

#include "embedded_host/services/Record.h"
#include "host/NorvikConstants.h"

using services::record;
using services::referenceData;

namespace {

/// A field of a security; the type's empty value for an unknown symbol.
template <typename Field> Field fieldOf(const QString& symbol, Field Security::*field)
{
    const Security* security = referenceData().security(symbol);
    return security ? security->*field : Field();
}

} // namespace

CBusinessDataBase* CBusinessDataBase::GetInstance()
{
    static CBusinessDataBase instance;
    return &instance;
}

QString CBusinessDataBase::GetLoginAccount()
{
    record("CBusinessDataBase::GetLoginAccount");
    return EmbeddedHost::current().options().loginAccount;
}

QString CBusinessDataBase::GetSecurityTypeBySymbol(const QString& symbol)
{
    record("CBusinessDataBase::GetSecurityTypeBySymbol", symbol);
    return fieldOf(symbol, &Security::securityType);
}

QString CBusinessDataBase::GetSecuritySubTypeBySymbol(const QString& symbol)
{
    record("CBusinessDataBase::GetSecuritySubTypeBySymbol", symbol);
    return fieldOf(symbol, &Security::subType);
}

QStringList CBusinessDataBase::GetSecurityExchangeBySymbol(const QString& symbol)
{
    record("CBusinessDataBase::GetSecurityExchangeBySymbol", symbol);
    return fieldOf(symbol, &Security::exchanges);
}

QString CBusinessDataBase::GetSymbolPostBySymbol(const QString& symbol)
{
    record("CBusinessDataBase::GetSymbolPostBySymbol", symbol);
    return fieldOf(symbol, &Security::post);
}

QString CBusinessDataBase::GetSecurityChineseName(const QString& symbol)
{
    record("CBusinessDataBase::GetSecurityChineseName", symbol);
    return fieldOf(symbol, &Security::name);
}

QString CBusinessDataBase::GetSysNodeIDByAccount(const QMap<QString, QVariant>& account)
{
    record("CBusinessDataBase::GetSysNodeIDByAccount", account);
    const QString tradingAccount = account.value(Norvik_Fields::UserAccount::tradingAccount).toString();
    const tagUserAccountInfo* known = referenceData().account(tradingAccount);
    return known ? known->sysNodeId : QString();
}
