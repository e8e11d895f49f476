#include "validation/AccountNode.h"

#include "host/CBusinessDataBase.h"
#include "host/NorvikConstants.h"
#include "validation/Logging.h"

namespace validation {

QString nodeOf(const QString& tradingAccount)
{
    const QString node = CBusinessDataBase::GetInstance()->GetSysNodeIDByAccount(
        {{Norvik_Fields::UserAccount::tradingAccount, tradingAccount}});
    qCDebug(lcValidation) << "get sysnodeid by trading account return:" << node;
    return node;
}

} // namespace validation
