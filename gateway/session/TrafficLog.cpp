#include "gateway/session/TrafficLog.h"

#include "gateway/session/Conversion.h"

#include <sys/stat.h>

#include <quickfix/FieldConvertors.h>

#include <algorithm>

namespace gateway {

TrafficLog::TrafficLog(const std::string& session, const std::string& folder, SessionListener& listener)
    : mSession(session), mListener(listener)
{
    if (!folder.empty() && !session.empty()) {
        std::string name = session;
        std::replace_if(
            name.begin(), name.end(), [](char one) { return one == ':' || one == '>' || one == '/'; }, '-');
        ::mkdir(folder.c_str(), 0700);
        mFile.open(folder + '/' + name + ".log", std::ios::app);
    }
}

void TrafficLog::write(const char* kind, const std::string& text)
{
    if (mFile.is_open()) {
        mFile << FIX::UtcTimeStampConvertor::convert(FIX::UtcTimeStamp(), 3) << ' ' << kind << ' ' << text
              << std::endl;
    }
}

void TrafficLog::onIncoming(const std::string& text)
{
    const std::string clean = masked(text);
    write("<", clean);
    mListener.onTraffic(mSession, false, clean);
}

void TrafficLog::onOutgoing(const std::string& text)
{
    const std::string clean = masked(text);
    write(">", clean);
    mListener.onTraffic(mSession, true, clean);
}

void TrafficLog::onEvent(const std::string& text)
{
    write("#", text);
    SessionNews news;
    news.session = mSession;
    news.text = text;
    mListener.onSession(news);
}

TrafficLogFactory::TrafficLogFactory(const std::string& folder, SessionListener& listener)
    : mFolder(folder), mListener(listener)
{
}

FIX::Log* TrafficLogFactory::create()
{
    return new TrafficLog(std::string(), std::string(), mListener);
}

FIX::Log* TrafficLogFactory::create(const FIX::SessionID& session)
{
    return new TrafficLog(session.toString(), mFolder, mListener);
}

void TrafficLogFactory::destroy(FIX::Log* log)
{
    delete log;
}

} // namespace gateway
