#pragma once

#include "embedded_host/templates/TemplateSheet.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// The bytes of a template file.
namespace template_files {

/// UTF-8 with a byte order mark, lines ended by CR LF (RFC 4180).
QByteArray csvBytes(const TemplateSheet& sheet);

/// A workbook with one sheet each: bold frozen header, notes, drop-down lists, number and date formats.
/// Empty, with `error`, where it cannot be written.
QByteArray xlsxBytes(const QList<TemplateSheet>& sheets, QString& error);

} // namespace template_files
