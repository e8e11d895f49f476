#pragma once

#include "import/RowReader.h"
#include "strategy/Strategy.h"
#include "table/Fault.h"
#include "table/Table.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

/// An import of a table as a value: what the dialog would show and say of it, without a dialog.
namespace import {

struct Reading {
    RecordDataList records;
    QList<QMap<QString, QVariant>> instances; ///< parameter maps; the n-th belongs to the n-th record
    QList<int> lines;                         ///< of each record the line of the file
    /// Of dropped rows, in the order in which they were found. The dialog says a fault's sentence under the
    /// number `row` + 1, and of those with the same number the last one alone. For a fault of a row's legs it
    /// counts the accepted rows instead of the file's: only `line` is the row's own.
    table::Faults faults;
    /// What ended the import; then the dialog shows neither rows nor other faults.
    std::optional<table::Fault> end;
    int passedOver = 0; ///< blank rows and notes
};

/// Matches the header, reads the rows and splits legs. Takes the rows that an import takes, the first
/// table::MostOrders behind the header. Asks the host for securities, accounts and snapshots, but neither
/// subscribes nor waits nor has a notice shown: whoever needs amounts converted has subscribed before, as the
/// dialog has when it was given the same file. `dateTimeFormat`: dateTimeFormatOf(path).
Reading readRows(const strategy::Strategy& strategy, const table::Table& table, const Account& account,
                 const QString& dateTimeFormat);

/// Whether an import takes the file for comma-separated text: the second dot-separated part of the whole path
/// decides, not the extension, so that below a folder with a dot in its name no file is.
bool looksLikeCsv(const QString& path);

/// Layout of date-times in a file.
QString dateTimeFormatOf(const QString& path);

} // namespace import
