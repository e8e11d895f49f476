#include "gateway/session/Engine.h"

#include "gateway/session/Bridge.h"
#include "gateway/session/Conversion.h"
#include "gateway/session/EngineSettings.h"
#include "gateway/session/SequenceStore.h"
#include "gateway/session/TrafficLog.h"

#include <quickfix/FileStore.h>
#include <quickfix/Session.h>
#include <quickfix/SocketAcceptor.h>
#include <quickfix/SocketInitiator.h>

#include <chrono>
#include <thread>

namespace gateway {

namespace {

const int LogoutSteps = 40;
const std::chrono::milliseconds LogoutStep(50);

/// What both roles share: settings, log, callbacks, and sessions found by their name.
class EngineBase : public Engine {
public:
    EngineBase(const FIX::SessionSettings& settings, SequenceStoreFactory* stores, SessionListener& listener,
               bool resetsSequence)
        : mSettings(settings), mStores(stores),
          mLogs(settingOf(settings, *settings.getSessions().begin(), FIX::FILE_LOG_PATH), listener),
          mBridge(mSettings, stores, listener, resetsSequence)
    {
        for (const FIX::SessionID& session : mSettings.getSessions()) {
            mSessions[session.toString()] = session;
        }
    }

    std::string session() const override { return mSessions.begin()->first; }

    int send(const std::string& name, const Message& message) override
    {
        FIX::Session* session = find(name);
        if (session == nullptr || !session->isLoggedOn()) {
            return 0;
        }
        FIX::Message converted = toEngine(message);
        session->send(converted);
        return std::stoi(converted.getHeader().getField(FIX::FIELD::MsgSeqNum));
    }

    void confirm(const std::string& name, int count) override
    {
        SequenceStore* store = mStores == nullptr ? nullptr : mStores->find(mSessions.at(name));
        if (store != nullptr && count > 0) {
            store->confirm(count);
        }
    }

    void drop(const std::string& name) override
    {
        if (FIX::Session* session = find(name)) {
            session->disconnect();
        }
    }

protected:
    FIX::Session* find(const std::string& name) const
    {
        const auto found = mSessions.find(name);
        return found == mSessions.end() ? nullptr : FIX::Session::lookupSession(found->second);
    }

    /// Says goodbye on every session and waits a little for the answer.
    void logOut()
    {
        for (const auto& session : mSessions) {
            if (FIX::Session* one = find(session.first)) {
                one->logout();
            }
        }
        for (int i = 0; i < LogoutSteps && mBridge.isLoggedOn(); ++i) {
            std::this_thread::sleep_for(LogoutStep);
        }
    }

    FIX::SessionSettings mSettings;
    SequenceStoreFactory* mStores;
    TrafficLogFactory mLogs;
    Bridge mBridge;
    std::map<std::string, FIX::SessionID> mSessions;
};

/// Starts and stops an engine's half, with its exceptions as sentences.
template <typename Half> std::string started(Half& half)
{
    try {
        half.start();
        return std::string();
    } catch (const std::exception& exception) {
        return exception.what();
    }
}

class InitiatorEngine : public EngineBase {
public:
    InitiatorEngine(const FIX::SessionSettings& settings, std::unique_ptr<SequenceStoreFactory> stores,
                    SessionListener& listener, bool resetsSequence)
        : EngineBase(settings, stores.get(), listener, resetsSequence), mOwnStores(std::move(stores)),
          mInitiator(mBridge, *mOwnStores, mSettings, mLogs)
    {
    }

    std::string start() override { return started(mInitiator); }

    void stop() override
    {
        logOut();
        mInitiator.stop(true);
    }

private:
    std::unique_ptr<SequenceStoreFactory> mOwnStores;
    FIX::SocketInitiator mInitiator;
};

class AcceptorEngine : public EngineBase {
public:
    AcceptorEngine(const FIX::SessionSettings& settings, std::unique_ptr<FIX::MessageStoreFactory> stores,
                   SessionListener& listener)
        : EngineBase(settings, nullptr, listener, false), mOwnStores(std::move(stores)),
          mAcceptor(mBridge, *mOwnStores, mSettings, mLogs)
    {
    }

    std::string start() override { return started(mAcceptor); }

    void stop() override
    {
        logOut();
        mAcceptor.stop(true);
    }

private:
    std::unique_ptr<FIX::MessageStoreFactory> mOwnStores;
    FIX::SocketAcceptor mAcceptor;
};

std::unique_ptr<Engine> makeInitiator(const Engine::Options& options, const FIX::SessionSettings& settings,
                                      SessionListener& listener)
{
    const std::string named = settingOf(settings, *settings.getSessions().begin(), FIX::FILE_STORE_PATH);
    auto stores = std::make_unique<SequenceStoreFactory>(named.empty() ? options.storeFolder : named);
    return std::make_unique<InitiatorEngine>(settings, std::move(stores), listener, options.resetsSequence);
}

std::unique_ptr<Engine> makeAcceptor(const FIX::SessionSettings& settings, SessionListener& listener)
{
    const std::string named = settingOf(settings, *settings.getSessions().begin(), FIX::FILE_STORE_PATH);
    std::unique_ptr<FIX::MessageStoreFactory> stores;
    if (named.empty()) {
        stores = std::make_unique<FIX::MemoryStoreFactory>();
    } else {
        stores = std::make_unique<FIX::FileStoreFactory>(named);
    }
    return std::make_unique<AcceptorEngine>(settings, std::move(stores), listener);
}

} // namespace

std::unique_ptr<Engine> Engine::open(const Options& options, SessionListener& listener, std::string& error)
{
    FIX::SessionSettings settings;
    if (!loadSettings(options, settings, error)) {
        return nullptr;
    }
    try {
        return options.role == Role::Initiator ? makeInitiator(options, settings, listener)
                                               : makeAcceptor(settings, listener);
    } catch (const std::exception& exception) {
        error = exception.what();
        return nullptr;
    }
}

} // namespace gateway
