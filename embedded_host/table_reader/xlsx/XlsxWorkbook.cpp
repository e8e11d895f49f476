#include "embedded_host/table_reader/xlsx/XlsxWorkbook.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/xlsx/SpreadsheetNames.h"

#include <QHash>

namespace table_reader {
namespace {

/// The attribute of a relationship, in either spelling of its namespace.
QString relationshipId(const XmlAttributes& attributes)
{
    const QString usual = attributes.value(Relationship.usual, QLatin1String("id")).toString();
    return usual.isEmpty() ? attributes.value(Relationship.strict, QLatin1String("id")).toString() : usual;
}

XlsxSheetEntry entryOf(const XmlAttributes& attributes)
{
    const QStringRef state = attributes.value(QLatin1String("state"));
    return {attributes.value(QLatin1String("name")).toString(), relationshipId(attributes), QString(),
            state == QLatin1String("hidden") || state == QLatin1String("veryHidden")};
}

void readSheetList(XmlPart& part, QVector<XlsxSheetEntry>& sheets)
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

/// The tab that is shown first, of the first window.
void readViews(XmlPart& part, XlsxWorkbook& workbook)
{
    bool isFirst = true;
    while (part.nextChild()) {
        if (isFirst && part.is(Sheet, QLatin1String("workbookView"))) {
            workbook.activeSheet = intValue(part.attributes().value(QLatin1String("activeTab")), 0);
            isFirst = false;
        }
        part.skip();
    }
}

QString readWorkbookPart(ZipArchive& archive, const QString& name, XlsxWorkbook& workbook)
{
    XmlPart part(archive, name);
    if (!part.begin(Sheet, QLatin1String("workbook"))) {
        return part.error();
    }
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("sheets"))) {
            readSheetList(part, workbook.sheets);
            continue;
        }
        if (part.is(Sheet, QLatin1String("bookViews"))) {
            readViews(part, workbook);
            continue;
        }
        if (part.is(Sheet, QLatin1String("workbookPr")) &&
            boolValue(part.attributes().value(QLatin1String("date1904")))) {
            workbook.dates = DateSystem::From1904;
        }
        if (part.is(Sheet, QLatin1String("calcPr"))) {
            workbook.isRecalculated = boolValue(part.attributes().value(QLatin1String("fullCalcOnLoad")));
        }
        part.skip();
    }
    return part.finish();
}

/// By their names; of two with the same one the first counts.
QHash<QString, PartReference> byId(const QVector<PartReference>& references)
{
    QHash<QString, PartReference> index;
    for (const PartReference& reference : references) {
        if (!index.contains(reference.id)) {
            index.insert(reference.id, reference);
        }
    }
    return index;
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
QString chooseSheet(const QHash<QString, PartReference>& references, XlsxWorkbook& workbook)
{
    for (int number = 0; number < workbook.sheets.size(); ++number) {
        XlsxSheetEntry& sheet = workbook.sheets[number];
        const bool isFound = workbook.readSheet >= 0;
        const bool isSeen = isFound && !workbook.sheets.at(workbook.readSheet).hidden;
        const auto reference = references.constFind(sheet.id);
        const bool isMissing = reference == references.cend() || sheet.id.isEmpty();
        if (isMissing && !sheet.id.isEmpty() && !isSeen && !(isFound && sheet.hidden)) {
            return message::missingSheet(sheet.name);
        }
        if (isMissing || reference->kind != QLatin1String("worksheet")) {
            continue;
        }
        sheet.part = reference->target;
        if (!isFound || (!isSeen && !sheet.hidden)) {
            workbook.readSheet = number;
        }
    }
    if (workbook.readSheet < 0) {
        return message::noSheet();
    }
    workbook.sheetName = workbook.sheets.at(workbook.readSheet).name;
    workbook.sheetPart = workbook.sheets.at(workbook.readSheet).part;
    return QString();
}

void readFormats(XmlPart& part, StyleParts& parts)
{
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("numFmt"))) {
            const XmlAttributes attributes = part.attributes();
            parts.codes.insert(intValue(attributes.value(QLatin1String("numFmtId")), -1),
                               attributes.value(QLatin1String("formatCode")).toString());
        }
        part.skip();
    }
}

/// Whether a font, whose element is current and is then left, is struck out.
bool readStruckFont(XmlPart& part)
{
    bool isStruck = false;
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("strike"))) {
            const XmlAttributes attributes = part.attributes();
            const QStringRef value = attributes.value(QLatin1String("val"));
            isStruck = value.isNull() || boolValue(value);
        }
        part.skip();
    }
    return isStruck;
}

void readFonts(XmlPart& part, StyleParts& parts)
{
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("font")) && parts.struckFonts.size() < limits::CellStyles) {
            parts.struckFonts.append(readStruckFont(part));
        } else {
            part.skip();
        }
    }
}

void readCellStyles(XmlPart& part, StyleParts& parts)
{
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("xf")) && parts.formatNumbers.size() < limits::CellStyles) {
            const XmlAttributes attributes = part.attributes();
            parts.formatNumbers.append(intValue(attributes.value(QLatin1String("numFmtId")), 0));
            parts.fontNumbers.append(intValue(attributes.value(QLatin1String("fontId")), 0));
        }
        part.skip();
    }
}

} // namespace

QString XlsxWorkbook::choose(const QString& name)
{
    for (int number = 0; number < sheets.size(); ++number) {
        if (sheets.at(number).name == name && !sheets.at(number).part.isEmpty()) {
            readSheet = number;
            sheetName = name;
            sheetPart = sheets.at(number).part;
            return QString();
        }
    }
    return message::noSuchSheet(name);
}

QString readXlsxWorkbook(ZipArchive& archive, const QString& part, XlsxWorkbook& workbook)
{
    QString error;
    const QVector<PartReference> references = readReferences(archive, part, error);
    if (error.isEmpty()) {
        error = readWorkbookPart(archive, part, workbook);
    }
    if (error.isEmpty()) {
        error = chooseSheet(byId(references), workbook);
    }
    workbook.stylesPart = targetOfKind(references, QLatin1String("styles"));
    workbook.textsPart = targetOfKind(references, QLatin1String("sharedStrings"));
    return error;
}

CellStyles readXlsxStyles(ZipArchive& archive, const QString& name, bool forReport, QString& error)
{
    XmlPart part(archive, name);
    if (!part.begin(Sheet, QLatin1String("styleSheet"))) {
        error = part.error();
        return {};
    }
    StyleParts parts;
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("numFmts"))) {
            readFormats(part, parts);
        } else if (part.is(Sheet, QLatin1String("cellXfs"))) {
            readCellStyles(part, parts);
        } else if (forReport && part.is(Sheet, QLatin1String("fonts"))) {
            readFonts(part, parts);
        } else {
            part.skip();
        }
    }
    error = part.finish();
    return parts.styles(forReport);
}

} // namespace table_reader
