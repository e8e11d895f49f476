#pragma once

#include "ledger/store/Address.h"
#include "ledger/values/Decimal.h"

#include <QHash>
#include <QProcess>
#include <QSet>

#include <memory>
#include <vector>

/// Programs that create on one ledger at the same time, and what they have said.
class Desks {
public:
    Desks(const QString& address, int count, int files, const ledger::Decimal& ceiling);
    ~Desks();

    void start(int desk);
    void startAll();
    /// Kills one without a word to it, reads what it had said, and starts it again.
    void kill(int desk);
    /// Reads what was said until `milliseconds` have passed or all are through; whether they are.
    bool work(int milliseconds);

    QHash<int, qint64> created; ///< number of the batch that was reported for a file
    QSet<int> refused;          ///< files that were refused by the ceiling
    int duplicates = 0;         ///< creations refused since another desk was first
    QStringList faults;         ///< what no desk may say

private:
    void read(int desk);
    void take(const QString& line);

    const QString mAddress;
    const int mFiles;
    const ledger::Decimal mCeiling;
    std::vector<std::unique_ptr<QProcess>> mProcesses;
};

/// Everything about a ledger that desks have worked on: whatever was reported is there, whole, once.
void expectSoundAfter(const ledger::Address& address, const Desks& desks);
