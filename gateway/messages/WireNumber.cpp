#include "gateway/messages/WireNumber.h"

#include <QRegularExpression>

#include <algorithm>

namespace gateway::wire_number {

bool isNumber(const QString& text)
{
    static const QRegularExpression shape(QStringLiteral("^-?([0-9]+(\\.[0-9]*)?|\\.[0-9]+)\\z"));
    return shape.match(text).hasMatch() && ledger::Decimal::fromText(text).isNumber();
}

bool isInteger(const QString& text)
{
    return isNumber(text) && !text.contains(QLatin1Char('.'));
}

ledger::Decimal valueOf(const QString& text)
{
    if (text.isEmpty()) {
        return 0;
    }
    return isNumber(text) ? ledger::Decimal::fromText(text) : ledger::Decimal::none();
}

QString hundredth(const QString& text)
{
    const bool negative = text.startsWith(QLatin1Char('-'));
    const QString digits = negative ? text.mid(1) : text;
    const int point = digits.indexOf(QLatin1Char('.'));
    QString whole = point < 0 ? digits : digits.left(point);
    const QString fraction = point < 0 ? QString() : digits.mid(point + 1);
    whole = whole.rightJustified(std::max(3, whole.size()), QLatin1Char('0'));
    QString shifted = whole.left(whole.size() - 2);
    while (shifted.size() > 1 && shifted.startsWith(QLatin1Char('0'))) {
        shifted.remove(0, 1);
    }
    return (negative ? QStringLiteral("-") : QString()) + shifted + QLatin1Char('.') + whole.right(2) +
           fraction;
}

} // namespace gateway::wire_number
