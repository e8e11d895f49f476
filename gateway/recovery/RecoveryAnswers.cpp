#include "gateway/messages/OrderMessages.h"
#include "gateway/recovery/Recovery.h"
#include "gateway/reports/Fills.h"

/// What recovery makes of what the counterparty says.
namespace gateway {

namespace {

/// Reports by which an execution is counted. A bust counts the report that it is about, too: should that come
/// later, it is over already.
QStringList idsOf(const Report& report)
{
    QStringList ids;
    if (!report.isStatusAnswer() && !report.execId.isEmpty()) {
        ids.append(report.execId);
    }
    if (report.takesBack() && !report.execRefId.isEmpty()) {
        ids.append(report.execRefId);
    }
    return ids;
}

Effect effectOf(const Standing& before, const OrderSize& size, const Report& report)
{
    switch (report.kind) {
    case Report::Kind::Execution:
        return applyExecution(before, size, report);
    case Report::Kind::CancelReject:
        return applyCancelReject(before, report);
    case Report::Kind::BusinessReject:
    case Report::Kind::SessionReject:
        break;
    }
    return applyReject(before, report);
}

/// A cancel that is on its way was asked for, by somebody or by a halt; only the former is remembered.
Effect effectOf(const Track& track, const Report& report)
{
    Standing before = track.instance.standing;
    const bool wasAsked = before.cancelAsked;
    before.cancelAsked = wasAsked || track.isCancelOpen;
    Effect effect = effectOf(before, track.size, report);
    effect.after.cancelAsked = effect.after.cancelAsked && wasAsked;
    return effect;
}

} // namespace

void Recovery::receive(const Report& report, const Moment& now, Step& step)
{
    const auto found = mTracks.find(report.clOrdId);
    if (found != mTracks.end()) {
        count(*found, report, now, step);
        forgetUnlessOpen(report.clOrdId);
    }
}

void Recovery::count(Track& track, const Report& report, const Moment& now, Step& step)
{
    const QStringList ids = idsOf(report);
    if (!ids.isEmpty() && track.instance.countedIds.contains(ids.first())) {
        return;
    }
    const Effect effect = effectOf(track, report);
    if (!effect.complaint.isEmpty()) {
        step.kept.append({report.clOrdId, report.execId, effect.complaint});
        return;
    }
    if (effect.answer == Answer::Denies && isStale(track, report)) {
        return;
    }
    if (!ids.isEmpty() || !(effect.after == track.instance.standing)) {
        change(track, effect.after, step, ids);
    }
    answered(track, report, effect, now, step);
}

/// A denial counts only as the answer to the last question: an earlier one was true before the order went out
/// again.
bool Recovery::isStale(const Track& track, const Report& report) const
{
    if (track.waiting != Waiting::StatusAnswer) {
        return true;
    }
    return report.requestId.isEmpty() ? report.isResent : report.requestId != track.requestId;
}

void Recovery::answered(Track& track, const Report& report, const Effect& effect, const Moment& now,
                        Step& step)
{
    switch (effect.answer) {
    case Answer::Denies:
        denied(track, now, step);
        break;
    case Answer::Ask:
        doubt(track, now, step);
        break;
    case Answer::Knows:
        stopWaiting(track, report, now);
        cancelIfWanted(track, now, step);
        break;
    case Answer::None:
        break;
    }
}

/// A report on an order ends the wait for it; a question is ended by its own answer alone. A status that
/// tells of no cancel means that the cancel request was lost.
void Recovery::stopWaiting(Track& track, const Report& report, const Moment& now)
{
    const bool isPending = report.ordStatus == QLatin1String("6");
    if (report.kind == Report::Kind::CancelReject) {
        track.isCancelOpen = isPending;
        track.haltIsOver = true;
    }
    if (track.waiting == Waiting::StatusAnswer) {
        if (!report.isStatusAnswer() || isStale(track, report)) {
            return;
        }
        track.isCancelOpen = isPending;
    }
    if (track.waiting == Waiting::Question) {
        return;
    }
    if (!track.isCancelOpen) {
        wait(track, Waiting::Nothing, now);
    } else if (track.waiting != Waiting::CancelAnswer) {
        wait(track, Waiting::CancelAnswer, now);
    }
}

/// The counterparty never had it, or has lost it.
void Recovery::denied(Track& track, const Moment& now, Step& step)
{
    wait(track, Waiting::Nothing, now);
    const Standing& standing = track.instance.standing;
    if (hasTraded(standing) || track.saidDuplicate) {
        markUnknown(track, QStringLiteral("对手方前后答复矛盾：曾有成交或称已收到，现称没有此订单"), step);
    } else if (standing.cancelAsked) {
        moveTo(track, State::Withdrawn, step);
    } else if (mHalts.holds(track.instance.account)) {
        moveTo(track, State::Queued, step);
    } else if (!mProfile.possResend || !track.isSendable) {
        markUnknown(track, QStringLiteral("对手方没有此订单，按配置不再自动发送"), step);
    } else {
        moveTo(track, State::Sending, step);
        sendAgain(track, now, step);
    }
}

void Recovery::moveTo(Track& track, State state, Step& step)
{
    Standing after = track.instance.standing;
    after.state = state;
    after.cancelAsked = after.cancelAsked && isOpen(state);
    after.reason.clear();
    if (!(after == track.instance.standing)) {
        change(track, after, step);
    }
}

/// It may have it: ask, and do not believe a denial after that.
void Recovery::doubt(Track& track, const Moment& now, Step& step)
{
    track.saidDuplicate = true;
    track.isCancelOpen = false;
    if (mProfile.statusRequest && mLoggedOn) {
        askStatus(track, now, step);
    } else {
        markUnknown(track, QStringLiteral("对手方称已收到此订单，状态未知"), step);
    }
}

void Recovery::receiveRefusal(const QString& clOrdId, const std::string& messageType, const Report& report,
                              const Moment& now, Step& step)
{
    const auto found = mTracks.find(clOrdId);
    if (found == mTracks.end()) {
        return;
    }
    if (messageType == "H" && found->waiting == Waiting::StatusAnswer) {
        timedOut(*found, now, step);
    } else if (messageType == "F" && found->isCancelOpen) {
        Standing after = found->instance.standing;
        after.state = State::Running;
        after.cancelAsked = false;
        after.reason = QStringLiteral("撤单请求被拒绝：") + report.text;
        found->isCancelOpen = false;
        found->haltIsOver = true;
        change(*found, after, step);
        wait(*found, Waiting::Nothing, now);
    }
}

} // namespace gateway
