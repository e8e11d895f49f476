#include "gateway/program/Inbox.h"

#include <QLoggingCategory>

namespace gateway {

namespace {

Q_LOGGING_CATEGORY(traffic, "algo.gateway.traffic")

}

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
}

std::vector<Inbox::Item> Inbox::take(std::chrono::milliseconds patience)
{
    std::unique_lock<std::mutex> lock(mMutex);
    mArrived.wait_for(lock, patience, [this] { return !mItems.empty(); });
    std::vector<Item> items;
    items.swap(mItems);
    return items;
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
