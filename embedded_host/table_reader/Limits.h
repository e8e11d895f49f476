#pragma once

#include <QtGlobal>

/// What a table may ask of us. Real tables stay far below; files made to exhaust a reader do not.
namespace table_reader::limits {

constexpr int Columns = 16384;                   ///< of a row, in every format: a sheet has no more
constexpr qint64 Cells = 2'000'000;              ///< of the rows read, empty ones between others included
constexpr qint64 CellCharacters = 1 << 20;       ///< of one cell; a spreadsheet's own limit is 32,767
constexpr qint64 TableCharacters = 16 << 20;     ///< of all cells, a text counted as often as it is used
constexpr int ArchiveEntries = 20'000;           ///< of a zip archive
constexpr qint64 PartBytes = 40 << 20;           ///< inflated bytes taken from one part: a second of parsing
constexpr qint64 SuspiciousPartBytes = 16 << 20; ///< from here on the ratio below counts
constexpr qint64 InflationRatio = 400;           ///< inflated bytes to one compressed byte
constexpr qint64 TokenBytes = 8 << 20;           ///< one tag or one text of XML
constexpr int NestingDepth = 128;                ///< of XML elements
constexpr int SheetNames = 10'000;               ///< sheets of a workbook
constexpr int CellStyles = 70'000;               ///< a workbook's own limit is 65,490
constexpr qint64 Records = 8'000'000;            ///< of an xls workbook

} // namespace table_reader::limits
