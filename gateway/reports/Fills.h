#pragma once

#include "gateway/reports/Report.h"
#include "gateway/reports/Standing.h"

/// Quantities and prices of reports.
namespace gateway {

/// Takes 14 and 6 over where they go up, or where a bust or correction takes them down. What makes them
/// unusable, or nothing; then the fill is as it was.
QString takeFill(Fill& fill, const QString& orderQuantity, const Report& report);

/// Which leg a report with 442=2 is about: by 654, else by its code where only one leg has it; -1: none.
int legOf(const OrderSize& size, const Report& report);

/// Whether as much was traded as was ordered.
bool isFilled(const Fill& fill, const QString& orderQuantity);
bool hasTraded(const Standing& standing);

} // namespace gateway
