#include "gateway/session/Bridge.h"

#include "gateway/session/Conversion.h"

#include <quickfix/Session.h>

namespace gateway {

namespace {

std::string typeOf(const FIX::Message& message)
{
    return message.getHeader().getField(FIX::FIELD::MsgType);
}

std::string textOf(const FIX::Message& message)
{
    return message.isSetField(FIX::FIELD::Text) ? message.getField(FIX::FIELD::Text) : std::string();
}

} // namespace

Bridge::Bridge(const FIX::SessionSettings& settings, SequenceStoreFactory* stores, SessionListener& listener,
               bool resetsSequence)
    : mSettings(settings), mStores(stores), mListener(listener), mResetsSequence(resetsSequence)
{
}

void Bridge::tell(SessionNews::State state, const FIX::SessionID& session, const std::string& text)
{
    SessionNews news;
    news.state = state;
    news.session = session.toString();
    news.text = text;
    mListener.onSession(news);
}

void Bridge::tellGap(const FIX::Message& reset, const FIX::SessionID& session)
{
    SessionNews news;
    news.state = SessionNews::State::GapFilled;
    news.session = session.toString();
    news.gapFrom = std::stoi(reset.getHeader().getField(FIX::FIELD::MsgSeqNum));
    news.gapTo = std::stoi(reset.getField(FIX::FIELD::NewSeqNo));
    mListener.onSession(news);
}

void Bridge::onLogon(const FIX::SessionID& session)
{
    mResetsSequence = false;
    mLoggedOn = true;
    tell(SessionNews::State::LoggedOn, session, std::string());
}

void Bridge::onLogout(const FIX::SessionID& session)
{
    mLoggedOn = false;
    tell(SessionNews::State::Disconnected, session, std::string());
}

/// One logout a connection: who says it first says why.
void Bridge::tellLogout(const FIX::Message& logout, const FIX::SessionID& session)
{
    if (!mLogoutTold) {
        mLogoutTold = true;
        tell(SessionNews::State::LoggedOut, session, textOf(logout));
    }
}

void Bridge::fillLogon(FIX::Message& logon, const FIX::SessionID& session)
{
    const FIX::Dictionary& settings = mSettings.get(session);
    if (settings.has("Username")) {
        logon.setField(FIX::FIELD::Username, settings.getString("Username"));
    }
    if (settings.has("Password")) {
        logon.setField(FIX::FIELD::Password, settings.getString("Password"));
    }
    if (mResetsSequence) {
        logon.setField(FIX::FIELD::ResetSeqNumFlag, "Y");
    }
}

void Bridge::toAdmin(FIX::Message& message, const FIX::SessionID& session)
{
    const std::string type = typeOf(message);
    if (type == "A") {
        mLogoutTold = false;
        fillLogon(message, session);
        tell(SessionNews::State::Connected, session, std::string());
    } else if (type == "5") {
        tellLogout(message, session);
    } else if (type == "4") {
        tellGap(message, session);
    } else if (type == "3") {
        tell(SessionNews::State::Note, session, "rejected: " + textOf(message));
    }
}

/// The session may have forgotten that an order arrived; it must never find out by sending it twice.
void Bridge::toApp(FIX::Message& message, const FIX::SessionID&) throw(FIX::DoNotSend)
{
    if (mStores != nullptr && message.getHeader().isSetField(FIX::FIELD::PossDupFlag)) {
        throw FIX::DoNotSend();
    }
}

void Bridge::fromAdmin(const FIX::Message& message,
                       const FIX::SessionID& session) throw(FIX::FieldNotFound, FIX::IncorrectDataFormat,
                                                            FIX::IncorrectTagValue, FIX::RejectLogon)
{
    const std::string type = typeOf(message);
    if (type == "5") {
        tellLogout(message, session);
    } else if (type == "3") {
        handOn(message, session);
    }
}

void Bridge::fromApp(const FIX::Message& message,
                     const FIX::SessionID& session) throw(FIX::FieldNotFound, FIX::IncorrectDataFormat,
                                                          FIX::IncorrectTagValue, FIX::UnsupportedMessageType)
{
    handOn(message, session);
}

void Bridge::handOn(const FIX::Message& message, const FIX::SessionID& session)
{
    SequenceStore* store = mStores == nullptr ? nullptr : mStores->find(session);
    if (store != nullptr) {
        FIX::MsgSeqNum number;
        message.getHeader().getField(number);
        store->hold(number);
    }
    mListener.onMessage(session.toString(), fromEngine(message));
}

} // namespace gateway
