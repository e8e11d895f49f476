#include "gateway/simulator/Market.h"

#include "gateway/messages/WireNumber.h"

#include <algorithm>
#include <functional>

namespace gateway::simulator {

namespace {

const int PriceScale = 10000;
const qint64 Cent = 100; // of prices
const qint64 MostSteps = 20;
const qint64 StepsInPrice = 10000;
const qint64 Lot = 100;
const qint64 UsualSeconds = 600;

qint64 wholeOf(const std::string& text)
{
    return QString::fromStdString(text).section(QLatin1Char('.'), 0, 0).toLongLong();
}

/// In ten-thousandths; of what is no number 0.
qint64 priceOf(const std::string& text)
{
    const QString price = QString::fromStdString(text);
    if (!wire_number::isNumber(price)) {
        return 0;
    }
    const QString places = (price.section(QLatin1Char('.'), 1, 1) + QStringLiteral("0000")).left(4);
    return price.section(QLatin1Char('.'), 0, 0).toLongLong() * PriceScale + places.toLongLong();
}

/// One that a code always has.
qint64 inventedPrice(const std::string& symbol)
{
    return static_cast<qint64>(5 + std::hash<std::string>()(symbol) % 95) * PriceScale;
}

/// Up and down by a fifth of a per cent at most, in whole cents.
qint64 moved(qint64 price, qint64 fills)
{
    const qint64 step = (fills * 7919) % (2 * MostSteps + 1) - MostSteps;
    return std::max<qint64>(Cent, (price + price * step / StepsInPrice) / Cent * Cent);
}

std::string priceText(qint64 price)
{
    return QStringLiteral("%1.%2")
        .arg(price / PriceScale)
        .arg(price % PriceScale, 4, 10, QLatin1Char('0'))
        .toStdString();
}

/// 168 and 126, however many digits their seconds have.
QDateTime timeOf(const std::string& text, const QDateTime& otherwise)
{
    const QString shown = QString::fromStdString(text);
    const QDateTime time = QDateTime::fromString(shown.left(17), QStringLiteral("yyyyMMdd-HH:mm:ss"));
    return time.isValid() ? QDateTime(time.date(), time.time(), Qt::UTC) : otherwise;
}

std::string fieldIn(const Fields& fields, int tag)
{
    const std::string* value = findField(fields, tag);
    return value == nullptr ? std::string() : *value;
}

/// How much of an order is due at a part of its time, in whole lots.
qint64 dueOf(qint64 quantity, qint64 lot, double part)
{
    if (part >= 1.0) {
        return quantity;
    }
    const qint64 lots = static_cast<qint64>(static_cast<double>(quantity) * std::max(part, 0.0)) / lot;
    return std::min(quantity, lots * lot);
}

} // namespace

Market::Market(double pace, const Quotes& quotes)
    : mPace(pace), mQuotes(quotes), mStarted(QDateTime::currentMSecsSinceEpoch())
{
}

int Market::openOrders() const
{
    return mOpen.size();
}

QList<Message> Market::receive(const Message& message, const QDateTime& now)
{
    if (message.type == "D" || message.type == "AB") {
        return receiveOrder(message, now);
    }
    if (message.type == "F") {
        return receiveCancel(message);
    }
    return message.type == "H" ? QList<Message>{receiveStatusRequest(message)} : QList<Message>();
}

Market::Leg Market::legOf(const std::string& symbol, const std::string& side, const std::string& quantity,
                          const std::string& limit) const
{
    Leg leg;
    leg.symbol = symbol;
    leg.side = side;
    leg.quantity = wholeOf(quantity);
    leg.limit = priceOf(limit);
    leg.quote = mQuotes.value(QString::fromStdString(symbol), inventedPrice(symbol));
    return leg;
}

QList<Market::Leg> Market::legsOf(const Message& message) const
{
    QList<Leg> legs;
    if (const Group* group = message.group(555)) {
        for (const Fields& fields : group->entries) {
            legs.append(legOf(fieldIn(fields, 600), fieldIn(fields, 624), fieldIn(fields, 687),
                              fieldIn(fields, 566)));
        }
        return legs;
    }
    Leg leg = legOf(message.text(55), message.text(54), message.text(38), message.text(44));
    if (message.has(152)) {
        leg.quantity = wholeOf(message.text(152)) * PriceScale / std::max<qint64>(leg.quote, 1) / Lot * Lot;
    }
    legs.append(leg);
    return legs;
}

/// At the quote as it moves, or at the limit where that is better for nobody but the counterparty.
void Market::fill(Leg& leg, qint64 due) const
{
    const bool buys = leg.side == "1";
    const qint64 quote = moved(leg.quote, mExecutions);
    leg.lastPrice = leg.limit == 0 ? quote : buys ? std::min(quote, leg.limit) : std::max(quote, leg.limit);
    leg.lastQuantity = due - leg.filled;
    leg.paid += leg.lastPrice * leg.lastQuantity;
    leg.filled = due;
}

std::string Market::faultOf(const Message& message) const
{
    for (const int tag : {1, 11, 40, 54, 55, 60}) {
        if (!message.has(tag)) {
            return "missing field " + std::to_string(tag);
        }
    }
    const QList<Leg> legs = legsOf(message);
    if (message.type == "AB" && legs.size() != 2) {
        return "an order of two legs has two";
    }
    for (const Leg& leg : legs) {
        if (leg.quantity <= 0 || leg.symbol.empty()) {
            return "no quantity";
        }
    }
    return std::string();
}

QList<Message> Market::receiveOrder(const Message& message, const QDateTime& now)
{
    const QString clOrdId = QString::fromStdString(message.text(11));
    Order order;
    order.clOrdId = message.text(11);
    order.account = message.text(1);
    order.side = message.text(54);
    order.legs = legsOf(message);
    const bool isDuplicate = mOrders.contains(clOrdId);
    const std::string fault = isDuplicate ? "duplicate order" : faultOf(message);
    if (!fault.empty()) {
        order.status = "8";
        order.orderId = "NONE";
        Message rejection = report(order, "8");
        rejection.put(103, isDuplicate ? "6" : "99");
        rejection.put(58, fault);
        return {rejection};
    }
    const QDateTime start = std::max(now, timeOf(message.text(168), now));
    const QDateTime end = timeOf(message.text(126), start.addSecs(UsualSeconds));
    const double seconds = std::max(1.0, static_cast<double>(start.secsTo(end))) / mPace;
    order.orderId = "S" + std::to_string(mOrders.size() + 1);
    order.start = now;
    order.end = now.addMSecs(static_cast<qint64>(seconds * 1000.0));
    order.lot = std::all_of(order.legs.begin(), order.legs.end(),
                            [](const Leg& leg) { return leg.quantity % Lot == 0; })
                    ? Lot
                    : 1;
    mOrders.insert(clOrdId, order);
    mOpen.append(clOrdId);
    return {report(order, "0")};
}

QList<Message> Market::receiveCancel(const Message& message)
{
    const auto found = mOrders.find(QString::fromStdString(message.text(41)));
    const bool isOpen = found != mOrders.end() && (found->status == "0" || found->status == "1");
    if (!isOpen) {
        Message refusal;
        refusal.type = "9";
        refusal.put(37, found == mOrders.end() ? "NONE" : found->orderId);
        refusal.put(11, message.text(11));
        refusal.put(41, message.text(41));
        refusal.put(39, found == mOrders.end() ? "8" : found->status);
        refusal.put(434, "1");
        refusal.put(102, found == mOrders.end() ? "1" : "0");
        return {refusal};
    }
    QList<Message> answers;
    for (const char* status : {"6", "4"}) {
        found->status = status;
        Message answer = report(*found, status);
        answer.put(41, message.text(41));
        answers.append(answer);
    }
    mOpen.removeOne(found.key());
    return answers;
}

Message Market::receiveStatusRequest(const Message& message)
{
    const auto found = mOrders.find(QString::fromStdString(message.text(11)));
    Order unknown;
    unknown.clOrdId = message.text(11);
    unknown.orderId = "NONE";
    unknown.status = "8";
    unknown.side = message.text(54);
    unknown.legs.append(legOf(message.text(55), unknown.side, "0", std::string()));
    Message answer = report(found == mOrders.end() ? unknown : *found, "I");
    answer.put(790, message.text(790));
    if (found == mOrders.end()) {
        answer.put(103, "5");
    }
    return answer;
}

/// The order as a whole, or one of its legs.
Message Market::report(const Order& order, const std::string& execType, int leg)
{
    const Leg& shown = order.legs.at(std::max(leg, 0));
    Message message;
    message.type = "8";
    message.put(37, order.orderId);
    message.put(11, order.clOrdId);
    message.put(17, execType == "I" ? "0" : std::to_string(mStarted) + '-' + std::to_string(++mExecutions));
    message.put(150, execType);
    message.put(39, leg >= 0 && shown.filled == shown.quantity ? "2" : order.status);
    message.put(1, order.account);
    message.put(55, shown.symbol);
    message.put(54, leg < 0 ? order.side : shown.side);
    message.put(14, std::to_string(shown.filled));
    message.put(6, shown.filled == 0 ? "0" : priceText(shown.paid / shown.filled));
    if (execType == "F" && (leg >= 0 || order.legs.size() == 1)) {
        message.put(32, std::to_string(shown.lastQuantity));
        message.put(31, priceText(shown.lastPrice));
    }
    message.put(151, std::to_string(order.status == "4" ? 0 : shown.quantity - shown.filled));
    if (order.legs.size() > 1) {
        message.put(442, leg < 0 ? "3" : "2");
    }
    if (leg >= 0) {
        message.put(654, std::to_string(leg + 1));
    }
    return message;
}

QList<Message> Market::work(Order& order, const QDateTime& now)
{
    const double whole = static_cast<double>(std::max<qint64>(order.start.msecsTo(order.end), 1));
    const double part = static_cast<double>(order.start.msecsTo(now)) / whole;
    const bool isPair = order.legs.size() > 1;
    QList<Message> reports;
    for (int i = 0; i < order.legs.size(); ++i) {
        Leg& leg = order.legs[i];
        const qint64 due = dueOf(leg.quantity, order.lot, part);
        if (due > leg.filled) {
            fill(leg, due);
            order.status = leg.filled == leg.quantity && !isPair ? "2" : "1";
            reports.append(report(order, "F", isPair ? i : -1));
        }
    }
    const bool isDone = std::all_of(order.legs.begin(), order.legs.end(),
                                    [](const Leg& leg) { return leg.filled == leg.quantity; });
    if (isDone && isPair) {
        order.status = "2";
        reports.append(report(order, "F"));
    }
    return reports;
}

QList<Message> Market::tick(const QDateTime& now)
{
    QList<Message> reports;
    const QList<QString> open = mOpen;
    for (const QString& clOrdId : open) {
        Order& order = mOrders[clOrdId];
        reports.append(work(order, now));
        if (order.status == "2") {
            mOpen.removeOne(clOrdId);
        }
    }
    return reports;
}

} // namespace gateway::simulator
