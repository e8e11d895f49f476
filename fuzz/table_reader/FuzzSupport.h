#pragma once

#include "embedded_host/table_reader/TableReader.h"

#include <QBuffer>
#include <QByteArray>

#include <cstdint>
#include <cstdlib>

namespace fuzz {

inline QByteArray bytesOf(const std::uint8_t* data, std::size_t size)
{
    return QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size));
}

/// What must hold of every answer, whatever the file.
inline void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// Reads the bytes as a file, with and without inspection, and holds both answers to the reader's promises.
inline void readAsFile(QByteArray bytes)
{
    using namespace table_reader;
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    const table::Table table = readTable(file);
    require(table.error.isEmpty() || table.rows.isEmpty());
    require(table.rows.size() <= table::RowsToRead);
    require(table.lines.size() == table.rows.size());
    if (!table.error.isEmpty() || table.rows.isEmpty()) {
        return;
    }
    require(table.format == QLatin1String("csv") ||
            (!table.rows.last().isEmpty() && !table.rows.last().last().isEmpty()));
    file.seek(0);
    ReadOptions options;
    options.inspect = true;
    const table::Table inspected = readTable(file, options);
    require(!inspected.error.isEmpty() || inspected.rows == table.rows);
}

} // namespace fuzz
