#pragma once

#include "embedded_host/table_reader/shared/SheetRows.h"

#include <QXmlStreamAttributes>

namespace table_reader {

class XmlPart;

/// Reads the rows of one table:table element, which is current. Repeated rows and cells are written out as
/// far as the rows wanted and the limits reach.
class OdsSheet {
public:
    OdsSheet(XmlPart& part, SheetRows& rows) : mPart(part), mRows(rows) {}

    /// Leaves the element, or stops within it behind the last row wanted: then isFull() holds.
    void read();
    bool isFull() const { return mRow >= mRows.maxRows(); }

private:
    struct Cell {
        int column;
        int repeated;
        QString text;
        QString number; ///< as stored, where it is one
    };

    void readRow();
    void readCell(QVector<Cell>& cells, int& column);
    QString readCellText(const QXmlStreamAttributes& attributes, QString& number);
    QString readParagraphs();
    void store(const QVector<Cell>& cells, int row);
    void noteMergedArea(const QXmlStreamAttributes& attributes, int column);

    XmlPart& mPart;
    SheetRows& mRows;
    int mRow = 0;
};

} // namespace table_reader
