#pragma once

#include "embedded_host/table_reader/ods/OdsStyles.h"
#include "embedded_host/table_reader/shared/SheetRows.h"
#include "embedded_host/table_reader/shared/XmlPart.h"

namespace table_reader {

/// Reads the rows of one table:table element, which is current. Repeated rows and cells are written out as
/// far as the rows wanted and the limits reach.
class OdsSheet {
public:
    OdsSheet(XmlPart& part, const OdsStyles& styles, SheetRows& rows)
        : mPart(part), mStyles(styles), mRows(rows)
    {
    }

    /// Leaves the element, or stops within it behind the last row wanted: then isFull() holds.
    void read();
    /// Leaves what read() left open.
    void leave();
    bool isFull() const { return mRow >= mRows.maxRows(); }

private:
    struct Cell {
        int column = 0;
        int repeated = 1;
        QString text;
        QString number; ///< as stored, where it is one
        QString shown;  ///< where it is otherwise than the text
        bool isUncalculated = false;
        bool isStruck = false;
    };
    struct DefaultStyle {
        int end; ///< first column behind those that have it
        QString style;
    };

    void readColumn();
    void readRow();
    void readCell(QVector<Cell>& cells, int& column);
    void readCellText(const XmlAttributes& attributes, Cell& cell);
    void takeNumber(const XmlAttributes& attributes, const QString& paragraphs, Cell& cell);
    QString timeText(const QString& stored, const QString& style) const;
    QString styleOf(const XmlAttributes& attributes, int column) const;
    QString readParagraphs();
    void store(const QVector<Cell>& cells, int row);
    void inspect(const Cell& cell, int row, int column);
    void noteMergedArea(const XmlAttributes& attributes, int column);

    XmlPart& mPart;
    const OdsStyles& mStyles;
    SheetRows& mRows;
    int mRow = 0;
    int mOpen = 1; ///< groups of rows and columns, and the table itself
    QVector<DefaultStyle> mColumns;
    QString mRowStyle; ///< of cells without a style of their own
};

} // namespace table_reader
