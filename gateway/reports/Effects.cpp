#include "gateway/reports/Effects.h"

#include "gateway/reports/Fills.h"
#include "words/Words.h"

#include <algorithm>
#include <optional>

namespace gateway {

namespace {

/// What OrdStatus (39) makes of an instance; none for a status that says nothing of its state.
std::optional<State> stateOf(const QString& ordStatus, bool cancelAsked)
{
    static const QString Working = QStringLiteral("0A159DE");
    if (ordStatus.size() != 1) {
        return std::nullopt;
    }
    if (Working.contains(ordStatus)) {
        return cancelAsked ? State::Stopping : State::Running;
    }
    switch (ordStatus.at(0).unicode()) {
    case u'6':
        return State::Stopping;
    case u'4':
        return State::Stopped;
    case u'3':
        return cancelAsked ? State::Stopped : State::Finished;
    case u'2':
    case u'C':
        return State::Finished;
    case u'8':
        return State::Rejected;
    default:
        return std::nullopt;
    }
}

/// A report that rejects does so whatever status it names.
std::optional<State> stateOf(const Report& report, bool cancelAsked)
{
    return report.rejects() ? State::Rejected : stateOf(report.ordStatus, cancelAsked);
}

bool isWorking(State state)
{
    return state == State::Running || state == State::Stopping;
}

/// Whether a report that names `told` may move an instance that stands at `before`. What comes late does not
/// bring back to life what is over; a bust or correction may, and so may what was never thought to be there.
bool mayMove(State before, State told, const Report& report, bool traded)
{
    if (before == State::Withdrawn) {
        return traded || !isOver(told);
    }
    if (!isOver(before) || report.takesBack()) {
        return true;
    }
    if (before == State::Stopped) {
        return told == State::Finished;
    }
    return before == State::Rejected && traded && told != State::Rejected;
}

QString rejectionOf(const Report& report)
{
    if (!report.text.isEmpty()) {
        return report.text;
    }
    return report.rejectCode.isEmpty() ? Words::tr("对手方拒绝，未说明原因")
                                       : Words::tr("对手方拒绝，代码 %1").arg(report.rejectCode);
}

void moveTo(Standing& standing, State told, const Report& report)
{
    standing.state = told;
    if (isOver(told)) {
        standing.cancelAsked = false;
        standing.reason = told == State::Rejected ? rejectionOf(report) : report.text;
    } else {
        standing.reason.clear();
    }
}

QString takeFills(Standing& standing, const OrderSize& size, const Report& report)
{
    if (size.legs.isEmpty()) {
        return takeFill(standing.fill, size.quantity, report);
    }
    if (!report.isOfOneLeg()) {
        return QString();
    }
    const int leg = legOf(size, report);
    if (leg < 0) {
        return Words::tr("回报没有说明是哪一腿");
    }
    while (standing.legs.size() < size.legs.size()) {
        standing.legs.append(Fill());
    }
    return takeFill(standing.legs[leg], size.legs.at(leg).quantity, report);
}

bool areFilled(const Standing& standing, const OrderSize& size)
{
    if (standing.legs.size() != size.legs.size()) {
        return false;
    }
    for (int i = 0; i < size.legs.size(); ++i) {
        if (!isFilled(standing.legs.at(i), size.legs.at(i).quantity)) {
            return false;
        }
    }
    return true;
}

/// A leg's status is not the order's: one leg is done long before the other. All filled is.
State stateByLeg(const Standing& standing, const OrderSize& size)
{
    if (areFilled(standing, size)) {
        return State::Finished;
    }
    return State::Running;
}

/// The state that a report tells. A stopped order whose late fills reach its quantity is finished after all.
std::optional<State> toldState(const Standing& standing, const OrderSize& size, const Report& report)
{
    if (!size.legs.isEmpty() && report.isOfOneLeg()) {
        const State byLegs = stateByLeg(standing, size);
        return byLegs == State::Running && standing.cancelAsked ? State::Stopping : byLegs;
    }
    const std::optional<State> told = stateOf(report, standing.cancelAsked);
    const bool isComplete = size.legs.isEmpty() && isFilled(standing.fill, size.quantity);
    return told == State::Stopped && isComplete ? State::Finished : told;
}

Effect unchanged(const Standing& before, Answer answer, const QString& complaint = QString())
{
    Effect effect;
    effect.after = before;
    effect.answer = answer;
    effect.complaint = complaint;
    return effect;
}

Effect refused(const Standing& before, const QString& complaint)
{
    return unchanged(before, Answer::None, complaint);
}

QString unknownStatus(const Report& report)
{
    return Words::tr("未知的订单状态“%1”").arg(report.ordStatus);
}

/// Stopped (7, a price is guaranteed) and calculated (B) are statuses of the standard that no state of an
/// instance stands for.
bool isStateless(const Report& report)
{
    return report.ordStatus == QLatin1String("7") || report.ordStatus == QLatin1String("B");
}

/// What was traded is the truth, whatever the status. The state stays, and whoever waits for one waits on;
/// people see why.
Effect stateless(Effect effect, const Report& report)
{
    effect.answer = Answer::None;
    if (!isOver(effect.after.state)) {
        effect.after.reason = unknownStatus(report);
    }
    return effect;
}

} // namespace

Effect applyExecution(const Standing& before, const OrderSize& size, const Report& report)
{
    if (report.deniesOrder()) {
        return unchanged(before, Answer::Denies);
    }
    if (report.saysDuplicate()) {
        return unchanged(before, isOver(before.state) ? Answer::None : Answer::Ask);
    }
    Effect effect = unchanged(before, Answer::Knows);
    const QString fault = takeFills(effect.after, size, report);
    if (!fault.isEmpty()) {
        return refused(before, fault);
    }
    const std::optional<State> told = toldState(effect.after, size, report);
    if (!told) {
        return isStateless(report) ? stateless(effect, report) : refused(before, unknownStatus(report));
    }
    const bool isOfLeg = !size.legs.isEmpty() && report.isOfOneLeg();
    effect.leg = isOfLeg ? legOf(size, report) + 1 : 0;
    effect.told = isOfLeg ? stateByLeg(effect.after, size) : stateOf(report, false);
    if (*told == State::Stopped || *told == State::Finished) {
        effect.told = told;
    }
    const bool traded = hasTraded(effect.after);
    const bool isComplete =
        size.legs.isEmpty() ? isFilled(effect.after.fill, size.quantity) : areFilled(effect.after, size);
    if (mayMove(before.state, *told, report, traded) && *told != before.state) {
        moveTo(effect.after, *told, report);
    } else if (before.state == State::Stopped && isComplete) {
        moveTo(effect.after, State::Finished, report);
    }
    return effect;
}

Effect applyCancelReject(const Standing& before, const Report& report)
{
    const bool isUnknownOrder = report.rejectCode == QLatin1String("1");
    if (isOver(before.state)) {
        return unchanged(before, Answer::None);
    }
    if (isUnknownOrder && report.ordStatus == QLatin1String("8")) {
        return unchanged(before, Answer::Ask);
    }
    const std::optional<State> told =
        stateOf(report.ordStatus, before.cancelAsked && report.ordStatus == QLatin1String("3"));
    if (!told) {
        return refused(before, unknownStatus(report));
    }
    Effect effect = unchanged(before, Answer::Knows);
    effect.told = told;
    effect.after.cancelAsked = *told == State::Stopping && before.cancelAsked;
    if (*told != before.state) {
        moveTo(effect.after, *told, report);
    }
    if (isWorking(*told)) {
        effect.after.reason = Words::tr("撤单被拒绝：%1").arg(rejectionOf(report));
    }
    return effect;
}

Effect applyReject(const Standing& before, const Report& report)
{
    if (before.state != State::Sending && before.state != State::Unknown) {
        return unchanged(before, Answer::None);
    }
    Effect effect = unchanged(before, Answer::Knows);
    moveTo(effect.after, State::Rejected, report);
    effect.told = State::Rejected;
    return effect;
}

} // namespace gateway
