#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace table {

/// How much a fault matters, whoever found it. What a desk does about it (refuse, ask, tell) is the guard's.
enum class Severity {
    Notice,  ///< worth a look
    Warning, ///< taken, but perhaps not as it was meant
    Error,   ///< refused, or taken as something else than it says
};

/// Something wrong with a table, one of its rows or cells, or with a batch made of it. Whoever needs to know
/// what it is about asks here; the sentence (FaultCatalogue.h) is for people only and is never read back.
///
///     {rule::UnknownCode, Severity::Error, 3, 2, "证券代码", "60000", {"60000"}}
///     → "证券代码60000不合法，未获取到市场"
struct Fault {
    QString rule; ///< stable identifier, such as "import.unknownCode"; see the catalogue for all of them
    Severity severity = Severity::Error;
    int line = 0;   ///< of the file, from 1 (the header is usually line 1); 0: of no one line
    int row = 0;    ///< of the table shown, or of the batch, from 1; 0: of no one row
    QString column; ///< title in the file, or the strategy's where the file has no such title; empty: none
    QString cell;   ///< what stands in the file there, as it stands
    QStringList arguments; ///< what the rule's sentence is filled with, in the order of its placeholders
};

using Faults = QList<Fault>;

/// "notice", "warning", "error": as printed.
QString nameOf(Severity severity);

} // namespace table
