#include "gateway/messages/OrderMessages.h"
#include "gateway/recovery/Recovery.h"
#include "gateway/reports/Fills.h"
#include "words/Words.h"

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

/// A cancel that is on its way was asked for, whoever did.
Effect effectOf(const Track& track, const Report& report)
{
    Standing before = track.instance.standing;
    before.cancelAsked = before.cancelAsked || track.isCancelOpen;
    return effectOf(before, track.size, report);
}

/// What the order may be filled to, or the leg that the report is about.
QString orderedOf(const OrderSize& size, int leg)
{
    return leg == 0 ? size.quantity : size.legs.value(leg - 1).quantity;
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
    take(track, report, effect, step);
    answered(track, report, effect, now, step);
}

void Recovery::take(Track& track, const Report& report, const Effect& effect, Step& step)
{
    const bool saysSomething =
        effect.told || !report.execId.isEmpty() || !(effect.after == track.instance.standing);
    if (!saysSomething || effect.answer == Answer::Denies) {
        return;
    }
    change(track, effect.after, step);
    Change& last = step.changes.last();
    last.report = report;
    last.told = effect.told;
    last.leg = effect.leg;
    last.ordered = orderedOf(track.size, effect.leg);
    for (const QString& id : idsOf(report)) {
        track.instance.countedIds.insert(id);
    }
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
        track.refusedAt = now.steady;
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

/// The counterparty never had it, or has lost it. That it goes out again is put to the ledger, which knows
/// better where it was taken back or halted meanwhile.
void Recovery::denied(Track& track, const Moment& now, Step& step)
{
    wait(track, Waiting::Nothing, now);
    const Standing& standing = track.instance.standing;
    if (hasTraded(standing) || track.saidDuplicate) {
        markUnknown(track, Words::tr("对手方前后答复矛盾：曾有成交或称已收到，现称没有此订单"), step);
    } else if (standing.cancelAsked || standing.state == State::Stopping) {
        moveTo(track, State::Withdrawn, step);
    } else if (!mProfile.possResend || !track.isSendable) {
        markUnknown(track, Words::tr("对手方没有此订单，按配置不再自动发送"), step);
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
    change(track, after, step);
}

/// It may have it: ask, and do not believe a denial after that.
void Recovery::doubt(Track& track, const Moment& now, Step& step)
{
    track.saidDuplicate = true;
    track.isCancelOpen = false;
    if (mProfile.statusRequest && mLoggedOn) {
        askStatus(track, now, step);
    } else {
        markUnknown(track, Words::tr("对手方称已收到此订单，状态未知"), step);
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
        Report refusal = report;
        refusal.kind = Report::Kind::CancelReject;
        refusal.ordStatus = QStringLiteral("0");
        count(*found, refusal, now, step);
    }
}

} // namespace gateway
