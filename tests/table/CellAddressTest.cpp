#include "table/CellAddress.h"

#include <gtest/gtest.h>

using table::cellAddress;
using table::parseCellAddress;

TEST(CellAddress, IsReadAndWritten)
{
    const auto parsed = [](const char* text) {
        const QString whole = QString::fromLatin1(text);
        return parseCellAddress(QStringRef(&whole));
    };
    EXPECT_EQ("A1", cellAddress(0, 0).toStdString());
    EXPECT_EQ("AB3", cellAddress(2, 27).toStdString());
    EXPECT_EQ("XFD1048576", cellAddress(1048575, 16383).toStdString());
    EXPECT_EQ(1048575, parsed("XFD1048576").row);
    EXPECT_EQ(16383, parsed("xfd1048576").column);
    EXPECT_EQ(27, parsed("$AB$3").column);
    for (const char* const text :
         {"", "A", "1", "A0", "1A", "A1B", "XFE1", "ZZZZZZZZZZ1", "A99999999999", "-A1"}) {
        EXPECT_FALSE(parsed(text).isValid()) << text;
    }
}
