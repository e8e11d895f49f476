#pragma once

#include "tests/support/DialogFixture.h"
#include "tests/support/Sheet.h"

#include <random>

/// Random tables and documents from a fixed seed, which a failure prints.
class RandomImports : public DialogFixture {
protected:
    static constexpr int Cases = 12; ///< of each property

    /// How a data row is made, which tells how it must end.
    enum class RowKind { Good, Faulty, Note, Blank };
    struct RandomTable {
        Sheet sheet;
        QList<RowKind> kinds;
    };

    void seed(unsigned value) { mRandom.seed(value); }
    int below(int bound) { return int(mRandom() % unsigned(bound)); }
    bool chance(int percent) { return below(100) < percent; }
    template <typename Item> Item oneOf(const QList<Item>& items) { return items.at(below(items.size())); }

    /// Loads a strategy whose document is the ordinary one with random further parameters.
    void openRandomStrategy();
    /// Rows of every kind under the columns of the loaded strategy.
    RandomTable randomTable(int rowCount);
    /// Likewise for a lock strategy, whose rows may also lack a leg.
    RandomTable randomLockTable(int rowCount);
    QList<int> randomOrder(int count);

    /// Lines that the last error box names.
    QList<int> errorLines() const;
    /// Everything that an import leaves behind.
    QVariantList outcome();

private:
    QMap<QString, QString> randomCells(bool faulty);

    std::mt19937 mRandom;
    QStringList mExtraTitles;
};
