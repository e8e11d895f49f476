#include "schema/CreateStatus.h"

#include "host/AlgoConstants.h"
#include "schema/Logging.h"

namespace schema {

QString shownCreateStatus(const QString& value)
{
    if (value == Algo_Values::AlgoInstruction::Create) {
        return QStringLiteral("否");
    }
    if (value == Algo_Values::AlgoInstruction::StartOnCreate) {
        return QStringLiteral("是");
    }
    qCDebug(lcSchema) << "ifStart is other"
                      << " ifStart: " << value;
    return UnknownText;
}

} // namespace schema
