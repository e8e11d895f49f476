#pragma once

#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

/// Stands between a client and the server, on loopback, and cuts the connection where it is told to: around
/// the next COMMIT that comes by. The connection may not be encrypted.
class CuttingProxy {
public:
    enum class Cut {
        None,
        BeforeCommit,    ///< the server never sees it, and notices that the client is gone
        AfterCommit,     ///< the server has answered; the answer is lost
        WithTheServerOn, ///< the server never sees it, and waits for a client that is gone
    };

    explicit CuttingProxy(int serverPort);
    ~CuttingProxy();

    int port() const { return mPort; }
    void cutNext(Cut cut) { mCut = cut; }
    int cuts() const { return mCuts; }

private:
    void accept();
    void carry(int client);
    bool toServer(int client, int server);
    bool toClient(int client, int server);

    const int mServerPort;
    int mListener = -1;
    int mPort = 0;
    std::atomic<bool> mEnds{false};
    std::atomic<Cut> mCut{Cut::None};
    std::atomic<int> mCuts{0};
    std::mutex mMutex;
    std::vector<std::thread> mCarriers;
    std::thread mAcceptor;
};
