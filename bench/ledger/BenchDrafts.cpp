#include "bench/ledger/BenchDrafts.h"

using namespace ledger;

namespace {

/// A row with as many parameters as a usual strategy has.
InstanceDraft instanceOf(int row)
{
    InstanceDraft instance;
    Leg leg;
    leg.symbol = QStringLiteral("%1.SH").arg(600000 + row);
    leg.direction = QStringLiteral("Buy");
    leg.quantity = 1000 + row;
    leg.limitPrice = Decimal::fromDouble(10.5);
    leg.amount = leg.quantity * leg.limitPrice;
    instance.legs = {leg};
    QMap<QString, QVariant> security;
    for (int i = 0; i < 8; ++i) {
        security.insert(QStringLiteral("证券参数%1").arg(i), QStringLiteral("%1.SH").arg(600000 + row));
    }
    for (int i = 0; i < 14; ++i) {
        instance.parameters.insert(QStringLiteral("参数%1").arg(i), QStringLiteral("2025-11-03 09:30:00"));
    }
    instance.parameters.insert(QStringLiteral("证券代码和委托数量"), QVariantList{security});
    return instance;
}

} // namespace

BatchDraft benchDraft(int rows)
{
    BatchDraft draft;
    draft.id = QUuid::createUuid();
    draft.fileName = QStringLiteral("bench.csv");
    draft.account = QStringLiteral("1001");
    draft.strategy = QStringLiteral("AITWAP");
    for (int i = 0; i < 14; ++i) {
        draft.table.columns.append(QStringLiteral("列%1").arg(i));
    }
    for (int row = 0; row < rows; ++row) {
        draft.instances.append(instanceOf(row));
        QStringList cells;
        for (int i = 0; i < 14; ++i) {
            cells.append(QStringLiteral("第%1行的内容").arg(row));
        }
        draft.table.rows.append(cells);
    }
    return draft;
}
