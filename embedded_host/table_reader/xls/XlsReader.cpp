#include "embedded_host/table_reader/xls/XlsReader.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/xls/XlsSheet.h"
#include "embedded_host/table_reader/xls/XlsSheetList.h"

#include <QIODevice>

namespace table_reader {
namespace {

constexpr char ContainerSignature[] = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

/// A workbook stream that was saved without a container begins with the record BOF.
bool isBareWorkbook(const QByteArray& head)
{
    constexpr int MaxLength = 16;
    const bool isBof = head.size() > 4 && head.at(0) == '\x09' && head.at(3) == '\0' && head.at(2) >= 4 &&
                       head.at(2) <= MaxLength;
    return isBof &&
           (head.at(1) == '\x08' || head.at(1) == '\x04' || head.at(1) == '\x02' || head.at(1) == '\x00');
}

/// Why a container without a workbook is none of ours.
QString refuseContainer(const OleContainer& container)
{
    if (container.contains(QStringLiteral("EncryptedPackage")) ||
        container.contains(QStringLiteral("EncryptionInfo")) ||
        container.contains(QStringLiteral("\tDRMContent"))) {
        return message::encrypted();
    }
    return message::otherDocument();
}

QString readWorkbook(BiffStream& stream, const ReadOptions& options, table::Table& table)
{
    XlsWorkbook workbook;
    QString error = readXlsWorkbook(stream, options.inspect, workbook);
    if (error.isEmpty() && !options.sheet.isEmpty()) {
        error = workbook.choose(options.sheet);
    }
    if (!error.isEmpty()) {
        return error;
    }
    const XlsSheetEntry& sheet = workbook.sheets.at(workbook.readSheet);
    table.sheet = sheet.name;
    SheetRows rows(options, table);
    SharedTexts texts;
    error = XlsSheet(stream, workbook, rows, texts).read(sheet.position);
    if (error.isEmpty()) {
        error = readXlsTexts(stream, workbook, texts);
    }
    rows.finish();
    if (error.isEmpty() && options.inspect) {
        table.sheets = listXlsSheets(stream, workbook, table);
    }
    return error;
}

/// Where a file holds an old and a new workbook, the new one, called Workbook, is the whole one. Empty: it
/// holds none.
QString workbookName(const OleContainer& container)
{
    for (const QString& name : {QStringLiteral("Workbook"), QStringLiteral("Book")}) {
        if (container.contains(name)) {
            return name;
        }
    }
    return QString();
}

} // namespace

bool isXls(const QByteArray& head)
{
    return head.startsWith(ContainerSignature) || isBareWorkbook(head);
}

QString readXls(QIODevice& file, const ReadOptions& options, table::Table& table)
{
    if (file.size() > limits::XlsFileBytes) {
        return message::fileTooLarge();
    }
    const QByteArray bytes = file.readAll();
    table.format = QStringLiteral("xls");
    if (!bytes.startsWith(ContainerSignature)) {
        BiffStream stream(memoryInput(bytes));
        return readWorkbook(stream, options, table);
    }
    const OleContainer container(bytes);
    if (!container.isValid()) {
        return message::damagedContainer();
    }
    const QString name = workbookName(container);
    if (name.isEmpty()) {
        table.format.clear();
        return refuseContainer(container);
    }
    GsfInputPtr input = container.stream(name);
    if (!input) {
        return message::damagedContainer();
    }
    BiffStream stream(std::move(input));
    return readWorkbook(stream, options, table);
}

} // namespace table_reader
