#include "ledger/draft/BatchDraft.h"

#include <QCryptographicHash>

namespace ledger {

namespace {

const QLatin1String Buy("Buy");
const QLatin1String Sell("Sell");
const QLatin1String BothSides("Buy/Sell");

} // namespace

bool Leg::hasKnownSide() const
{
    return direction.startsWith(Buy) || direction.startsWith(Sell);
}

bool Leg::buys() const
{
    return !direction.startsWith(Sell);
}

bool Leg::sells() const
{
    return !direction.startsWith(Buy) || direction == BothSides;
}

Gross grossOf(const QList<InstanceDraft>& instances)
{
    Gross gross;
    for (const InstanceDraft& instance : instances) {
        for (const Leg& leg : instance.legs) {
            gross.buy += leg.buys() ? leg.amount : Decimal();
            gross.sell += leg.sells() ? leg.amount : Decimal();
        }
    }
    return gross;
}

QString rowKey(const QString& strategy, const InstanceDraft& instance)
{
    QString fields;
    const auto add = [&fields](const QString& text) {
        fields += text + QChar(); // so that no two fields run into each other
    };
    add(strategy);
    for (const Leg& leg : instance.legs) {
        add(leg.symbol);
        add(leg.direction);
        for (const Decimal& number : {leg.quantity, leg.limitPrice, leg.typedAmount}) {
            add(number.text());
        }
    }
    return QString::fromLatin1(QCryptographicHash::hash(fields.toUtf8(), QCryptographicHash::Sha256).toHex());
}

} // namespace ledger
