#pragma once

#include "embedded_host/reference_data/ReferenceData.h"
#include "host/AesStrategy.h"

#include <QList>
#include <QString>
#include <QStringList>

/// Writes import templates: files with the header, notes and drop-down lists of a strategy, into which a
/// trader types and which the import takes back as they are.
namespace template_files {

struct Written {
    QStringList files; ///< that were written, in catalogue order
    QString error;     ///< a Chinese sentence for the user; empty on success
};

/// Writes the templates of `strategies` to `path`; its ending decides the type.
///
/// As xlsx: one workbook, one sheet a strategy, named by its code. The desk reads each for its
/// strategy, other programs the first visible one alone, which every sheet of several says.
///
/// As csv, UTF-8 with a byte order mark: one strategy is written to `path`; of several, each to a file of its
/// own, "templates.csv" giving "templates-AITWAP.csv" and so on.
///
/// A strategy whose parameter format gives no column is left out, and named as the error beside the files of
/// the others.
///
/// A file that exists is replaced as a whole or, where that fails, left as it was.
///
///     const auto written = template_files::write(path, {*data.strategy(code)}, data.tables().markets);
///     if (!written.error.isEmpty()) …
Written write(const QString& path, const QList<AesStrategy>& strategies, const QList<Market>& markets);

/// The files that write() would write.
QStringList filesOf(const QString& path, const QList<AesStrategy>& strategies);

} // namespace template_files
