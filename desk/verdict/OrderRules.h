#pragma once

#include "embedded_host/reference_data/Calendar.h"
#include "ledger/draft/BatchDraft.h"
#include "ledger/guard/Limits.h"
#include "table/Fault.h"

#include <QDateTime>

#include <functional>

namespace verdict {

/// A batch, and what its orders are held against.
struct Orders {
    const ledger::BatchDraft& draft; ///< with its amounts
    const ledger::Limits& limits;
    const Calendar& calendar;
    QDateTime now; ///< of any zone
    bool isFutures = false;
    QString accountName = {};                                        ///< of the chosen one
    std::function<bool(const QString& symbol)> isBondRepo = nullptr; ///< null: none is
    /// Of a bond repo; 0, or null: not known.
    std::function<ledger::Decimal(const QString& symbol)> lastRate = nullptr;
    std::function<bool(const QString& text)> isAccount =
        nullptr; ///< a trading account, by number or name; null: none is
    /// What the row's cell under a column holds in the file, by the column's title or identifier or by the
    /// file's own title; empty where the import filled it in.
    std::function<QString(int row, const QString& column)> typed = nullptr;
};

/// What the orders cannot mean, or hardly: a pure function. `row` counts the batch's rows from 1; lines,
/// columns and cells are the caller's to add.
table::Faults faultsOfOrders(const Orders& orders);

/// What binds rows of a batch so that they go out together or not at all; empty: nothing.
QString pairNumberOf(const ledger::InstanceDraft& instance);

/// Days ahead that nobody orders for.
constexpr int FarDays = 20;
/// Seconds between start and end that no algorithm can do anything with.
constexpr int ShortSeconds = 60;
/// A rate is odd that is so many times the last one, or so many times less.
constexpr int RateFactor = 4;
/// A quantity refuses that is worth so many times what looks like money.
constexpr int MoneyFactor = 10;

} // namespace verdict
