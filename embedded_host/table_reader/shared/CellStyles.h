#pragma once

#include "embedded_host/table_reader/shared/NumberFormat.h"
#include "embedded_host/table_reader/shared/NumberLook.h"

#include <QHash>
#include <QVector>

namespace table_reader {

/// What a workbook's cell styles say, by the style's number.
struct CellStyles {
    QVector<NumberFormat> formats;
    QVector<NumberLook> looks; ///< for a report; else empty
    QVector<bool> struck;      ///< likewise: in a font that is struck out

    NumberFormat formatOf(int style) const { return formats.value(style, NumberFormat::Plain); }
    bool isStruck(int style) const { return struck.value(style, false); }
};

/// The parts of which a workbook makes its cell styles.
struct StyleParts {
    QHash<int, QString> codes;  ///< of the workbook's own number formats
    QVector<bool> struckFonts;  ///< by the font's number
    QVector<int> formatNumbers; ///< of each style
    QVector<int> fontNumbers;   ///< of each style

    CellStyles styles(bool forReport) const;
};

} // namespace table_reader
