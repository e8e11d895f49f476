#pragma once

#include "gateway/session/Engine.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <vector>

namespace gateway {

/// What came from an engine's thread, in its order, for the program's own.
class Inbox : public SessionListener {
public:
    struct Item {
        bool isMessage = false;
        SessionNews news; ///< where it is none
        std::string session;
        Message message;
    };

    void onSession(const SessionNews& news) override;
    void onMessage(const std::string& session, const Message& message) override;
    void onTraffic(const std::string& session, bool isOutgoing, const std::string& text) override;

    /// All that is there; waits for something so long.
    std::vector<Item> take(std::chrono::milliseconds patience);
    /// What was said and heard since the last call, the newest of it where that was much; long messages are
    /// cut.
    std::vector<Traffic> takeTraffic();

private:
    void add(Item item);

    std::mutex mMutex;
    std::condition_variable mArrived;
    std::vector<Item> mItems;
    std::deque<Traffic> mTraffic;
};

} // namespace gateway
