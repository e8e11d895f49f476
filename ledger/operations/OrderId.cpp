// Tag 11: a draft's id in base 32 (RFC 4648, without padding) and the row.

#include "ledger/operations/Recording.h"

namespace ledger {

namespace {

const QByteArray Alphabet("ABCDEFGHIJKLMNOPQRSTUVWXYZ234567");
constexpr int BitsOfCharacter = 5;
constexpr int BitsOfByte = 8;
constexpr int CharactersOfUuid = 26;

QByteArray toBase32(const QByteArray& bytes)
{
    QByteArray text;
    unsigned int buffer = 0;
    int bits = 0;
    for (const char byte : bytes) {
        buffer = (buffer << BitsOfByte) | static_cast<unsigned char>(byte);
        for (bits += BitsOfByte; bits >= BitsOfCharacter; bits -= BitsOfCharacter) {
            text.append(Alphabet.at(static_cast<int>((buffer >> (bits - BitsOfCharacter)) & 31U)));
        }
    }
    if (bits > 0) {
        text.append(Alphabet.at(static_cast<int>((buffer << (BitsOfCharacter - bits)) & 31U)));
    }
    return text;
}

/// Empty where it is none.
QByteArray fromBase32(const QByteArray& text)
{
    QByteArray bytes;
    unsigned int buffer = 0;
    int bits = 0;
    for (const char character : text) {
        const int value = Alphabet.indexOf(character);
        if (value < 0) {
            return QByteArray();
        }
        buffer = (buffer << BitsOfCharacter) | static_cast<unsigned int>(value);
        bits += BitsOfCharacter;
        if (bits >= BitsOfByte) {
            bits -= BitsOfByte;
            bytes.append(static_cast<char>((buffer >> bits) & 255U));
        }
    }
    return bytes;
}

} // namespace

QString clOrdIdOf(const QUuid& draft, int row)
{
    return QString::fromLatin1(toBase32(draft.toRfc4122())) + QLatin1Char('-') + QString::number(row);
}

QPair<QUuid, int> orderNamed(const QString& clOrdId)
{
    const QStringList parts = clOrdId.split(QLatin1Char('-'));
    const QByteArray head = parts.value(0).toLatin1();
    const int row = parts.value(1).toInt();
    if (parts.size() != 2 || head.size() != CharactersOfUuid || row <= 0) {
        return {QUuid(), 0};
    }
    return {QUuid::fromRfc4122(fromBase32(head)), row};
}

} // namespace ledger
