#pragma once

#include "embedded_host/table_reader/shared/CellStyles.h"
#include "embedded_host/table_reader/shared/NumberText.h"
#include "embedded_host/table_reader/shared/SheetRows.h"
#include "table/CellAddress.h"

#include <QVector>

#include <string_view>

namespace table_reader {

class XmlPart;
class ZipArchive;

/// Reads the cells of one worksheet part. Stops where only rows beyond the ones wanted seem to follow.
class XlsxSheet {
public:
    XlsxSheet(const CellStyles& styles, DateSystem dates, SheetRows& rows, SharedTexts& texts)
        : mStyles(styles), mDates(dates), mRows(rows), mTexts(texts)
    {
    }

    /// The workbook says that its stored results are not to be trusted: a formula's 0 may be one that was
    /// never calculated.
    void setRecalculated(bool recalculated) { mIsRecalculated = recalculated; }

    /// Empty, or the sentence that says what is wrong.
    QString read(ZipArchive& archive, const QString& part);

private:
    enum class CellType { Number, SharedText, Text, InlineText, Bool, Error, Date };
    struct Head {
        table::CellPosition at;
        CellType type = CellType::Number;
        int style = 0;
    };
    struct Content {
        QString value; ///< text of `v`
        QString text;  ///< of an inline string
        bool isInline = false;
        bool hasFormula = false;
        bool hasValue = false; ///< if only an empty one
    };

    void readColumns(XmlPart& part);
    void readRows(XmlPart& part);
    bool enterRow(XmlPart& part);
    void readCells(XmlPart& part);
    void readCell(XmlPart& part);
    Content readContent(XmlPart& part);
    static CellType typeOf(std::string_view text);
    Head headOf(XmlPart& part) const;
    bool store(const Head& head, const Content& content);
    void inspect(const Head& head, const Content& content);
    void inspectNumber(const Head& head, const QString& stored);
    bool isUncalculated(const Head& head, const Content& content) const;
    void wantText(table::CellPosition at, const QString& index);
    QString numberCell(const Head& head, const QString& stored);
    void readMergedAreas(XmlPart& part);

    const CellStyles& mStyles;
    DateSystem mDates;
    SheetRows& mRows;
    SharedTexts& mTexts;
    bool mIsRecalculated = false;
    int mRow = -1;
    int mColumn = -1;
    bool mIsRising = true; ///< no row so far stood behind a later one
    int mLateRows = 0;     ///< beyond the ones wanted
    bool mPastEnd = false; ///< no row follows that is wanted
};

} // namespace table_reader
