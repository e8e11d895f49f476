#pragma once

#include "gateway/messages/Message.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>

/// A broker's desk to try the gateway with: it acknowledges what it understands, works it in even slices
/// between its start and its end, and says so. Pure: messages and moments in, messages out.
namespace gateway::simulator {

class Market {
public:
    /// Prices by a security's code, in ten-thousandths.
    using Quotes = QHash<QString, qint64>;

    /// `pace`: how many seconds of an order pass in one of the clock. What is to start later starts at once.
    /// What has no quote has a price that its code always has.
    explicit Market(double pace, const Quotes& quotes = {});

    /// D, AB, F and H; what it does not know is rejected.
    QList<Message> receive(const Message& message, const QDateTime& now);
    /// The fills that are due.
    QList<Message> tick(const QDateTime& now);

    int openOrders() const;

private:
    struct Leg {
        std::string symbol;
        std::string side;
        qint64 quantity = 0;
        qint64 filled = 0;
        qint64 limit = 0; ///< in ten-thousandths, as all prices here; 0: none
        qint64 quote = 0;
        qint64 paid = 0; ///< price times quantity, of all fills
        qint64 lastPrice = 0;
        qint64 lastQuantity = 0;
    };

    struct Order {
        std::string clOrdId;
        std::string orderId;
        std::string account;
        std::string side;
        std::string status = "0"; ///< 39
        QList<Leg> legs;
        QDateTime start;
        QDateTime end;
        qint64 lot = 1;
    };

    QList<Message> receiveOrder(const Message& message, const QDateTime& now);
    QList<Message> receiveCancel(const Message& message);
    Message receiveStatusRequest(const Message& message);
    QList<Message> work(Order& order, const QDateTime& now);
    Message report(const Order& order, const std::string& execType, int leg = -1);
    std::string faultOf(const Message& message) const;
    QList<Leg> legsOf(const Message& message) const;
    Leg legOf(const std::string& symbol, const std::string& side, const std::string& quantity,
              const std::string& limit) const;
    void fill(Leg& leg, qint64 due) const;

    double mPace;
    Quotes mQuotes;
    qint64 mExecutions = 0;
    qint64 mStarted = 0; ///< makes the identifiers of this run differ from another's
    QHash<QString, Order> mOrders;
    QList<QString> mOpen;
};

} // namespace gateway::simulator
