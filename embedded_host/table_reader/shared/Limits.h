#pragma once

#include "table/CellAddress.h"

#include <QtGlobal>

/// What a table may ask of us. Real tables stay far below; files made to exhaust a reader do not.
namespace table_reader::limits {

constexpr int Columns = table::SheetColumns;     ///< of a row, in every format: a sheet has no more
constexpr qint64 Cells = 2'000'000;              ///< of the rows read, empty ones between others included
constexpr qint64 CellCharacters = 1 << 20;       ///< of one cell; a spreadsheet's own limit is 32,767
constexpr qint64 TableCharacters = 16 << 20;     ///< of all cells, a text counted as often as it is used
constexpr qint64 XlsFileBytes = 128 << 20;       ///< which is read whole
constexpr qint64 ZipFileBytes = 256 << 20;       ///< of which libzip may believe that all is a list of parts
constexpr int ArchiveEntries = 20'000;           ///< of a zip archive
constexpr qint64 DirectoryBytes = 8 << 20;       ///< of a zip archive's list of parts
constexpr qint64 PartBytes = 40 << 20;           ///< inflated bytes taken from one part: a second of parsing
constexpr qint64 SuspiciousPartBytes = 16 << 20; ///< from here on the ratio below counts
constexpr qint64 InflationRatio = 400;           ///< inflated bytes to one compressed byte
constexpr qint64 RestBytes = 2 << 20;  ///< read of what lies behind the cells wanted, for the checksum
constexpr int TagAttributes = 100;     ///< of one tag
constexpr int Namespaces = 100;        ///< known at one place
constexpr qint64 TokenBytes = 8 << 20; ///< one tag or one text of XML
constexpr int NestingDepth = 128;      ///< of XML elements
constexpr int SheetNames = 10'000;     ///< sheets of a workbook
constexpr int CellStyles = 70'000;     ///< a workbook's own limit is 65,490
constexpr qint64 Records = 12'000'000; ///< of an xls workbook; one of XlsFileBytes has fewer cells
constexpr int MergedAreas = 10'000;    ///< told by an inspection, the first ones
constexpr int ShownCharacters = 200;   ///< told of what a cell shows
constexpr int StoredNumbers = 200'000; ///< told by an inspection, the first ones

} // namespace table_reader::limits
