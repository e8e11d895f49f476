#pragma once

#include "host/RecordDataList.h"
#include "ledger/draft/BatchDraft.h"

namespace batch {

/// What a confirmed dialog holds.
struct DialogContent {
    QString strategy;
    QString account;
    QString filePath;     ///< of the imported file
    QString fileSha256;   ///< taken at the import (sha256OfFile()); empty: taken now
    QJsonArray fileEdits; ///< what was changed on the desk after the file was read
    QString createdBy;
    double expectedBuy = 0.0;
    double expectedSell = 0.0;
    QStringList columns;                          ///< the table's column names, hidden ones included
    RecordDataList records;                       ///< the table's rows, ZelTableView::getViewData()
    QList<QMap<QString, QVariant>> parameterMaps; ///< getWidgetData(); the n-th belongs to the n-th record
};

/// A draft with a new id. Its legs have no amounts yet: see valueLegs().
ledger::BatchDraft makeDraft(const DialogContent& content);

/// Shown texts of a table.
ledger::BatchTable shownTable(const QStringList& columns, const RecordDataList& records);

/// Columns that tell which row of one table is which of another.
const QStringList& orderColumns();

/// Hexadecimal digits; empty when the file cannot be read.
QString sha256OfFile(const QString& path);

} // namespace batch
