#pragma once

#include "table/Fault.h"

#include <QList>
#include <QString>
#include <QStringList>

/// A fault of what the user has before him, and who found it.
struct Problem {
    enum class Source {
        Import,       ///< a row that was not taken, or a file
        Check,        ///< what looks wrong in the file
        Confirmation, ///< the batch at 确定, or on another account
        Guard,        ///< what is known against creating the batch
        SetAside      ///< a row that was left out since something was wrong with it
    };

    /// `line` is of the file; `row`, of a problem of the batch, of the dialog's table.
    table::Fault fault;
    Source source = Source::Import;
    QStringList suggestions; ///< titles, securities or numbers that could be meant
    QString address;         ///< on the sheet, A1; empty where the problem is of no one cell
    int column = -1;         ///< of the file, from 0; -1: of no one column
    int row = 0;             ///< of the dialog's table, from 1; 0: not in it

    bool isOfBatch() const { return source == Source::Confirmation || source == Source::Guard; }
};

using Problems = QList<Problem>;
