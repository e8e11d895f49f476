#pragma once

#include "host/AesStrategy.h"
#include "import/RowReader.h"
#include "table/Fault.h"
#include "table/Table.h"
#include "validation/BatchRules.h"

#include <QString>

/// What the dialog's error boxes are about, as faults. They are found anew, by the rules that the dialog
/// follows, in what it was given; its sentences are never read. `table` and `path` are those of the imported
/// file.
///
///     // the dialog has just complained of the file that it imported
///     table::Faults faults = DialogFaults(strategy, account).ofFile(file.table, file.path);
class DialogFaults {
public:
    DialogFaults(const AesStrategy& strategy, const import::Account& account);

    /// Of an imported table, in the order of the lines; what ended the import stands last. The dialog must
    /// have been given the table before, since it subscribes to the quotes. `path` as it was given.
    table::Faults ofFile(const table::Table& table, const QString& path) const;
    /// Of a batch at 确定. `row` counts the rows of the dialog's table, `line` those of the file.
    table::Faults ofBatch(const validation::Instances& instances, const table::Table& table,
                          const QString& path) const;
    /// Of a batch that this account was chosen for.
    table::Faults ofAccount(const validation::Instances& instances, const table::Table& table,
                            const QString& path) const;

    /// On which lines of the file the rows of a batch with so many orders stand; empty where nobody knows.
    QList<int> linesOf(int orders, const table::Table& table, const QString& path) const;

    /// These faults, and where there are none the dialog's own words as one, so that nothing it says is lost.
    static table::Faults orWords(const table::Faults& faults, const QString& words);

private:
    table::Faults placed(table::Faults faults, int orders, const table::Table& table,
                         const QString& path) const;

    AesStrategy mStrategy;
    import::Account mAccount;
};
