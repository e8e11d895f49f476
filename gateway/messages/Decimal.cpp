#include "gateway/messages/Decimal.h"

#include <QRegularExpression>

#include <algorithm>

namespace gateway::decimal {

namespace {

const int LongestNumber = 40;

/// A number in pieces: no leading zeros in front of the point, none at the end behind it.
struct Pieces {
    bool negative = false;
    QString whole;
    QString fraction;

    bool isZero() const { return whole.isEmpty() && fraction.isEmpty(); }
};

Pieces piecesOf(const QString& text)
{
    Pieces pieces;
    const QString digits = text.startsWith(QLatin1Char('-')) ? text.mid(1) : text;
    const int point = digits.indexOf(QLatin1Char('.'));
    pieces.whole = point < 0 ? digits : digits.left(point);
    pieces.fraction = point < 0 ? QString() : digits.mid(point + 1);
    while (pieces.whole.startsWith(QLatin1Char('0'))) {
        pieces.whole.remove(0, 1);
    }
    while (pieces.fraction.endsWith(QLatin1Char('0'))) {
        pieces.fraction.chop(1);
    }
    pieces.negative = digits.size() < text.size() && !pieces.isZero();
    return pieces;
}

int signOf(int difference)
{
    return (difference > 0) - (difference < 0);
}

int compareSizes(const Pieces& left, const Pieces& right)
{
    if (left.whole.size() != right.whole.size()) {
        return signOf(left.whole.size() - right.whole.size());
    }
    const int whole = QString::compare(left.whole, right.whole);
    return signOf(whole != 0 ? whole : QString::compare(left.fraction, right.fraction));
}

} // namespace

bool isNumber(const QString& text)
{
    static const QRegularExpression shape(QStringLiteral("^-?([0-9]+(\\.[0-9]*)?|\\.[0-9]+)\\z"));
    return text.size() <= LongestNumber && shape.match(text).hasMatch();
}

bool isInteger(const QString& text)
{
    static const QRegularExpression shape(QStringLiteral("^-?[0-9]+\\z"));
    return text.size() <= LongestNumber && shape.match(text).hasMatch();
}

int compare(const QString& left, const QString& right)
{
    const Pieces first = piecesOf(left);
    const Pieces second = piecesOf(right);
    if (first.negative != second.negative) {
        return first.negative ? -1 : 1;
    }
    return first.negative ? compareSizes(second, first) : compareSizes(first, second);
}

bool isPositive(const QString& text)
{
    return compare(text, QStringLiteral("0")) > 0;
}

bool isNegative(const QString& text)
{
    return compare(text, QStringLiteral("0")) < 0;
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

} // namespace gateway::decimal
