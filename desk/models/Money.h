#pragma once

#include <QLocale>
#include <QString>

/// Sums of money, in every locale alike.
namespace money {

/// As a trader reads them: 1,234,567.00.
inline QString shown(double amount, int decimals = 2)
{
    QLocale locale(QLocale::English, QLocale::UnitedStates);
    return locale.toString(amount, 'f', decimals);
}

/// As other programs read them: 1234567.00.
inline QString plain(double amount, int decimals = 2)
{
    return QString::number(amount, 'f', decimals);
}

} // namespace money
