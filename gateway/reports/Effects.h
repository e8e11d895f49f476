#pragma once

#include "gateway/reports/Report.h"
#include "gateway/reports/Standing.h"

#include <optional>

/// What a report changes on an instance.
namespace gateway {

/// What the counterparty made known by it, for those who wait.
enum class Answer {
    None,   ///< nothing new
    Knows,  ///< it has the order
    Denies, ///< it does not know the order: asked, and never had it
    Ask,    ///< it may have it: the report leaves that open
};

struct Effect {
    Standing after;
    Answer answer = Answer::None;
    std::optional<State> told; ///< by OrdStatus alone, whatever was asked for
    int leg = 0;               ///< 1, 2: it is about that leg
    QString complaint; ///< why the report was refused; empty: it was not. A refused one changes nothing
};

/// Of an execution report. Pure: the same report twice gives the same standing, and reports may come in any
/// order; whoever calls has passed over those that were counted already.
Effect applyExecution(const Standing& before, const OrderSize& size, const Report& report);
/// Of an order cancel reject.
Effect applyCancelReject(const Standing& before, const Report& report);
/// Of a business or session reject of the order itself.
Effect applyReject(const Standing& before, const Report& report);

} // namespace gateway
