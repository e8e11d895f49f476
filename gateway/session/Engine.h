#pragma once

#include "gateway/messages/Message.h"

#include <memory>
#include <string>

/// FIX sessions without their engine: the only thing that the rest of the house sees of it. Plain C++14.
namespace gateway {

/// What happens to a session.
struct SessionNews {
    enum class State {
        Connected,
        LoggedOn,
        LoggedOut,
        Disconnected,
        GapFilled, ///< the counterparty missed messages, and will not get them
        Note,      ///< changes nothing, and is worth reading
    };

    State state = State::Note;
    std::string session; ///< such as "FIX.4.4:DESK->BROKER"
    std::string text;    ///< why; may be empty
    int gapFrom = 0;     ///< of a gap: the first message missed
    int gapTo = 0;       ///< and the one after the last
};

/// A message as it stood on the wire, credentials masked.
struct Traffic {
    long long at = 0; ///< milliseconds since 1970, UTC
    bool isOutgoing = false;
    std::string text;
};

/// Hears from an engine. Called from the engine's own thread; must be quick.
class SessionListener {
public:
    virtual ~SessionListener() = default;

    virtual void onSession(const SessionNews& news) = 0;
    /// An application message, or a Reject (3), each in the order of its sequence number. Held until
    /// confirm(): after a crash the counterparty is asked for it again. One without a type is what came and
    /// cannot be read; 58 says why.
    virtual void onMessage(const std::string& session, const Message& message) = 0;
    /// Every message both ways as it stands on the wire, credentials masked.
    virtual void onTraffic(const std::string& session, bool isOutgoing, const std::string& text) = 0;
};

class Engine {
public:
    enum class Role { Initiator, Acceptor };

    struct Options {
        Role role = Role::Initiator;
        std::string settingsFile;
        std::string dictionaryFolder; ///< with FIX44.xml, FIXT11.xml and FIX50SP2.xml
        std::string storeFolder;      ///< of sequence numbers, where the settings name none
        bool resetsSequence = false;  ///< the first logon carries 141=Y
    };

    /// Null with a sentence in `error` where the settings cannot be used. An initiator has exactly one
    /// session.
    static std::unique_ptr<Engine> open(const Options& options, SessionListener& listener,
                                        std::string& error);

    virtual ~Engine() = default;

    /// Connects, or listens; the error is empty on success.
    virtual std::string start() = 0;
    /// Logs out, and gives the counterparty two seconds to say the same.
    virtual void stop() = 0;
    /// Of an initiator, its only session; of an acceptor, the first.
    virtual std::string session() const = 0;
    /// The sequence number (34) that the message went out with; 0: nobody is logged on, and it did not.
    virtual int send(const std::string& session, const Message& message) = 0;
    /// That many messages more, from the first, are written down and need never come again.
    virtual void confirm(const std::string& session, int count) = 0;
    /// Ends the connection without a word, as a broken line does.
    virtual void drop(const std::string& session) = 0;
};

} // namespace gateway
