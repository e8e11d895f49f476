#pragma once

#include "gateway/session/Engine.h"

#include <quickfix/Log.h>

#include <fstream>
#include <string>

namespace gateway {

/// What a session says and hears: to the listener, and to a file where the settings name a folder
/// (FileLogPath). Credentials never get that far.
class TrafficLog : public FIX::Log {
public:
    TrafficLog(const std::string& session, const std::string& folder, SessionListener& listener);

    void clear() override {}
    void backup() override {}
    void onIncoming(const std::string& text) override;
    void onOutgoing(const std::string& text) override;
    void onEvent(const std::string& text) override;

private:
    void write(const char* kind, const std::string& text);

    std::string mSession;
    SessionListener& mListener;
    std::ofstream mFile;
};

class TrafficLogFactory : public FIX::LogFactory {
public:
    TrafficLogFactory(const std::string& folder, SessionListener& listener);

    FIX::Log* create() override;
    FIX::Log* create(const FIX::SessionID& session) override;
    void destroy(FIX::Log* log) override;

private:
    std::string mFolder;
    SessionListener& mListener;
};

} // namespace gateway
