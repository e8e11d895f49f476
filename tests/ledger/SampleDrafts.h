#pragma once

#include "ledger/Ledger.h"
#include "tests/support/Text.h"

#include <QTemporaryDir>

#include <ostream>

/// 10.01_d: exactly that.
inline ledger::Decimal operator""_d(const char* digits)
{
    return ledger::Decimal::fromText(QString::fromLatin1(digits));
}

namespace ledger {

inline void PrintTo(const Decimal& number, std::ostream* out)
{
    *out << (number.isNumber() ? number.text().toStdString() : "none");
}

} // namespace ledger

/// One row: a leg with its parameter map and its line of the table.
struct SampleRow {
    QString symbol = "600000.SH"_s;
    QString direction = "Buy"_s;
    ledger::Decimal quantity = 1000;
    ledger::Decimal limitPrice = 10;
    bool startsNow = false;
};

ledger::InstanceDraft sampleInstance(const SampleRow& row);
/// Account 1001, strategy AITWAP, a new id.
ledger::BatchDraft sampleDraft(const QList<SampleRow>& rows);
/// `count` rows of different securities.
ledger::BatchDraft sampleDraft(int count);

/// 2025-11-03 10:00 in Shanghai.
QDateTime sampleMorning();

/// A ledger in a folder of its own, opened for writing with a clock that the test sets.
class SampleLedger {
public:
    SampleLedger() : now(sampleMorning()) { reopen(); }

    QString home() const { return mFolder.path(); }
    QString path() const { return ledger::Ledger::pathIn(home()); }
    /// Closes the ledger and opens it again; the error where that fails.
    QString reopen(int maxPages = 0);
    void close() { mLedger.reset(); }
    ledger::Ledger& operator*() const { return *mLedger; }
    ledger::Ledger* operator->() const { return mLedger.get(); }
    std::shared_ptr<ledger::Ledger> shared() const { return mLedger; }

    QDateTime now;

private:
    QTemporaryDir mFolder;
    std::shared_ptr<ledger::Ledger> mLedger;
};

/// Everything that a ledger holds, oldest first.
Outcome<QList<ledger::Batch>> allBatches(const ledger::Ledger& ledger);
Outcome<QList<ledger::Instance>> allInstances(const ledger::Ledger& ledger);

/// That home's ledger.
Outcome<std::shared_ptr<ledger::Ledger>> openIn(const QString& home,
                                                const ledger::Ledger::Options& options = {});
/// Opens for reading.
Outcome<std::shared_ptr<ledger::Ledger>> openToRead(const QString& home);
