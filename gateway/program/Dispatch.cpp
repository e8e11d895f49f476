#include "gateway/program/Dispatch.h"

#include "gateway/messages/OrderMessages.h"
#include "gateway/reports/Report.h"
#include "words/Words.h"

#include <QLoggingCategory>
#include <QThread>

#include <algorithm>

namespace gateway {

namespace {

Q_LOGGING_CATEGORY(log, "algo.gateway")

const std::chrono::milliseconds Patience(25);
const int MostInARound = 400;
const int MostRemembered = 100000;
const int PauseBeforeRetry = 50;  // milliseconds
const int PauseBetweenLooks = 50; // milliseconds
const int PauseBetweenLots = 500; // milliseconds

} // namespace

Dispatch::Dispatch(const Terms& terms, LedgerPort& ledger, Engine& engine, Inbox& inbox, Printer& printer)
    : mTerms(terms), mLedger(ledger), mEngine(engine), mInbox(inbox), mPrinter(printer),
      mRecovery(terms.profile, Pacing(terms.ordersPerSecond, terms.ordersPerSecondInAll)),
      mSession(QString::fromStdString(engine.session()))
{
    mClock.start();
}

Moment Dispatch::now() const
{
    return {mClock.elapsed(), QDateTime::currentDateTimeUtc()};
}

template <typename Value> Outcome<Value> Dispatch::insist(const std::function<Outcome<Value>()>& call)
{
    while (true) {
        const Outcome<Value> outcome = call();
        if (outcome.ok()) {
            return outcome;
        }
        qCWarning(log).noquote() << outcome.error;
        if (mTerms.isAskedToEnd()) {
            mEnds = true;
            return outcome;
        }
        QThread::msleep(PauseBeforeRetry);
    }
}

Outcome<void> Dispatch::begin()
{
    const Outcome<QList<OpenInstance>> open = mLedger.open();
    for (const OpenInstance& instance : open.value) {
        mRecovery.adopt(instance, now());
    }
    return {open.error};
}

void Dispatch::run()
{
    while (!mTerms.isAskedToEnd()) {
        round(Patience);
    }
}

void Dispatch::round(std::chrono::milliseconds patience)
{
    const std::vector<Inbox::Item> items = mInbox.take(patience);
    Step step;
    look(step);
    hear(items, step);
    mRecovery.tick(now(), step);
    write(step);
    if (mEnds) {
        return;
    }
    const auto count =
        std::count_if(items.begin(), items.end(), [](const Inbox::Item& item) { return item.isMessage; });
    mEngine.confirm(mEngine.session(), static_cast<int>(count));
    send(step);
    takeQueued();
    if (mClock.elapsed() - mTrafficAt >= PauseBetweenLots) {
        keepTraffic();
    }
}

void Dispatch::finish()
{
    round(std::chrono::milliseconds(0));
    keepTraffic();
}

/// For people to read: what a kill swallows of it is in nobody's way.
void Dispatch::keepTraffic()
{
    mTrafficAt = mClock.elapsed();
    const std::vector<Traffic> traffic = mInbox.takeTraffic();
    if (traffic.empty()) {
        return;
    }
    const Outcome<void> kept = mLedger.noteTraffic(traffic);
    if (!kept.ok()) {
        qCWarning(log).noquote() << kept.error;
    }
}

void Dispatch::hear(const std::vector<Inbox::Item>& items, Step& step)
{
    for (const Inbox::Item& item : items) {
        if (item.isMessage) {
            hearMessage(item.message, step);
        } else {
            hearNews(item.news, step);
        }
    }
}

void Dispatch::hearNews(const SessionNews& news, Step& step)
{
    const QString state = nameOf(news.state);
    const QString text = QString::fromStdString(news.text);
    if (news.state == SessionNews::State::GapFilled) {
        hearGap(news, step);
    }
    if (state.isEmpty()) {
        qCInfo(log).noquote() << mSession << text;
        return;
    }
    if (news.state == SessionNews::State::LoggedOn) {
        mSeen = -1; // cancels may wait
        mRecovery.loggedOn(now(), step);
    } else if (news.state == SessionNews::State::Disconnected) {
        mRecovery.loggedOff();
    }
    mPrinter.session(mSession, state, text);
    const Outcome<void> noted = mLedger.noteSession(state, text);
    if (!noted.ok()) {
        qCWarning(log).noquote() << noted.error;
    }
}

/// What went out and was missed is lost: whoever waits for an answer to it asks.
void Dispatch::hearGap(const SessionNews& news, Step& step)
{
    QSet<QString> lost;
    for (auto it = mSent.lower_bound(news.gapFrom); it != mSent.end() && it->first < news.gapTo; ++it) {
        lost.insert(it->second.clOrdId);
    }
    for (const QString& clOrdId : lost) {
        mRecovery.wasLost(clOrdId, now(), step);
    }
}

void Dispatch::hearMessage(const Message& message, Step& step)
{
    if (message.type.empty()) {
        step.kept.append({QString(), QString(), QString::fromStdString(message.text(58))});
    }
    if (!isReport(message.type)) {
        return;
    }
    const Outcome<Report> report = readReport(message);
    if (!report.ok()) {
        step.kept.append({QString::fromStdString(message.text(11)), QString::fromStdString(message.text(17)),
                          report.error});
    } else if (report.value.kind == Report::Kind::BusinessReject ||
               report.value.kind == Report::Kind::SessionReject) {
        hearReject(report.value, step);
    } else {
        hearReport(report.value, step);
    }
}

/// A reject names a message of ours by its number, and perhaps the order: what an earlier program sent is
/// known by that alone.
void Dispatch::hearReject(Report report, Step& step)
{
    const auto sent = mSent.find(report.refSeqNum.toInt());
    std::string type = report.refMsgType.toStdString();
    if (sent != mSent.end()) {
        report.clOrdId = sent->second.clOrdId;
        type = sent->second.type;
    }
    if (report.clOrdId.isEmpty()) {
        step.kept.append({QString(), QString(), Words::tr("拒绝了未知的消息：%1").arg(report.text)});
    } else if (type == "F" || type == "H") {
        mRecovery.receiveRefusal(report.clOrdId, type, report, now(), step);
    } else {
        hearReport(report, step);
    }
}

void Dispatch::hearReport(const Report& report, Step& step)
{
    if (!mRecovery.follows(report.clOrdId)) {
        const auto found = insist<std::optional<OpenInstance>>([&] { return mLedger.find(report.clOrdId); });
        if (!found.value) {
            step.kept.append({report.clOrdId, report.execId, Words::tr("不是本台账的订单")});
            return;
        }
        mRecovery.adopt(*found.value, now());
    }
    mRecovery.receive(report, now(), step);
}

bool Dispatch::isTimeToLook() const
{
    return mClock.elapsed() - mLookedAt >= PauseBetweenLooks;
}

/// What others wrote into the ledger since the last look.
void Dispatch::look(Step& step)
{
    const qint64 count = isTimeToLook() ? mLedger.changeCount() : mSeen;
    if (count == mSeen) {
        return;
    }
    mLookedAt = mClock.elapsed();
    mMayBeQueued = true;
    const Outcome<QList<CancelOrder>> cancels =
        mRecovery.isLoggedOn() ? mLedger.takeCancels(MostInARound) : Outcome<QList<CancelOrder>>();
    if (!cancels.ok()) {
        qCWarning(log).noquote() << cancels.error;
        return;
    }
    mSeen = count;
    for (const CancelOrder& order : cancels.value) {
        mRecovery.cancel(order, now(), step);
    }
}

/// Nothing where the ledger cannot be asked just now.
std::optional<QString> Dispatch::refusalOf(const OpenInstance& instance)
{
    const qint64 batch = instance.key.batch;
    if (!mRefusals.contains(batch)) {
        const Outcome<QList<Order>> orders = mLedger.ordersOf(batch);
        if (!orders.ok()) {
            return std::nullopt;
        }
        mRefusals.insert(batch, refusalsOf(mTerms.profile, orders.value, now().wall));
    }
    return mRefusals.value(batch).value(instance.key.row);
}

/// Those that can go out; the others are rejected.
QList<OpenInstance> Dispatch::refuse(const QList<OpenInstance>& queued, Step& step)
{
    QList<OpenInstance> sendable;
    for (const OpenInstance& instance : queued) {
        const std::optional<QString> refusal = refusalOf(instance);
        if (refusal && refusal->isEmpty()) {
            sendable.append(instance);
        }
        if (!refusal || refusal->isEmpty()) {
            continue;
        }
        Standing after = instance.standing;
        after.state = State::Rejected;
        after.reason = *refusal;
        Change change;
        change.key = instance.key;
        change.clOrdId = clOrdIdOf(instance.order);
        change.before = instance.standing;
        change.after = after;
        step.changes.append(change);
    }
    return sendable;
}

void Dispatch::takeQueued()
{
    if (!mRecovery.isLoggedOn() || !mMayBeQueued) {
        return;
    }
    const Outcome<QList<OpenInstance>> queued = mLedger.queued(MostInARound);
    mMayBeQueued = !queued.ok() || !queued.value.isEmpty();
    Step refusals;
    const QList<OpenInstance> chosen = mRecovery.choose(refuse(queued.value, refusals), now());
    write(refusals);
    if (!chosen.isEmpty() && !mEnds) {
        takeThese(chosen);
    }
}

void Dispatch::takeThese(const QList<OpenInstance>& chosen)
{
    QList<InstanceKey> keys;
    for (const OpenInstance& instance : chosen) {
        keys.append(instance.key);
    }
    const Outcome<QSet<QString>> taken = mLedger.take(keys);
    Step step;
    for (OpenInstance instance : chosen) {
        const QString clOrdId = clOrdIdOf(instance.order);
        if (taken.value.contains(clOrdId)) {
            instance.standing.state = State::Sending;
            mRecovery.send(instance, now(), step);
            mPrinter.instance(instance.key, clOrdId, instance.standing);
        }
    }
    send(step);
}

/// Until it stands in the ledger: nothing goes out before.
void Dispatch::write(const Step& step)
{
    mVetoed.clear();
    if (step.changes.isEmpty() && step.kept.isEmpty()) {
        return;
    }
    const auto recorded = insist<QHash<QString, Standing>>([&] { return mLedger.record(step); });
    if (recorded.ok()) {
        settle(step, recorded.value);
        mRecovery.sweep();
    }
}

void Dispatch::settle(const Change& change, const Standing& standing)
{
    mRecovery.settle(change.clOrdId, standing);
    if (change.after.state == State::Sending && standing.state != State::Sending) {
        mVetoed.insert(change.clOrdId);
    }
}

/// The ledger's word holds: where it stands otherwise than was decided here, that was decided too late.
void Dispatch::settle(const Step& step, const QHash<QString, Standing>& standings)
{
    QHash<QString, int> last;
    for (int i = 0; i < step.changes.size(); ++i) {
        last.insert(step.changes.at(i).clOrdId, i);
    }
    for (int i = 0; i < step.changes.size(); ++i) {
        const Change& change = step.changes.at(i);
        const bool isLast = last.value(change.clOrdId) == i;
        const Standing standing = isLast ? standings.value(change.clOrdId, change.after) : change.after;
        if (isLast) {
            settle(change, standing);
        }
        if (!(change.before == standing)) {
            mPrinter.instance(change.key, change.clOrdId, standing);
        }
    }
    for (const KeptReport& report : step.kept) {
        mPrinter.kept(report);
    }
}

void Dispatch::send(const Step& step)
{
    for (const Outgoing& outgoing : step.messages) {
        const int number =
            mVetoed.contains(outgoing.clOrdId) ? 0 : mEngine.send(mEngine.session(), outgoing.message);
        if (number > 0) {
            mSent[number] = {outgoing.message.type, outgoing.clOrdId};
        }
    }
    while (mSent.size() > MostRemembered) {
        mSent.erase(mSent.begin());
    }
}

} // namespace gateway
