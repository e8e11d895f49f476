#pragma once

#include "embedded_host/reference_data/Calendar.h"
#include "ledger/draft/BatchDraft.h"
#include "ledger/guard/Limits.h"
#include "table/Fault.h"

#include <QDateTime>
#include <QSet>

#include <functional>

namespace verdict {

/// A batch, and what its orders are held against.
struct Orders {
    const ledger::BatchDraft& draft; ///< with its amounts
    const ledger::Limits& limits;
    const Calendar& calendar;
    QDateTime now; ///< of any zone
    bool isFutures = false;
    std::function<bool(const QString& symbol)> isBondRepo; ///< null: none is
    /// What the row's cell under one of these titles of the file holds; empty where the import filled it in.
    std::function<QString(int row, const QStringList& titles)> typed;
};

/// What the orders cannot mean, or hardly: a pure function. `row` counts the batch's rows from 1; lines,
/// columns and cells are the caller's to add.
table::Faults faultsOfOrders(const Orders& orders);

/// Days ahead that nobody orders for.
constexpr int FarDays = 60;
/// A quantity refuses that is worth so many times what looks like money.
constexpr int MoneyFactor = 10;

/// Titles under which a file names a start and an end.
const QStringList& startTitles();
const QStringList& endTitles();

} // namespace verdict
