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
    QDateTime first;  ///< UTC
    QDateTime last;
    int batches = 0;
    qint64 orders = 0;   ///< instances; what was withdrawn before it was sent does not count
    ledger::Decimal buy; ///< CNY
    ledger::Decimal sell;
    int peak = 0; ///< orders of the busiest second
    QDateTime peakAt;
    int busySeconds = 0; ///< with SomeASecond orders or more

    bool isHighFrequency() const { return peak >= ManyASecond || orders >= ManyADay; }
};

/// Collects batches in any order. A batch's orders count in the second of its creation.
///
///     Counter counter(day);
///     ledger->eachBatch([&](const Batch& batch) { counter.add(batch, withdrawn); return true; });
class Counter {
public:
    explicit Counter(const QDate& day) : mDay(day) {}

    bool isOfDay(const ledger::Batch& batch) const;
    /// `withdrawn`: orders of it that were taken back before they were sent.
    void add(const ledger::Batch& batch, qint64 withdrawn);
    /// By account; the sum of an account stands behind its strategies.
    QList<Count> counts() const;

private:
    struct Collected {
        Count count;
        QMap<qint64, int> seconds; ///< since 1970 -> orders
    };
    static void add(Collected& collected, const ledger::Batch& batch, qint64 orders);

    QDate mDay;
    QMap<QPair<QString, QString>, Collected> mCollected;
};

/// The counts of a day.
Outcome<QList<Count>> read(const ledger::Ledger& ledger, const QDate& day);

/// A table for people, the header first. `software`: name and version of the program.
QList<QStringList> table(const QList<Count>& counts, const QDate& day, const QString& software,
                         const QString& version);

} // namespace day_report
