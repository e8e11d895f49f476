#include "gateway/recovery/Recovery.h"

#include "gateway/messages/OrderMessages.h"
#include "words/Words.h"

#include <algorithm>
#include <tuple>

namespace gateway {

namespace {

const qint64 MillisecondsInSecond = 1000;
/// Status requests that are out at the same time. A line that breaks over and over lets few messages pass:
/// they must not all be questions.
const int MostUnanswered = 32;

/// What the reports of an order are held against.
OrderSize sizeOf(const Message& order)
{
    OrderSize size;
    size.quantity = QString::fromStdString(order.text(38));
    if (const Group* legs = order.group(555)) {
        for (const Fields& leg : legs->entries) {
            const std::string* symbol = findField(leg, 600);
            const std::string* quantity = findField(leg, 687);
            size.legs.append({symbol == nullptr ? QString() : QString::fromStdString(*symbol),
                              quantity == nullptr ? QString() : QString::fromStdString(*quantity)});
        }
    }
    return size;
}

/// An order that the profile no longer lets out can still be asked for and cancelled.
Message bareOrder(const Order& order)
{
    Message message;
    message.type = "D";
    message.put(11, clOrdIdOf(order).toStdString());
    return message;
}

} // namespace

Recovery::Recovery(const Profile& profile, const Pacing& pacing) : mProfile(profile), mPacing(pacing) {}

void Recovery::adopt(const OpenInstance& instance, const Moment& now)
{
    Track track;
    track.instance = instance;
    const Outcome<Message> order = newOrder(mProfile, instance.order, now.wall);
    track.message = order.ok() ? order.value : bareOrder(instance.order);
    track.isSendable = order.ok();
    track.size = sizeOf(track.message);
    if (instance.standing.state == State::Sending) {
        mPacing.assumeSpent(now.steady);
    }
    mTracks.insert(clOrdIdOf(instance.order), track);
}

void Recovery::send(const OpenInstance& instance, const Moment& now, Step& step)
{
    const QString clOrdId = clOrdIdOf(instance.order);
    adopt(instance, now);
    Track& track = mTracks[clOrdId];
    mPacing.count(instance.account, now.steady);
    say(track, instance.wasSent ? repeated(track.message) : track.message, step);
    wait(track, Waiting::Acknowledgement, now);
}

void Recovery::loggedOn(const Moment& now, Step& step)
{
    loggedOff();
    mLoggedOn = true;
    const QStringList followed = followedByUrgency();
    for (const QString& clOrdId : followed) {
        Track& track = mTracks[clOrdId];
        track.isCancelOpen = false;
        track.saidDuplicate = false;
        if (isOpen(track.instance.standing.state)) {
            resume(track, now, step);
        }
    }
}

/// What may not have arrived first, in order of batch and row.
QStringList Recovery::followedByUrgency() const
{
    const auto urgencyOf = [this](const QString& clOrdId) {
        const OpenInstance& instance = mTracks.find(clOrdId)->instance;
        return std::make_tuple(instance.standing.state != State::Sending, instance.key.batch,
                               instance.key.row);
    };
    QStringList followed = mTracks.keys();
    std::sort(followed.begin(), followed.end(),
              [&](const QString& one, const QString& other) { return urgencyOf(one) < urgencyOf(other); });
    return followed;
}

/// Asks for an instance, or does without where the counterparty does not answer such questions.
void Recovery::resume(Track& track, const Moment& now, Step& step)
{
    if (mProfile.statusRequest) {
        askStatus(track, now, step);
    } else if (track.instance.standing.state == State::Sending) {
        markUnknown(track, Words::tr("连接中断，对手方不支持状态查询"), step);
    }
}

void Recovery::wasLost(const QString& clOrdId, const Moment& now, Step& step)
{
    const auto found = mTracks.find(clOrdId);
    if (mLoggedOn && found != mTracks.end() && mWaiting.contains(clOrdId)) {
        found->isCancelOpen = false;
        resume(*found, now, step);
    }
}

void Recovery::loggedOff()
{
    mLoggedOn = false;
    mAnswers = true;
    mTurns.clear();
    mWaiting.clear();
    mQuestions.clear();
    mCancels.clear();
    mUnanswered = 0;
    for (Track& track : mTracks) {
        track.waiting = Waiting::Nothing;
    }
}

void Recovery::cancel(const CancelOrder& order, const Moment& now, Step& step)
{
    const auto found = mTracks.find(order.clOrdId);
    if (!mLoggedOn || found == mTracks.end()) {
        return; // it is asked for after the next logon, and cancelled then
    }
    const bool isAsking = found->waiting == Waiting::StatusAnswer || found->waiting == Waiting::Question;
    const bool wasRefused = found->refusedAt >= 0 && now.steady - found->refusedAt < patience();
    mCancels.remove(order.clOrdId);
    if (isAsking || wasRefused) {
        mCancels.insert(order.clOrdId, order);
        return;
    }
    say(*found, cancelRequest(found->message, order.cancelId, now.wall), step);
    found->isCancelOpen = true;
    wait(*found, Waiting::CancelAnswer, now);
}

void Recovery::settle(const QString& clOrdId, const Standing& standing)
{
    const auto found = mTracks.find(clOrdId);
    if (found == mTracks.end()) {
        return;
    }
    found->instance.standing = standing;
    forgetUnlessOpen(clOrdId);
}

QList<OpenInstance> Recovery::choose(const QList<OpenInstance>& queued, const Moment& now) const
{
    QList<OpenInstance> chosen;
    Pacing pacing = mPacing;
    for (const OpenInstance& instance : queued) {
        if (mLoggedOn && mQuestions.isEmpty() && pacing.allows(instance.account, now.steady)) {
            pacing.count(instance.account, now.steady);
            chosen.append(instance);
        }
    }
    return chosen;
}

void Recovery::tick(const Moment& now, Step& step)
{
    if (!mLoggedOn) {
        return;
    }
    const QSet<QString> waiting = mWaiting;
    for (const QString& clOrdId : waiting) {
        const auto found = mTracks.find(clOrdId);
        if (found != mTracks.end() && now.steady - found->since >= patience()) {
            timedOut(*found, now, step);
        }
    }
    const QStringList turns = mTurns;
    mTurns.clear();
    for (const QString& clOrdId : turns) {
        const auto found = mTracks.find(clOrdId);
        if (found != mTracks.end() && found->waiting == Waiting::Turn) {
            denied(*found, now, step); // much may have happened since
            forgetUnlessOpen(clOrdId);
        }
    }
    const QHash<QString, CancelOrder> cancels = mCancels;
    mCancels.clear();
    for (const CancelOrder& order : cancels) {
        cancel(order, now, step);
    }
    askOn(now, step);
}

/// How long an answer may take, milliseconds.
qint64 Recovery::patience() const
{
    return mProfile.statusTimeoutSeconds * MillisecondsInSecond;
}

void Recovery::timedOut(Track& track, const Moment& now, Step& step)
{
    const bool wasAsked = track.waiting == Waiting::StatusAnswer;
    mAnswers = mAnswers && !wasAsked;
    wait(track, Waiting::Nothing, now);
    if (!wasAsked && mProfile.statusRequest) {
        askStatus(track, now, step);
    } else if (track.instance.standing.state == State::Sending) {
        markUnknown(track, Words::tr("对手方没有答复"), step);
    }
}

void Recovery::change(Track& track, const Standing& after, Step& step)
{
    Change change;
    change.key = track.instance.key;
    change.clOrdId = clOrdIdOf(track.instance.order);
    change.before = track.instance.standing;
    change.after = after;
    step.changes.append(change);
    track.instance.standing = after;
}

void Recovery::say(Track& track, const Message& message, Step& step)
{
    step.messages.append({clOrdIdOf(track.instance.order), track.instance.account, message});
}

void Recovery::wait(Track& track, Waiting what, const Moment& now)
{
    const QString clOrdId = clOrdIdOf(track.instance.order);
    mUnanswered += (what == Waiting::StatusAnswer) - (track.waiting == Waiting::StatusAnswer);
    track.waiting = what;
    track.since = now.steady;
    if (what == Waiting::Nothing || what == Waiting::Turn || what == Waiting::Question) {
        mWaiting.remove(clOrdId);
    } else {
        mWaiting.insert(clOrdId);
    }
}

void Recovery::askStatus(Track& track, const Moment& now, Step& step)
{
    if (mUnanswered < MostUnanswered || !mAnswers) {
        askNow(track, now, step);
    } else {
        wait(track, Waiting::Question, now);
        mQuestions.append(clOrdIdOf(track.instance.order));
    }
}

/// The next questions, as many as answers came. Who answers none in time is asked all at once.
void Recovery::askOn(const Moment& now, Step& step)
{
    while (!mQuestions.isEmpty() && (mUnanswered < MostUnanswered || !mAnswers)) {
        const auto found = mTracks.find(mQuestions.takeFirst());
        if (found != mTracks.end() && found->waiting == Waiting::Question) {
            askNow(*found, now, step);
        }
    }
}

void Recovery::askNow(Track& track, const Moment& now, Step& step)
{
    track.requestId = QStringLiteral("S%1-%2").arg(now.wall.toMSecsSinceEpoch()).arg(++mRequests);
    say(track, statusRequest(track.message, track.requestId), step);
    wait(track, Waiting::StatusAnswer, now);
}

/// The same order with 97=Y, as soon as the pace allows.
void Recovery::sendAgain(Track& track, const Moment& now, Step& step)
{
    if (!mPacing.allows(track.instance.account, now.steady)) {
        wait(track, Waiting::Turn, now);
        mTurns.append(clOrdIdOf(track.instance.order));
        return;
    }
    mPacing.count(track.instance.account, now.steady);
    say(track, repeated(track.message), step);
    wait(track, Waiting::Acknowledgement, now);
}

void Recovery::markUnknown(Track& track, const QString& reason, Step& step)
{
    Standing after = track.instance.standing;
    after.state = State::Unknown;
    after.reason = reason;
    change(track, after, step);
}

void Recovery::forgetUnlessOpen(const QString& clOrdId)
{
    const auto found = mTracks.find(clOrdId);
    if (found != mTracks.end() && !isOpen(found->instance.standing.state)) {
        wait(*found, Waiting::Nothing, Moment());
        mOver.insert(clOrdId);
    }
}

void Recovery::sweep()
{
    for (const QString& clOrdId : mOver) {
        const auto found = mTracks.find(clOrdId);
        if (found != mTracks.end() && !isOpen(found->instance.standing.state)) {
            mTracks.erase(found);
        }
    }
    mOver.clear();
}

int Recovery::openCount() const
{
    return static_cast<int>(std::count_if(mTracks.begin(), mTracks.end(), [](const Track& track) {
        return isOpen(track.instance.standing.state);
    }));
}

} // namespace gateway
