#pragma once

#include "embedded_host/table_check/Findings.h"
#include "embedded_host/table_check/HeaderLint.h"

#include <QHash>
#include <QSet>

namespace table_lint {

/// Rows that may not be what the import takes them for: an order that lost its code, a total, the header once
/// more, the same order again. Looks at one row after the other.
class RowLint {
public:
    RowLint(const table::Table& table, const Expectation& expectation, const FileColumns& columns,
            Findings& findings);

    /// Whether the row may be an order, so that its cells are worth a look.
    bool look(int row);

private:
    bool isOrderWithoutCode(int row) const;
    bool isBelowAMergedCode(int row) const;
    bool isHeaderAgain(const QStringList& cells) const;
    bool isTotal(const QStringList& cells) const;
    void lookForTheSame(int row);
    QStringList orderOf(const QStringList& cells) const;
    void lookAtMerges(int row);

    const table::Table& mTable;
    const Expectation& mExpectation;
    Findings& mFindings;
    const FileColumns& mColumns;
    QHash<QStringList, int> mSeen; ///< an order's cells -> its line
};

} // namespace table_lint
