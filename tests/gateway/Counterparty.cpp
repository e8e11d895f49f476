#include "tests/gateway/Counterparty.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>

using wire::get;

Counterparty::Counterparty(const Options& options) : mOptions(options), mRandom(options.seed)
{
    mListener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    ::bind(mListener, reinterpret_cast<sockaddr*>(&address), length);
    ::listen(mListener, 8);
    ::getsockname(mListener, reinterpret_cast<sockaddr*>(&address), &length);
    mPort = ntohs(address.sin_port);
    mThread = std::thread([this] { run(); });
}

Counterparty::~Counterparty()
{
    mEnds = true;
    mThread.join();
    ::close(mListener);
}

void Counterparty::run()
{
    while (!mEnds) {
        pollfd waiting = {mListener, POLLIN, 0};
        if (::poll(&waiting, 1, 20) <= 0) {
            continue;
        }
        const int socket = ::accept(mListener, nullptr, nullptr);
        if (socket >= 0 && mOpen) {
            serve(socket);
        }
        ::close(socket);
    }
}

/// One connection, until either side ends it.
void Counterparty::serve(int socket)
{
    {
        const std::lock_guard<std::recursive_mutex> lock(mMutex);
        mSocket = socket;
        mAsked = false;
    }
    std::string stream;
    bool goesOn = true;
    while (goesOn && !mEnds && mOpen) {
        pollfd waiting = {socket, POLLIN, 0};
        if (::poll(&waiting, 1, 10) <= 0) {
            continue;
        }
        char bytes[65536];
        const ssize_t count = ::recv(socket, bytes, sizeof bytes, 0);
        stream.append(bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        goesOn = count > 0;
        const std::lock_guard<std::recursive_mutex> lock(mMutex);
        for (std::string text = wire::takeMessage(stream); goesOn && !text.empty();
             text = goesOn ? wire::takeMessage(stream) : std::string()) {
            goesOn = !chance(mOptions.dropPerMille) && hear(text) && !chance(mOptions.dropPerMille);
        }
    }
    const std::lock_guard<std::recursive_mutex> lock(mMutex);
    mSocket = -1;
    mLoggedOn = false;
}

/// A message in its turn; false ends the connection.
bool Counterparty::hear(const std::string& text)
{
    const wire::Fields message = wire::parse(text);
    const std::string type = get(message, 35);
    const int number = std::stoi(get(message, 34));
    mReceived.push_back(text);
    if (type == "4") {
        mNextIn = std::max(mNextIn, std::stoi(get(message, 36)));
        mAsked = false;
        return true;
    }
    if (type == "A" && get(message, 141) == "Y") {
        mNextIn = 1;
        mNextOut = 1;
        mSaid.clear();
    }
    if (number < mNextIn && get(message, 43) != "Y") {
        write("5", mNextOut++,
              {{58, "MsgSeqNum too low, expecting " + std::to_string(mNextIn) + " but received " +
                        std::to_string(number)}},
              false);
        return false;
    }
    if (type == "A") {
        hearLogon(message);
    }
    if (type == "2") {
        hearResendRequest(message);
    }
    if (number > mNextIn) {
        if (!mAsked) {
            mAsked = true;
            write("2", mNextOut++, {{7, std::to_string(mNextIn)}, {16, "0"}}, false);
        }
        return true;
    }
    mNextIn = std::max(mNextIn, number + 1);
    if (type == "1") {
        write("0", mNextOut++, {{112, get(message, 112)}}, false);
    } else if (type == "5") {
        write("5", mNextOut++, {}, false);
        return false;
    } else if (type == "D" || type == "AB" || type == "F" || type == "H") {
        hearApplication(message);
    }
    return true;
}

void Counterparty::hearLogon(const wire::Fields& message)
{
    wire::Fields body = {{98, "0"}, {108, get(message, 108)}};
    if (get(message, 141) == "Y") {
        body.emplace_back(141, "Y");
    }
    if (mOptions.beginString == "FIXT.1.1") {
        body.emplace_back(1137, "9");
    }
    write("A", mNextOut++, body, false);
    mLoggedOn = true;
}

void Counterparty::hearResendRequest(const wire::Fields& message)
{
    int next = std::stoi(get(message, 7));
    const auto fill = [this](int from, int to) {
        if (from < to) {
            write("4", from, {{123, "Y"}, {36, std::to_string(to)}}, true);
        }
    };
    for (const auto& said : mSaid) {
        if (said.first >= next) {
            fill(next, said.first);
            write(said.second.first, said.first, said.second.second, true);
            next = said.first + 1;
        }
    }
    fill(next, mNextOut);
}

void Counterparty::hearApplication(const wire::Fields& message)
{
    const std::string type = get(message, 35);
    if (mHandler) {
        mHandler(message);
    } else if (type == "F") {
        hearCancel(message);
    } else if (type == "H") {
        hearStatusRequest(message);
    } else {
        hearOrder(message);
    }
}

void Counterparty::hearOrder(const wire::Fields& message)
{
    Order& order = mOrders[get(message, 11)];
    ++order.arrivals;
    if (order.arrivals > 1) {
        sayNow("8", {{37, "NONE"},
                     {11, get(message, 11)},
                     {17, "D" + std::to_string(++mExecutions)},
                     {150, "8"},
                     {39, "8"},
                     {103, "6"},
                     {14, "0"},
                     {6, "0"},
                     {151, "0"}});
        return;
    }
    order.clOrdId = get(message, 11);
    order.quantity = get(message, 38);
    order.isMultileg = get(message, 35) == "AB";
    ++order.executions;
    if (mOptions.acknowledges) {
        reportNow(order, "0", {});
    }
    if (mOptions.acknowledges && mOptions.fills && !order.quantity.empty()) {
        order.status = "2";
        order.filled = order.quantity;
        reportNow(order, "F", {});
    }
}

void Counterparty::hearCancel(const wire::Fields& message)
{
    const auto found = mOrders.find(get(message, 41));
    if (found == mOrders.end() || found->second.status == "2" || found->second.status == "4") {
        const bool isKnown = found != mOrders.end();
        sayNow("9", {{37, isKnown ? "O" : "NONE"},
                     {11, get(message, 11)},
                     {41, get(message, 41)},
                     {39, isKnown ? found->second.status : "8"},
                     {434, "1"},
                     {102, isKnown ? "0" : "1"}});
        return;
    }
    found->second.status = "4";
    reportNow(found->second, "4", {{41, get(message, 41)}});
}

void Counterparty::hearStatusRequest(const wire::Fields& message)
{
    const auto found = mOrders.find(get(message, 11));
    const wire::Fields question = {{790, get(message, 790)}};
    if (found != mOrders.end()) {
        reportNow(found->second, "I", question);
        return;
    }
    sayNow("8", {{37, "NONE"},
                 {11, get(message, 11)},
                 {790, get(message, 790)},
                 {17, "0"},
                 {150, "I"},
                 {39, "8"},
                 {14, "0"},
                 {6, "0"},
                 {151, "0"}});
}

void Counterparty::reportNow(const Order& order, const std::string& execType, const wire::Fields& more)
{
    wire::Fields body = {{37, "O" + order.clOrdId},
                         {11, order.clOrdId},
                         {17, execType == "I" ? "0" : "E" + std::to_string(++mExecutions)},
                         {150, execType},
                         {39, order.status},
                         {55, "X"},
                         {54, "1"},
                         {14, order.filled},
                         {6, order.filled == "0" ? "0" : "11.5"},
                         {151, "0"}};
    body.insert(body.end(), more.begin(), more.end());
    sayNow("8", body);
}

void Counterparty::sayNow(const std::string& type, const wire::Fields& body)
{
    const int number = mNextOut++;
    mSaid[number] = {type, body};
    if (!chance(mOptions.losePerMille)) {
        write(type, number, body, false);
    }
}

void Counterparty::write(const std::string& type, int number, const wire::Fields& body, bool isResent)
{
    wire::Fields all = {{35, type}, {49, "BROKER"}, {56, "DESK"}, {34, std::to_string(number)}};
    if (isResent) {
        all.emplace_back(43, "Y");
        all.emplace_back(122, wire::utcNow());
    }
    all.emplace_back(52, wire::utcNow());
    all.insert(all.end(), body.begin(), body.end());
    const std::string text = wire::frame(mOptions.beginString, all);
    if (mSocket >= 0) {
        ::send(mSocket, text.data(), text.size(), MSG_NOSIGNAL);
    }
}

bool Counterparty::chance(int perMille)
{
    return perMille > 0 && static_cast<int>(mRandom() % 1000) < perMille;
}

std::vector<std::string> Counterparty::received() const
{
    const std::lock_guard<std::recursive_mutex> lock(mMutex);
    return mReceived;
}

std::vector<std::string> Counterparty::essences(const std::string& type) const
{
    std::vector<std::string> found;
    for (const std::string& message : received()) {
        if (get(wire::parse(message), 35) == type) {
            found.push_back(wire::essence(message));
        }
    }
    return found;
}

std::map<std::string, Counterparty::Order> Counterparty::orders() const
{
    const std::lock_guard<std::recursive_mutex> lock(mMutex);
    return mOrders;
}

void Counterparty::say(const std::string& type, const wire::Fields& body)
{
    const std::lock_guard<std::recursive_mutex> lock(mMutex);
    sayNow(type, body);
}

void Counterparty::report(const std::string& clOrdId, const std::string& execType,
                          const std::string& ordStatus, const std::string& cumQty, const wire::Fields& more)
{
    const std::lock_guard<std::recursive_mutex> lock(mMutex);
    Order& order = mOrders[clOrdId];
    order.clOrdId = clOrdId;
    order.status = ordStatus;
    order.filled = cumQty;
    reportNow(order, execType, more);
}

void Counterparty::sayRaw(const std::string& bytes)
{
    const std::lock_guard<std::recursive_mutex> lock(mMutex);
    if (mSocket >= 0) {
        ::send(mSocket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    }
}

void Counterparty::breakLine()
{
    const std::lock_guard<std::recursive_mutex> lock(mMutex);
    if (mSocket >= 0) {
        ::shutdown(mSocket, SHUT_RDWR);
    }
}

void Counterparty::skip(int count)
{
    const std::lock_guard<std::recursive_mutex> lock(mMutex);
    mNextOut += count;
}

void Counterparty::loseSequenceNumbers()
{
    const std::lock_guard<std::recursive_mutex> lock(mMutex);
    mNextIn = 1;
    mNextOut = 1;
    mSaid.clear();
}

void Counterparty::setHandler(const std::function<void(const wire::Fields&)>& handler)
{
    const std::lock_guard<std::recursive_mutex> lock(mMutex);
    mHandler = handler;
}

bool Counterparty::waitFor(const std::function<bool()>& condition) const
{
    for (int i = 0; i < 12000 && !condition(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return condition();
}
