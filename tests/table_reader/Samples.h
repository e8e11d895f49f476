#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>

/// Small files made in memory for tests, fuzzers and measurements.
namespace samples {

using Parts = QList<QPair<QString, QByteArray>>;

/// A zip archive of these parts, deflated.
QByteArray zip(const Parts& parts, bool compressed = true);

/// A workbook of one sheet; every text may be replaced before file() is called.
struct Xlsx {
    QByteArray sheetData;     ///< what stands within sheetData
    QByteArray beforeData;    ///< what stands before it, such as cols
    QByteArray behindData;    ///< what follows it, such as mergeCells
    QByteArray texts;         ///< `si` elements; null: no shared strings
    QByteArray numberFormats; ///< `numFmt` elements
    QByteArray fonts;         ///< `font` elements
    QByteArray cellStyles;    ///< `xf` elements of cellXfs; null: no styles
    QByteArray workbook;      ///< the whole part
    QByteArray references;    ///< Relationship elements of the workbook
    Parts more;               ///< further parts

    Xlsx();
    Parts parts() const;
    QByteArray file() const { return zip(parts()); }
};

extern const QByteArray SheetNamespace;    ///< xmlns="…" of workbook parts
extern const QByteArray RelationshipsOpen; ///< the opening tag of a list of references
QByteArray relationship(const char* id, const char* kind, const char* target);
QByteArray worksheet(const QByteArray& sheetData, const QByteArray& behind = QByteArray());

/// An OpenDocument spreadsheet; `tables` are table:table elements, `styles` stand in office:automatic-styles.
QByteArray ods(const QByteArray& tables, const QByteArray& styles = QByteArray(),
               const QByteArray& manifest = QByteArray(), bool compressed = true, const Parts& more = {});

/// Records of a workbook stream, numbers little endian.
class Biff {
public:
    Biff& record(quint16 type, const QByteArray& data = QByteArray());
    /// As record(), for a record that holds a cell: row, column and style come first.
    Biff& cell(quint16 type, int row, int column, int style, const QByteArray& data);
    Biff& number(int row, int column, double value, int style = 0);
    /// A sheet's or the workbook's beginning: BIFF version 0x0500 or 0x0600 and kind 0x05 globals, 0x10
    /// sheet.
    Biff& begin(quint16 version, quint16 kind);
    Biff& end();
    const QByteArray& bytes() const { return mBytes; }

private:
    QByteArray mBytes;
};

QByteArray word(int value);
QByteArray dword(quint32 value);
QByteArray real(double value);
/// A text of BIFF8 with its length in this many bytes, compressed to one byte a character where it can be.
QByteArray text8(const QString& text, int lengthBytes);

struct XlsSheet {
    QByteArray name;    ///< as the version stores it, without its length
    QByteArray records; ///< between the sheet's beginning and end
    int visibility = 0; ///< 1 hidden, 2 very hidden
    int kind = 0;       ///< 1 macros, 2 chart, 6 module
};

/// A workbook stream: the globals, then the sheets.
QByteArray workbookStream(quint16 version, const QByteArray& globals, const QList<XlsSheet>& sheets);

/// An OLE2 container with these streams.
QByteArray ole(const Parts& streams);

/// A BIFF8 workbook of one sheet in its container.
QByteArray xls(const QByteArray& records, const QByteArray& globals = QByteArray());

} // namespace samples
