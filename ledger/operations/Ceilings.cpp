// The ceilings that a server holds.

#include "ledger/operations/Core.h"

#include <QJsonArray>
#include <QJsonObject>

namespace ledger {

namespace {

/// Those that the server can tell from what it holds; the others need quotes, or are a program's own.
struct HeldCeiling {
    const char* column; ///< of ledger_limit
    std::optional<Decimal> Limits::*value;
    bool isCount = false;
};

const HeldCeiling HeldCeilings[] = {
    {"max_row_quantity", &Limits::rowQuantity},
    {"max_row_amount", &Limits::rowAmount},
    {"max_security_amount", &Limits::securityAmount},
    {"max_gross_buy", &Limits::grossBuy},
    {"max_gross_sell", &Limits::grossSell},
    {"max_day_buy", &Limits::dayBuy},
    {"max_day_sell", &Limits::daySell},
    {"max_day_instances", &Limits::dayInstances, true},
    {"max_batch_rows", &Limits::batchRows, true},
    {"approval_amount", &Limits::approvalAmount},
};

void insertScope(Statements& statements, const LimitScope& scope)
{
    QStringList columns{QStringLiteral("account"), QStringLiteral("strategy"),
                        QStringLiteral("replaces_general")};
    QStringList places{QStringLiteral("?"), QStringLiteral("?"), QStringLiteral("?")};
    QVariantList values{scope.account, scope.strategy, scope.replacesGeneral};
    for (const HeldCeiling& held : HeldCeilings) {
        const std::optional<Decimal>& value = scope.limits.*held.value;
        if (value) {
            columns.append(QString::fromLatin1(held.column));
            places.append(held.isCount ? QStringLiteral("FLOOR(CAST(? AS NUMERIC))")
                                       : QStringLiteral("CAST(? AS NUMERIC)"));
            values.append(value->text());
        }
    }
    statements.run(QStringLiteral("INSERT INTO ledger_limit (%1) VALUES (%2)")
                       .arg(columns.join(QLatin1String(", ")), places.join(QLatin1String(", "))),
                   values);
}

/// What an auditor wants to know of it.
QJsonObject jsonOf(const LimitScope& scope)
{
    QJsonObject json{{QStringLiteral("account"), scope.account},
                     {QStringLiteral("strategy"), scope.strategy}};
    if (scope.replacesGeneral) {
        json[QStringLiteral("replacesGeneral")] = true;
    }
    for (const Ceiling& ceiling : ceilings()) {
        const std::optional<Decimal>& value = scope.limits.*ceiling.value;
        if (value) {
            json[QString::fromLatin1(ceiling.column)] = value->text();
        }
    }
    return json;
}

} // namespace

Outcome<void> Ledger::setCeilings(const QList<LimitScope>& scopes)
{
    if (mCore->store && !mCore->store->holdsCeilings()) {
        return {texts::ceilingsOfFile(path())};
    }
    return {
        mCore
            ->change<bool>([&](Change& change) {
                change.statements.run(QStringLiteral("DELETE FROM ledger_limit"));
                QJsonArray rows;
                for (const LimitScope& scope : scopes) {
                    insertScope(change.statements, scope);
                    rows.append(jsonOf(scope));
                }
                change.note(QStringLiteral("limits"), QStringLiteral("*"), {{QStringLiteral("rows"), rows}});
                return Outcome<bool>{true, QString()};
            })
            .error};
}

} // namespace ledger
