#pragma once

#include "gateway/session/Engine.h"
#include "gateway/session/SequenceStore.h"

#include <quickfix/Application.h>
#include <quickfix/SessionSettings.h>

#include <atomic>

namespace gateway {

/// The engine's callbacks, handed on as values.
class Bridge : public FIX::Application {
public:
    /// `stores` is null for an acceptor: it resends what it said, and holds nothing back.
    Bridge(const FIX::SessionSettings& settings, SequenceStoreFactory* stores, SessionListener& listener,
           bool resetsSequence);

    bool isLoggedOn() const { return mLoggedOn; }

    void onCreate(const FIX::SessionID&) override {}
    void onLogon(const FIX::SessionID& session) override;
    void onLogout(const FIX::SessionID& session) override;
    void toAdmin(FIX::Message& message, const FIX::SessionID& session) override;
    void toApp(FIX::Message& message, const FIX::SessionID& session) throw(FIX::DoNotSend) override;
    void fromAdmin(const FIX::Message& message,
                   const FIX::SessionID& session) throw(FIX::FieldNotFound, FIX::IncorrectDataFormat,
                                                        FIX::IncorrectTagValue, FIX::RejectLogon) override;
    void fromApp(const FIX::Message& message,
                 const FIX::SessionID& session) throw(FIX::FieldNotFound, FIX::IncorrectDataFormat,
                                                      FIX::IncorrectTagValue,
                                                      FIX::UnsupportedMessageType) override;

private:
    void fillLogon(FIX::Message& logon, const FIX::SessionID& session);
    void handOn(const FIX::Message& message, const FIX::SessionID& session);
    void tell(SessionNews::State state, const FIX::SessionID& session, const std::string& text);
    void tellGap(const FIX::Message& reset, const FIX::SessionID& session);
    void tellLogout(const FIX::Message& logout, const FIX::SessionID& session);

    const FIX::SessionSettings& mSettings;
    SequenceStoreFactory* mStores;
    SessionListener& mListener;
    std::atomic<bool> mResetsSequence;
    std::atomic<bool> mLoggedOn{false};
    bool mLogoutTold = false;
};

} // namespace gateway
