#pragma once

#include <QString>

#include <string_view>

namespace table {

/// Of a sheet: the last is XFD.
constexpr int SheetColumns = 16384;

/// A1 notation of a cell counted from 0: (2, 27) is AB3.
QString cellAddress(int row, int column);

struct CellPosition {
    int row = -1; ///< from 0; -1: the text is no address
    int column = -1;
    bool isValid() const { return row >= 0 && column >= 0; }
};

/// Reads A1, $A$1 or a1. Rows beyond 100,000,000 and columns beyond XFD are no address.
CellPosition parseCellAddress(const QStringRef& text);
CellPosition parseCellAddress(std::string_view text);

} // namespace table
