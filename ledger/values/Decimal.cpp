#include "ledger/values/Decimal.h"

#include <QLocale>
#include <QtNumeric>

#include <array>
#include <cmath>
#include <limits>

namespace ledger {

namespace {

/// Digits behind the point that are kept; a number may have as many before it and behind it together as 127
/// bits hold.
constexpr int MostScale = 36;
constexpr int MostExponent = 400;
/// As many digits as 127 bits hold, or a zero and MostScale digits, with a point and a sign.
constexpr int MostCharacters = 48;

/// What stands behind the E of a number; false where that is no exponent.
bool takeExponent(const QString& text, int at, int& exponent)
{
    bool isNumber = false;
    exponent = text.midRef(at).toInt(&isNumber);
    return isNumber && qAbs(exponent) <= MostExponent;
}

bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/// By the narrow division, which is a tenth of the wide one, wherever that is enough.
__extension__ ushort takeLastDigit(__int128& digits)
{
    if (digits > std::numeric_limits<qint64>::max()) {
        const auto last = static_cast<ushort>(digits % 10);
        digits /= 10;
        return last;
    }
    const auto narrow = static_cast<qint64>(digits);
    digits = narrow / 10;
    return static_cast<ushort>(narrow % 10);
}

} // namespace

Decimal Decimal::none()
{
    return Decimal(0, -1, 0);
}

/// Brings a number into its one form, without closing zeros; none where it does not fit.
Decimal Decimal::trimmed(Digits digits, int scale)
{
    while (scale > 0 && digits % 10 == 0) {
        digits /= 10;
        --scale;
    }
    while (scale < 0) {
        if (__builtin_mul_overflow(digits, Digits(10), &digits)) {
            return none();
        }
        ++scale;
    }
    return scale > MostScale ? none() : Decimal(digits, scale, 0);
}

Decimal Decimal::fromText(const QString& given)
{
    const QString text = given.trimmed();
    int at = text.startsWith(QLatin1Char('-')) || text.startsWith(QLatin1Char('+')) ? 1 : 0;
    const bool isNegative = text.startsWith(QLatin1Char('-'));
    Digits digits = 0;
    int scale = 0;
    int count = 0;
    bool isBehindPoint = false;
    for (; at < text.size() && (isDigit(text.at(at)) || (text.at(at) == QLatin1Char('.') && !isBehindPoint));
         ++at) {
        if (text.at(at) == QLatin1Char('.')) {
            isBehindPoint = true;
            continue;
        }
        if (__builtin_mul_overflow(digits, Digits(10), &digits) ||
            __builtin_add_overflow(digits, Digits(text.at(at).digitValue()), &digits)) {
            return none();
        }
        scale += isBehindPoint ? 1 : 0;
        ++count;
    }
    int exponent = 0;
    const bool hasExponent = at < text.size() && text.at(at).toLower() == QLatin1Char('e');
    if (count == 0 || (hasExponent ? !takeExponent(text, at + 1, exponent) : at < text.size())) {
        return none();
    }
    return trimmed(isNegative ? -digits : digits, digits == 0 ? 0 : scale - exponent);
}

Decimal Decimal::fromDouble(double number)
{
    return qIsFinite(number) ? fromText(QString::number(number, 'g', QLocale::FloatingPointShortest))
                             : none();
}

QString Decimal::text() const
{
    if (!isNumber()) {
        return QString();
    }
    std::array<QChar, MostCharacters> characters;
    auto first = characters.end();
    Digits left = mDigits < 0 ? -mDigits : mDigits;
    for (int i = 0; left > 0 || i <= mScale; ++i) {
        if (i == mScale && i > 0) {
            *--first = QLatin1Char('.');
        }
        *--first = QChar(QLatin1Char('0').unicode() + takeLastDigit(left));
    }
    if (mDigits < 0) {
        *--first = QLatin1Char('-');
    }
    return QString(first, static_cast<int>(characters.end() - first));
}

QString Decimal::shown(int places) const
{
    if (!isNumber()) {
        return QStringLiteral("–");
    }
    const QString plain = rounded(places).text();
    const int point = plain.indexOf(QLatin1Char('.'));
    QString whole = point < 0 ? plain : plain.left(point);
    const int sign = whole.startsWith(QLatin1Char('-')) ? 1 : 0;
    for (int at = whole.size() - 3; at > sign; at -= 3) {
        whole.insert(at, QLatin1Char(','));
    }
    const QString behind = point < 0 ? QString() : plain.mid(point + 1);
    return places > 0 ? whole + QLatin1Char('.') + behind.leftJustified(places, QLatin1Char('0')) : whole;
}

double Decimal::toDouble() const
{
    return isNumber() ? text().toDouble() : qQNaN();
}

Decimal Decimal::abs() const
{
    return mDigits < 0 ? -*this : *this;
}

Decimal Decimal::rounded(int places) const
{
    Digits digits = mDigits;
    int scale = mScale;
    bool isHalf = false;
    for (; scale > places; --scale) {
        isHalf = digits % 10 >= 5 || digits % 10 <= -5;
        digits /= 10;
    }
    if (isHalf) {
        digits += mDigits < 0 ? -1 : 1;
    }
    return isNumber() ? trimmed(digits, scale) : none();
}

bool Decimal::isWhole() const
{
    return mScale == 0;
}

bool Decimal::isMultipleOf(qint64 step) const
{
    return isWhole() && mDigits % step == 0;
}

Decimal Decimal::operator-() const
{
    return Decimal(-mDigits, mScale, 0);
}

/// Zeros behind the last digit; false where they do not fit.
bool Decimal::raiseTo(int scale)
{
    for (; mScale < scale; ++mScale) {
        Digits raised = 0;
        if (__builtin_mul_overflow(mDigits, Digits(10), &raised)) {
            return false;
        }
        mDigits = raised;
    }
    return true;
}

Decimal operator+(const Decimal& left, const Decimal& right)
{
    Decimal first = left;
    Decimal second = right;
    Decimal::Digits sum = 0;
    const bool fits = left.isNumber() && right.isNumber() && first.raiseTo(right.mScale) &&
                      second.raiseTo(left.mScale) &&
                      !__builtin_add_overflow(first.mDigits, second.mDigits, &sum);
    return fits ? Decimal::trimmed(sum, first.mScale) : Decimal::none();
}

Decimal operator*(const Decimal& left, const Decimal& right)
{
    Decimal::Digits product = 0;
    const bool fits =
        left.isNumber() && right.isNumber() && !__builtin_mul_overflow(left.mDigits, right.mDigits, &product);
    return fits ? Decimal::trimmed(product, left.mScale + right.mScale) : Decimal::none();
}

int Decimal::compare(const Decimal& left, const Decimal& right)
{
    constexpr int Unequal = 2;
    if (!left.isNumber() || !right.isNumber()) {
        return Unequal;
    }
    Decimal first = left;
    Decimal second = right;
    if (!first.raiseTo(right.mScale) || !second.raiseTo(left.mScale)) {
        // so far apart that the binary numbers tell which is the larger
        return left.toDouble() < right.toDouble() ? -1 : 1;
    }
    return first.mDigits < second.mDigits ? -1 : (first.mDigits > second.mDigits ? 1 : 0);
}

} // namespace ledger
