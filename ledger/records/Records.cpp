#include "ledger/records/Records.h"

namespace ledger {

QString InstanceId::text() const
{
    return QStringLiteral("%1-%2").arg(batch).arg(row);
}

std::optional<InstanceId> InstanceId::fromText(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('-'));
    bool isBatch = false;
    bool isRow = false;
    const InstanceId id{parts.value(0).toLongLong(&isBatch), parts.value(1).toInt(&isRow)};
    const bool isSound = parts.size() == 2 && isBatch && isRow && id.batch > 0 && id.row > 0;
    return isSound ? std::make_optional(id) : std::nullopt;
}

} // namespace ledger
