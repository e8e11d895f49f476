#include "desk/batch/LimitsFile.h"

#include "embedded_host/reference_data/CsvTable.h"
#include "embedded_host/reference_data/ReferenceFile.h"
#include "embedded_host/reference_data/ReferenceFolder.h"
#include "ledger/LedgerTexts.h"

namespace batch {

using namespace ledger;

namespace {

ReferenceColumn<LimitScope> scopeColumn(const char* name, QString LimitScope::*field)
{
    return {QString::fromLatin1(name),
            [field](LimitScope& row, const QString& cell) {
                row.*field = cell.trimmed();
                return QString();
            },
            nullptr, ReferenceColumn<LimitScope>::Key};
}

ReferenceColumn<LimitScope> ceilingColumn(const Ceiling& ceiling)
{
    const QString name = QString::fromLatin1(ceiling.column);
    return {name,
            [name, field = ceiling.value](LimitScope& row, const QString& cell) {
                const Decimal value = Decimal::fromText(cell);
                if (!value.isNumber()) {
                    return reference_faults::notNumber(name, cell);
                }
                row.limits.*field = value;
                return value < 0 ? texts::negativeLimit(name, cell) : QString();
            },
            nullptr};
}

template <typename Take> ReferenceColumn<LimitScope> flagColumn(const char* column, Take take)
{
    const QString name = QString::fromLatin1(column);
    return {name,
            [name, take](LimitScope& row, const QString& cell) {
                const bool isOn = cell == QLatin1String("1");
                take(row, isOn);
                return isOn || cell == QLatin1String("0") ? QString() : reference_faults::notFlag(name, cell);
            },
            nullptr};
}

const ReferenceTable<LimitScope>& limitTable()
{
    static const ReferenceTable<LimitScope> table = [] {
        ReferenceTable<LimitScope> made{
            QStringLiteral("limits"),
            nullptr,
            {scopeColumn("account", &LimitScope::account), scopeColumn("strategy", &LimitScope::strategy),
             flagColumn("refuseUnpriced",
                        [](LimitScope& row, bool isOn) { row.limits.refusesUnpriced = isOn; }),
             flagColumn("replacesGeneral", [](LimitScope& row, bool isOn) { row.replacesGeneral = isOn; })}};
        for (const Ceiling& ceiling : ceilings()) {
            made.columns.append(ceilingColumn(ceiling));
        }
        return made;
    }();
    return table;
}

} // namespace

std::optional<QList<LimitScope>> readLimits(const QString& folder, QString& error)
{
    const QString path = folder + (folder.endsWith(QLatin1Char('/')) ? QString() : QStringLiteral("/")) +
                         limitTable().fileName();
    QList<LimitScope> scopes;
    error.clear();
    if (!isReferenceFileThere(path)) {
        return scopes;
    }
    const Outcome<QByteArray> file = readReferenceFile(path, reference_limits::CsvBytes);
    error = file.error;
    const bool isSound = file.ok() && CsvTable(limitTable(), path).read(file.value, scopes, error);
    return isSound ? std::make_optional(scopes) : std::nullopt;
}

} // namespace batch
