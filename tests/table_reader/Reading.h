#pragma once

#include "embedded_host/table_reader/TableReader.h"

#include <gtest/gtest.h>

#include <QBuffer>

#include <string>

/// Reads bytes as a file.
inline table::Table tableOf(QByteArray bytes, const table_reader::ReadOptions& options = {})
{
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    return table_reader::readTable(file, options);
}

/// Reads bytes as a file, with what a report needs.
inline table::Table inspect(const QByteArray& bytes)
{
    table_reader::ReadOptions options;
    options.inspect = true;
    return tableOf(bytes, options);
}

/// What was read, cells between bars and each row on a line: "a|b\n1|2\n"; or "! " and the error.
inline std::string shown(const table::Table& table)
{
    EXPECT_TRUE(table.error.isEmpty() || table.rows.isEmpty()) << "an error comes with no rows";
    QString text;
    for (const QStringList& row : table.rows) {
        text += row.join(QLatin1Char('|')) + QLatin1Char('\n');
    }
    return table.error.isEmpty() ? text.toStdString() : "! " + table.error.toStdString();
}

inline std::string shown(const QByteArray& bytes)
{
    return shown(tableOf(bytes));
}
