#pragma once

#include "ledger/Ledger.h"

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

/// Programme trading of one exchange day, as exchanges ask to be told of it.
namespace day_report {

/// From these on an account trades at a high frequency.
constexpr int ManyASecond = 300;
constexpr int ManyADay = 20000;
/// From this on a second is worth a look.
constexpr int SomeASecond = 10;

/// Orders of an account, of one strategy or of all.
struct Count {
    QString account;
    QString strategy; ///< "*": all of the account
    QDateTime first;  ///< of the orders, UTC
    QDateTime last;
    int batches = 0;     ///< created on the day
    qint64 orders = 0;   ///< instances that went out; of an account that no gateway serves, those created
    ledger::Decimal buy; ///< CNY, of the batches
    ledger::Decimal sell;
    int peak = 0; ///< orders of the busiest second
    QDateTime peakAt;
    int busySeconds = 0; ///< with SomeASecond orders or more

    bool isHighFrequency() const { return peak >= ManyASecond || orders >= ManyADay; }
};

/// Collects the batches and the orders of a day, in any order.
///
///     Counter counter(day);
///     counter.addBatch(batch);
///     counter.addOrders(batch, sentAt, 3);
class Counter {
public:
    explicit Counter(const QDate& day) : mDay(day) {}

    /// Of another day: passed over, as with the orders.
    void addBatch(const ledger::Batch& batch);
    /// Orders of a batch that went out at a moment.
    void addOrders(const ledger::Batch& batch, const QDateTime& at, qint64 orders);
    /// By account; the sum of an account stands behind its strategies.
    QList<Count> counts() const;

private:
    struct Collected {
        Count count;
        QMap<qint64, int> seconds; ///< since 1970 -> orders
    };
    QList<Collected*> collectedOf(const ledger::Batch& batch);

    QDate mDay;
    QMap<QPair<QString, QString>, Collected> mCollected;
};

/// The counts of a day. An order counts at the moment at which the ledger let a gateway send it for the first
/// time; one that no gateway sends, at its creation. What was withdrawn or rejected before it was sent, or
/// still waits for that, is none.
Outcome<QList<Count>> read(const ledger::Ledger& ledger, const QDate& day);

/// A table for people, the header first. `software`: name and version of the program.
QList<QStringList> table(const QList<Count>& counts, const QDate& day, const QString& software,
                         const QString& version);

} // namespace day_report
