#include "embedded_host/table_reader/xlsx/XlsxWorkbook.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/xlsx/SpreadsheetNames.h"

#include <QHash>

namespace table_reader {
namespace {

struct SheetEntry {
    QString name;
    QString id;
    bool hidden = false;
};

/// The attribute of a relationship, in either spelling of its namespace.
QString relationshipId(const QXmlStreamAttributes& attributes)
{
    const QString usual = attributes.value(Relationship.usual, QLatin1String("id")).toString();
    return usual.isEmpty() ? attributes.value(Relationship.strict, QLatin1String("id")).toString() : usual;
}

SheetEntry entryOf(const QXmlStreamAttributes& attributes)
{
    const QStringRef state = attributes.value(QLatin1String("state"));
    return {attributes.value(QLatin1String("name")).toString(), relationshipId(attributes),
            state == QLatin1String("hidden") || state == QLatin1String("veryHidden")};
}

void readSheetList(XmlPart& part, QVector<SheetEntry>& sheets)
{
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("sheet"))) {
            sheets.append(entryOf(part.attributes()));
            if (sheets.size() > limits::SheetNames) {
                part.fail(message::tooManySheets());
            }
        }
        part.skip();
    }
}

QString readWorkbookPart(ZipArchive& archive, const QString& name, QVector<SheetEntry>& sheets,
                         DateSystem& dates)
{
    XmlPart part(archive, name);
    if (!part.begin(Sheet, QLatin1String("workbook"))) {
        return part.error();
    }
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("sheets"))) {
            readSheetList(part, sheets);
            continue;
        }
        if (part.is(Sheet, QLatin1String("workbookPr")) &&
            boolValue(part.attributes().value(QLatin1String("date1904")))) {
            dates = DateSystem::From1904;
        }
        part.skip();
    }
    return part.finish();
}

const PartReference* find(const QVector<PartReference>& references, const QString& id)
{
    for (const PartReference& reference : references) {
        if (reference.id == id) {
            return &reference;
        }
    }
    return nullptr;
}

QString targetOfKind(const QVector<PartReference>& references, QLatin1String kind)
{
    for (const PartReference& reference : references) {
        if (reference.kind == kind) {
            return reference.target;
        }
    }
    return QString();
}

/// The first worksheet that can be seen, or the first one; charts, dialogs and macro sheets are none.
QString chooseSheet(const QVector<SheetEntry>& sheets, const QVector<PartReference>& references,
                    XlsxWorkbook& workbook)
{
    bool found = false;
    for (const SheetEntry& sheet : sheets) {
        if (sheet.id.isEmpty() || (found && sheet.hidden)) {
            continue;
        }
        const PartReference* const reference = find(references, sheet.id);
        if (!reference) {
            return message::missingSheet(sheet.name);
        }
        if (reference->kind != QLatin1String("worksheet")) {
            continue;
        }
        workbook.sheetName = sheet.name;
        workbook.sheetPart = reference->target;
        found = true;
        if (!sheet.hidden) {
            break;
        }
    }
    return found ? QString() : message::noSheet();
}

QHash<int, NumberFormat> readFormats(XmlPart& part)
{
    QHash<int, NumberFormat> formats;
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("numFmt"))) {
            const QXmlStreamAttributes attributes = part.attributes();
            formats.insert(intValue(attributes.value(QLatin1String("numFmtId")), -1),
                           customFormat(attributes.value(QLatin1String("formatCode")).toString()));
        }
        part.skip();
    }
    return formats;
}

void readCellStyles(XmlPart& part, QVector<int>& styles)
{
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("xf")) && styles.size() < limits::CellStyles) {
            styles.append(intValue(part.attributes().value(QLatin1String("numFmtId")), 0));
        }
        part.skip();
    }
}

} // namespace

QString readXlsxWorkbook(ZipArchive& archive, const QString& part, XlsxWorkbook& workbook)
{
    QString error;
    const QVector<PartReference> references = readReferences(archive, part, error);
    QVector<SheetEntry> sheets;
    if (error.isEmpty()) {
        error = readWorkbookPart(archive, part, sheets, workbook.dates);
    }
    if (error.isEmpty()) {
        error = chooseSheet(sheets, references, workbook);
    }
    workbook.stylesPart = targetOfKind(references, QLatin1String("styles"));
    workbook.textsPart = targetOfKind(references, QLatin1String("sharedStrings"));
    return error;
}

QVector<NumberFormat> readXlsxStyles(ZipArchive& archive, const QString& name, QString& error)
{
    XmlPart part(archive, name);
    if (!part.begin(Sheet, QLatin1String("styleSheet"))) {
        error = part.error();
        return {};
    }
    QHash<int, NumberFormat> formats;
    QVector<int> numbers;
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("numFmts"))) {
            formats = readFormats(part);
        } else if (part.is(Sheet, QLatin1String("cellXfs"))) {
            readCellStyles(part, numbers);
        } else {
            part.skip();
        }
    }
    error = part.finish();
    return formatsOf(numbers, formats);
}

} // namespace table_reader
