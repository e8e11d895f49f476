#pragma once

#include <QString>

#include <type_traits>

namespace ledger {

/// A decimal number, exact: money, a price, a quantity or a rate. Sums and products have no error of binary
/// fractions. What is no number, or has more than 38 digits, is none: none compares with nothing, so that it
/// stands above every ceiling, and whatever is reckoned with it is none.
///
///     Decimal::fromText("10.10") * Decimal(300)  →  3030
class Decimal {
public:
    Decimal() = default; ///< 0
    template <typename Whole, typename = std::enable_if_t<std::is_integral_v<Whole>>>
    Decimal(Whole whole) : mDigits(whole)
    {
    }

    static Decimal none();
    /// A sign, digits, a point, an exponent; blanks around. Anything else is none.
    static Decimal fromText(const QString& text);
    /// By the shortest text that reads back as the same number: 0.1 is one tenth.
    static Decimal fromDouble(double number);

    bool isNumber() const { return mScale >= 0; }
    /// Without exponent, group separators and closing zeros; empty: none.
    QString text() const;
    /// Grouped, with that many places, rounded half away from zero: "1,234,567.50". Of none: "–".
    QString shown(int places) const;
    /// The nearest one; not a number: none.
    double toDouble() const;

    Decimal abs() const;
    Decimal rounded(int places) const; ///< half away from zero
    bool isWhole() const;
    bool isMultipleOf(qint64 step) const;

    Decimal operator-() const;
    friend Decimal operator+(const Decimal& left, const Decimal& right);
    friend Decimal operator-(const Decimal& left, const Decimal& right) { return left + -right; }
    friend Decimal operator*(const Decimal& left, const Decimal& right);
    Decimal& operator+=(const Decimal& other) { return *this = *this + other; }
    Decimal& operator-=(const Decimal& other) { return *this = *this - other; }

    friend bool operator<(const Decimal& left, const Decimal& right) { return compare(left, right) == -1; }
    friend bool operator>(const Decimal& left, const Decimal& right) { return compare(left, right) == 1; }
    friend bool operator==(const Decimal& left, const Decimal& right) { return compare(left, right) == 0; }
    friend bool operator!=(const Decimal& left, const Decimal& right) { return compare(left, right) != 0; }
    friend bool operator<=(const Decimal& left, const Decimal& right)
    {
        return left < right || left == right;
    }
    friend bool operator>=(const Decimal& left, const Decimal& right)
    {
        return left > right || left == right;
    }

private:
    __extension__ using Digits = __int128;

    Decimal(Digits digits, int scale, int) : mDigits(digits), mScale(scale) {}
    static Decimal trimmed(Digits digits, int scale);
    bool raiseTo(int scale);
    static int compare(const Decimal& left, const Decimal& right); ///< -1, 0, 1; 2: cannot be compared

    /// As movable as other values: Qt's containers give 16 bytes to no element's address.
    Digits mDigits __attribute__((packed, aligned(8))) = 0;
    int mScale = 0; ///< digits behind the point; below 0: none
};

} // namespace ledger
