#pragma once

#include "desk/mapping/Mapping.h"

#include <QString>

#include <optional>

/// Single cells told in the import's words. Nothing where the text cannot be read for certain.
namespace mapping {

/// As values are compared: without blanks around it, width and letter case not counted.
QString folded(const QString& text);

struct CodeAndMarket {
    QString code;
    QStringList exchanges; ///< that the text names; empty: it names none
};
/// A code with a market before or behind it, or alone.
CodeAndMarket codeOf(const QString& text, const Surroundings& surroundings);

std::optional<QString> quantityOf(const QString& text);
std::optional<QString> amountOf(const QString& text);
std::optional<QString> decimalOf(const QString& text);
/// yyyy-MM-dd HH:mm:ss.
std::optional<QString> dateTimeOf(const QString& text, DateOrder order, const QDate& today);

/// By the mapping's values, else by its form.
QString toldAnew(const Column& column, const QString& text, const Surroundings& surroundings);

} // namespace mapping
