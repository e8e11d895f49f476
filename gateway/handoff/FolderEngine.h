#pragma once

#include "gateway/handoff/HandOffFolder.h"
#include "gateway/session/Engine.h"

#include <QList>
#include <QStringList>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <thread>

namespace gateway {

struct AnswerSheet;

struct FolderOptions {
    QString path;                            ///< empty: no hand-off by files
    bool asksCounterparty = true;            ///< whether it answers status requests
    std::chrono::milliseconds quiet{10000};  ///< an answer file lies unchanged so long before it is put away
    std::chrono::milliseconds pause{5000};   ///< before a folder that failed is tried again
    std::function<void(const char*)> onStep; ///< hears of every step that a crash may follow; may be null
};

/// A session without a line: messages go out as csv files into a folder, answers come back as such. It is
/// logged on while the folder can be reached.
///
/// A status request about an order that is still held back is answered here, since nobody else can know;
/// where the counterparty answers none, all others are rejected here. Nothing is sent again by itself.
class FolderEngine : public Engine {
public:
    FolderEngine(const FolderOptions& options, SessionListener& listener);
    ~FolderEngine() override;

    std::string start() override;
    void stop() override;
    std::string session() const override;
    int send(const std::string& session, const Message& message) override;
    /// An answer file is put away when all that it says is confirmed and it lies unchanged.
    void confirm(const std::string& session, int count) override;
    void drop(const std::string& session) override;

private:
    using Clock = std::chrono::steady_clock;

    struct Stamp {
        quint64 inode = 0;
        qint64 size = -1;
        qint64 changedAt = 0; ///< nanoseconds
    };

    /// An answer file as far as it was read.
    struct Reading {
        Stamp stamp;
        Clock::time_point since; ///< unchanged since then
        QList<QStringList> rows; ///< handed on
        int unconfirmed = 0;
        bool isWhole = false;
        bool isRefused = false;
        bool isStuck = false; ///< could not be put away; left alone until it changes
    };

    static bool isSame(const Stamp& one, const Stamp& other);
    static Stamp stampOf(const QString& path);

    void run();
    void round();
    void connectAgain();
    void tell(SessionNews::State state, const QString& text);
    int ask(const Message& question, const QString& name, int number);
    void deliver(const Message& message, const QString& file = QString());
    void scan();
    void follow(const QFileInfo& file);
    void read(const QString& name, Reading& reading);
    void handOn(const QString& name, Reading& reading, const AnswerSheet& sheet);
    void finish(const QString& name, Reading& reading);

    const FolderOptions mOptions;
    SessionListener& mListener;
    HandOffFolder mFolder;
    std::thread mThread;
    std::condition_variable mWake;
    /// Over all that follows.
    mutable std::mutex mMutex;
    std::map<QString, Reading> mReadings; ///< by file name
    std::deque<QString> mUnconfirmed;     ///< of each message handed on, its file; empty: of our own
    Clock::time_point mRetryAt;
    QString mFailure; ///< why it is to be logged off; empty: it is not
    int mSent = 0;
    bool mIsLoggedOn = false;
    bool mEnds = false;
};

} // namespace gateway
