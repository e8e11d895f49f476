#include "gateway/program/Inbox.h"

#include <QLoggingCategory>

namespace gateway {

namespace {

Q_LOGGING_CATEGORY(traffic, "algo.gateway.traffic")

const std::size_t LongestText = 4096; // of a message that is kept for people to read
const std::size_t MostTraffic = 5000;

Traffic readable(bool isOutgoing, const std::string& text)
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const long long at = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    return {at, isOutgoing, text.size() > LongestText ? text.substr(0, LongestText) + "…" : text};
}

} // namespace

void Inbox::onSession(const SessionNews& news)
{
    Item item;
    item.news = news;
    add(std::move(item));
}

void Inbox::onMessage(const std::string& session, const Message& message)
{
    Item item;
    item.isMessage = true;
    item.session = session;
    item.message = message;
    add(std::move(item));
}

void Inbox::onTraffic(const std::string& session, bool isOutgoing, const std::string& text)
{
    qCDebug(traffic).noquote() << QString::fromStdString(session) << (isOutgoing ? '>' : '<')
                               << QString::fromStdString(text).replace(QChar(1), QLatin1Char('|'));
    const std::lock_guard<std::mutex> lock(mMutex);
    mTraffic.push_back(readable(isOutgoing, text));
    if (mTraffic.size() > MostTraffic) {
        mTraffic.pop_front();
    }
}

std::vector<Inbox::Item> Inbox::take(std::chrono::milliseconds patience)
{
    std::unique_lock<std::mutex> lock(mMutex);
    mArrived.wait_for(lock, patience, [this] { return !mItems.empty(); });
    std::vector<Item> items;
    items.swap(mItems);
    return items;
}

std::vector<Traffic> Inbox::takeTraffic()
{
    const std::lock_guard<std::mutex> lock(mMutex);
    std::vector<Traffic> taken(mTraffic.begin(), mTraffic.end());
    mTraffic.clear();
    return taken;
}

void Inbox::add(Item item)
{
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mItems.push_back(std::move(item));
    }
    mArrived.notify_one();
}

} // namespace gateway
