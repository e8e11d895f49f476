#pragma once

#include "gateway/profile/Profile.h"
#include "gateway/recovery/Pacing.h"
#include "gateway/recovery/Track.h"
#include "gateway/reports/Effects.h"

#include <QDateTime>
#include <QHash>
#include <QSet>

/// What to send, ask and remember so that every instance is executed once: never twice, never not at all.
///
/// A state machine without clock, ledger or engine. Whoever drives it writes down each step's changes, then
/// sends its messages, then goes on. Killed anywhere in between, the next one adopts what the ledger holds
/// and asks the counterparty.
namespace gateway {

/// The moment: `steady` counts milliseconds and never goes back, `wall` is for TransactTime.
struct Moment {
    qint64 steady = 0;
    QDateTime wall;
};

class Recovery {
public:
    Recovery(const Profile& profile, const Pacing& pacing);

    /// An open instance that the ledger holds: at the start, or when a report names one that is not followed.
    void adopt(const OpenInstance& instance, const Moment& now);
    /// One that the ledger just wrote down as `sending`: its order goes out.
    void send(const OpenInstance& instance, const Moment& now, Step& step);
    bool follows(const QString& clOrdId) const { return mTracks.contains(clOrdId); }
    int openCount() const;
    /// What is over is followed until its last change is written down: call it then.
    void sweep();

    /// Everything open is asked for.
    void loggedOn(const Moment& now, Step& step);
    /// A message about this instance never arrived.
    void wasLost(const QString& clOrdId, const Moment& now, Step& step);
    /// Nothing is waited for until the next logon.
    void loggedOff();
    bool isLoggedOn() const { return mLoggedOn; }

    /// The ledger gave out a cancel: it goes out, after the answer where the order is being asked for. One
    /// that was refused just now waits a little.
    void cancel(const CancelOrder& order, const Moment& now, Step& step);
    /// How the ledger says that an instance stands.
    void settle(const QString& clOrdId, const Standing& standing);

    /// A report on an instance that is followed; see `follows()`.
    void receive(const Report& report, const Moment& now, Step& step);
    /// A reject of a message of ours that was no order: "F" or "H".
    void receiveRefusal(const QString& clOrdId, const std::string& messageType, const Report& report,
                        const Moment& now, Step& step);

    /// Timeouts, and what waited for its turn. To be called often.
    void tick(const Moment& now, Step& step);

    /// Of those that are queued, in their order, the ones that may go out now.
    QList<OpenInstance> choose(const QList<OpenInstance>& queued, const Moment& now) const;

private:
    void change(Track& track, const Standing& after, Step& step);
    void take(Track& track, const Report& report, const Effect& effect, Step& step);
    void say(Track& track, const Message& message, Step& step);
    void wait(Track& track, Waiting what, const Moment& now);
    void askStatus(Track& track, const Moment& now, Step& step);
    void askNow(Track& track, const Moment& now, Step& step);
    void askOn(const Moment& now, Step& step);
    QStringList followedByUrgency() const;
    void sendAgain(Track& track, const Moment& now, Step& step);
    void denied(Track& track, const Moment& now, Step& step);
    void doubt(Track& track, const Moment& now, Step& step);
    void answered(Track& track, const Report& report, const Effect& effect, const Moment& now, Step& step);
    void stopWaiting(Track& track, const Report& report, const Moment& now);
    void count(Track& track, const Report& report, const Moment& now, Step& step);
    void timedOut(Track& track, const Moment& now, Step& step);
    void moveTo(Track& track, State state, Step& step);
    void markUnknown(Track& track, const QString& reason, Step& step);
    void resume(Track& track, const Moment& now, Step& step);
    qint64 patience() const;
    bool isStale(const Track& track, const Report& report) const;
    void forgetUnlessOpen(const QString& clOrdId);

    Profile mProfile;
    Pacing mPacing;
    QHash<QString, Track> mTracks; ///< by ClOrdID
    QStringList mTurns;            ///< those that wait for theirs, first come first
    QSet<QString> mWaiting;        ///< those whose answer is due some time
    QStringList mQuestions;        ///< those to be asked for, most urgent first
    int mUnanswered = 0;           ///< status requests that are out
    bool mAnswers = true;          ///< the counterparty has answered all of them in time, since the logon
    QHash<QString, CancelOrder> mCancels; ///< that wait: for an answer, or because one before was refused
    QSet<QString> mOver;                  ///< to be swept
    qint64 mRequests = 0;
    bool mLoggedOn = false;
};

} // namespace gateway
