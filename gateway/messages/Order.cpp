#include "gateway/messages/Order.h"

#include <QByteArray>
#include <QRegularExpression>

namespace gateway {

namespace {

const char Alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ234567";
const int BitsOfDigit = 5;
const int BitsOfByte = 8;

QString base32(const QByteArray& bytes)
{
    QString text;
    unsigned int buffer = 0;
    int bits = 0;
    for (const char one : bytes) {
        buffer = (buffer << BitsOfByte) | static_cast<unsigned char>(one);
        bits += BitsOfByte;
        while (bits >= BitsOfDigit) {
            bits -= BitsOfDigit;
            text.append(QLatin1Char(Alphabet[(buffer >> bits) & 31U]));
        }
    }
    if (bits > 0) {
        text.append(QLatin1Char(Alphabet[(buffer << (BitsOfDigit - bits)) & 31U]));
    }
    return text;
}

} // namespace

QString clOrdIdOf(const QUuid& draftId, int row)
{
    return base32(draftId.toRfc4122()) + QLatin1Char('-') + QString::number(row);
}

QString clOrdIdOf(const Order& order)
{
    return clOrdIdOf(order.draftId, order.row);
}

QString orderIdIn(const QString& identifier)
{
    static const QRegularExpression ending(QStringLiteral("-C[0-9]+\\z"));
    const QRegularExpressionMatch match = ending.match(identifier);
    return match.hasMatch() ? identifier.left(match.capturedStart()) : identifier;
}

QString pairNumberOf(const Order& order)
{
    return order.parameters.value(QStringLiteral("配对编号")).toString();
}

} // namespace gateway
