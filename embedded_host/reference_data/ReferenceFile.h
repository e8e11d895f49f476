#pragma once

#include "table/Outcome.h"

#include <QByteArray>
#include <QString>

/// The bytes of a file of a reference data folder; the error is "FILE:LINE: what is wrong". Such a folder may
/// come from a stranger: nothing but a regular file is read, none waits for a writer, and `most` bytes end
/// it.
Outcome<QByteArray> readReferenceFile(const QString& path, qint64 most);

/// What the files and their texts may hold: many times what a desk needs, and little enough that a folder
/// made to exhaust the machine is refused at once.
namespace reference_limits {
constexpr qint64 CsvBytes = 16 << 20;
constexpr qint64 JsonBytes = 4 << 20;
constexpr int Rows = 200000;
constexpr int Columns = 100;
constexpr int Strategies = 2000;
constexpr int TextCharacters = 4096;        ///< a cell, or a text of the catalogue
constexpr int DocumentCharacters = 1 << 18; ///< a parameter format document
} // namespace reference_limits
