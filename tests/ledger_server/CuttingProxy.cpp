#include "tests/ledger_server/CuttingProxy.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstring>

namespace {

constexpr int TickMs = 50;

sockaddr_in loopback(int port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(port));
    return address;
}

const sockaddr* generic(const sockaddr_in& address)
{
    return reinterpret_cast<const sockaddr*>(&address); // the C interface takes any family so
}

bool sendAll(int descriptor, const char* bytes, ssize_t count)
{
    while (count > 0) {
        const ssize_t sent = send(descriptor, bytes, static_cast<size_t>(count), MSG_NOSIGNAL);
        if (sent <= 0) {
            return false;
        }
        bytes += sent;
        count -= sent;
    }
    return true;
}

bool holdsCommit(const char* bytes, ssize_t count)
{
    return memmem(bytes, static_cast<size_t>(count), "COMMIT", 6) != nullptr;
}

} // namespace

CuttingProxy::CuttingProxy(int serverPort) : mServerPort(serverPort)
{
    mListener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = loopback(0);
    bind(mListener, generic(address), sizeof address);
    listen(mListener, 64);
    socklen_t length = sizeof address;
    getsockname(mListener, reinterpret_cast<sockaddr*>(&address), &length);
    mPort = ntohs(address.sin_port);
    mAcceptor = std::thread([this] { accept(); });
}

CuttingProxy::~CuttingProxy()
{
    mEnds = true;
    mAcceptor.join();
    for (std::thread& carrier : mCarriers) {
        carrier.join();
    }
    close(mListener);
}

void CuttingProxy::accept()
{
    while (!mEnds) {
        pollfd waiting = {mListener, POLLIN, 0};
        if (poll(&waiting, 1, TickMs) > 0) {
            const int client = ::accept4(mListener, nullptr, nullptr, SOCK_CLOEXEC);
            const std::lock_guard<std::mutex> lock(mMutex);
            mCarriers.emplace_back([this, client] { carry(client); });
        }
    }
}

/// Carries bytes both ways until one side ends, or the connection is cut.
void CuttingProxy::carry(int client)
{
    const int server = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(mServerPort);
    bool goesOn = connect(server, generic(address), sizeof address) == 0;
    while (goesOn && !mEnds) {
        std::array<pollfd, 2> ends{{{client, POLLIN, 0}, {server, POLLIN, 0}}};
        if (poll(ends.data(), ends.size(), TickMs) <= 0) {
            continue;
        }
        goesOn = (!(ends[0].revents) || toServer(client, server)) &&
                 (!(ends[1].revents) || toClient(client, server));
    }
    close(client);
    close(server);
}

bool CuttingProxy::toServer(int client, int server)
{
    std::array<char, 65536> bytes;
    const ssize_t count = recv(client, bytes.data(), bytes.size(), 0);
    if (count <= 0) {
        return false;
    }
    if (!holdsCommit(bytes.data(), count)) {
        return sendAll(server, bytes.data(), count);
    }
    switch (mCut.exchange(Cut::None)) {
    case Cut::None:
        return sendAll(server, bytes.data(), count);
    case Cut::BeforeCommit:
        ++mCuts;
        return false;
    case Cut::AfterCommit: {
        ++mCuts;
        sendAll(server, bytes.data(), count);
        recv(server, bytes.data(), bytes.size(), 0); // has committed, and says so to nobody
        return false;
    }
    case Cut::WithTheServerOn:
        ++mCuts;
        shutdown(client, SHUT_RDWR);
        while (!mEnds && recv(server, bytes.data(), 1, MSG_DONTWAIT) < 0) {
            usleep(TickMs * 1000); // until somebody ends the session
        }
        return false;
    }
    return false;
}

bool CuttingProxy::toClient(int client, int server)
{
    std::array<char, 65536> bytes;
    const ssize_t count = recv(server, bytes.data(), bytes.size(), 0);
    return count > 0 && sendAll(client, bytes.data(), count);
}
