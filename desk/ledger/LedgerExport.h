#pragma once

#include "desk/ledger/LedgerRecords.h"

#include <QByteArray>

/// Lists of the ledger as csv for a spreadsheet: UTF-8 with a byte order mark, RFC 4180, CRLF.
namespace ledger {

QByteArray toCsv(const QList<Batch>& batches);
QByteArray toCsv(const QList<Instance>& instances);

/// Any table. A text that a spreadsheet would take for a formula gets an apostrophe before it; numbers stay.
QByteArray toCsv(const QStringList& header, const QList<QStringList>& rows);

} // namespace ledger
