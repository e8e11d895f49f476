#pragma once

#include <QLocale>
#include <QString>

/// Sums of money as a trader reads them: 1,234,567.00, in every locale.
namespace money {

inline QString shown(double amount, int decimals = 2)
{
    QLocale locale(QLocale::English, QLocale::UnitedStates);
    return locale.toString(amount, 'f', decimals);
}

} // namespace money
