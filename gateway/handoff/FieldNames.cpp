#include "gateway/handoff/FieldNames.h"

#include <QHash>

namespace gateway {

namespace {

struct Name {
    int tag;
    const char* text;
};

constexpr Name Names[] = {
    {1, "Account"},
    {6, "AvgPx"},
    {11, "ClOrdID"},
    {14, "CumQty"},
    {17, "ExecID"},
    {19, "ExecRefID"},
    {21, "HandlInst"},
    {31, "LastPx"},
    {32, "LastQty"},
    {35, "MsgType"},
    {37, "OrderID"},
    {38, "OrderQty"},
    {39, "OrdStatus"},
    {40, "OrdType"},
    {41, "OrigClOrdID"},
    {44, "Price"},
    {54, "Side"},
    {55, "Symbol"},
    {58, "Text"},
    {59, "TimeInForce"},
    {60, "TransactTime"},
    {77, "PositionEffect"},
    {97, "PossResend"},
    {102, "CxlRejReason"},
    {103, "OrdRejReason"},
    {110, "MinQty"},
    {111, "MaxFloor"},
    {126, "ExpireTime"},
    {150, "ExecType"},
    {151, "LeavesQty"},
    {152, "CashOrderQty"},
    {168, "EffectiveTime"},
    {207, "SecurityExchange"},
    {432, "ExpireDate"},
    {442, "MultiLegReportingType"},
    {564, "LegPositionEffect"},
    {566, "LegPrice"},
    {600, "LegSymbol"},
    {616, "LegSecurityExchange"},
    {624, "LegSide"},
    {654, "LegRefID"},
    {687, "LegQty"},
    {790, "OrdStatusReqID"},
    {847, "TargetStrategy"},
    {848, "TargetStrategyParameters"},
    {849, "ParticipationRate"},
};

const QHash<int, QString>& columns()
{
    static const QHash<int, QString> byTag = [] {
        QHash<int, QString> all;
        for (const Name& name : Names) {
            all.insert(name.tag, QString::fromLatin1(name.text));
        }
        return all;
    }();
    return byTag;
}

} // namespace

QString columnOf(int tag)
{
    return columns().value(tag, QString::number(tag));
}

int tagOfColumn(const QString& column)
{
    const int named = columns().key(column, 0);
    const int tag = named == 0 ? column.toInt() : named;
    return columns().contains(tag) ? tag : 0;
}

} // namespace gateway
