#pragma once

#include "tests/gateway/Wire.h"

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

/// A broker of the tests' own on a real socket: its sessions live through every break, it takes each ClOrdID
/// once, and what it does badly it does by a seed.
class Counterparty {
public:
    struct Options {
        std::string beginString = "FIX.4.4";
        unsigned int seed = 0;
        int dropPerMille = 0; ///< messages around which the connection breaks, before or after they count
        int losePerMille = 0; ///< answers that never leave, as if a router had eaten them
        bool acknowledges = true;
        bool fills = true; ///< at once and whole, after the acknowledgement
    };

    struct Order {
        std::string clOrdId;
        std::string quantity;
        std::string status = "0"; ///< 39
        std::string filled = "0";
        int executions = 0; ///< how often it began to work: never more than once
        int arrivals = 0;   ///< how often it came in
        bool isMultileg = false;
    };

    explicit Counterparty(const Options& options);
    ~Counterparty();

    int port() const { return mPort; }
    /// Everything that came in, oldest first.
    std::vector<std::string> received() const;
    /// Of one type (35), without what changes from run to run.
    std::vector<std::string> essences(const std::string& type) const;
    std::map<std::string, Order> orders() const;
    bool isLoggedOn() const { return mLoggedOn; }

    /// Says a message on the session: `body` begins behind the header.
    void say(const std::string& type, const wire::Fields& body);
    /// An execution report for an order of the book.
    void report(const std::string& clOrdId, const std::string& execType, const std::string& ordStatus,
                const std::string& cumQty, const wire::Fields& more = {});
    /// Bytes as they are.
    void sayRaw(const std::string& bytes);
    void breakLine();
    /// The sequence number of the next message, as if some had been lost on the way.
    void skip(int count);
    void loseSequenceNumbers();
    /// While false, connections are not answered.
    void setOpen(bool isOpen) { mOpen = isOpen; }
    /// Instead of what it does with orders by itself.
    void setHandler(const std::function<void(const wire::Fields&)>& handler);
    /// Waits, at most a minute, until it holds.
    bool waitFor(const std::function<bool()>& condition) const;

private:
    void run();
    void serve(int socket);
    bool hear(const std::string& text);
    void hearLogon(const wire::Fields& message);
    void hearResendRequest(const wire::Fields& message);
    void hearApplication(const wire::Fields& message);
    void hearOrder(const wire::Fields& message);
    void hearCancel(const wire::Fields& message);
    void hearStatusRequest(const wire::Fields& message);
    void sayNow(const std::string& type, const wire::Fields& body);
    void write(const std::string& type, int number, const wire::Fields& body, bool isResent);
    void reportNow(const Order& order, const std::string& execType, const wire::Fields& more);
    bool chance(int perMille);

    Options mOptions;
    int mListener = -1;
    int mPort = 0;
    int mSocket = -1;
    std::atomic<bool> mEnds{false};
    std::atomic<bool> mOpen{true};
    std::atomic<bool> mLoggedOn{false};
    mutable std::recursive_mutex mMutex;
    std::mt19937 mRandom;
    int mNextOut = 1;
    int mNextIn = 1;
    bool mAsked = false;                                       ///< a resend request of its own is open
    std::map<int, std::pair<std::string, wire::Fields>> mSaid; ///< application messages by number
    std::vector<std::string> mReceived;
    std::map<std::string, Order> mOrders;
    int mExecutions = 0;
    std::function<void(const wire::Fields&)> mHandler;
    std::thread mThread;
};
