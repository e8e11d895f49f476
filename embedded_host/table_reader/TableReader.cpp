#include "embedded_host/table_reader/TableReader.h"

#include "embedded_host/table_reader/ods/OdsReader.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/shared/ZipArchive.h"
#include "embedded_host/table_reader/TableFile.h"
#include "embedded_host/table_reader/text/CsvReader.h"
#include "embedded_host/table_reader/text/TextKind.h"
#include "embedded_host/table_reader/xls/XlsReader.h"
#include "embedded_host/table_reader/xlsx/Package.h"
#include "embedded_host/table_reader/xlsx/XlsxReader.h"

#include <QIODevice>

namespace table_reader {
namespace {

constexpr int HeadBytes = 16;

bool isZip(const QByteArray& head)
{
    return head.startsWith("PK\x03\x04") || head.startsWith("PK\x05\x06") || head.startsWith("PK\x07\x08");
}

QString readZip(QIODevice& file, const ReadOptions& options, table::Table& table)
{
    ZipArchive archive(file);
    QString error = archive.open();
    if (!error.isEmpty()) {
        return error;
    }
    if (isOdsArchive(archive)) {
        table.format = QStringLiteral("ods");
        return readOds(archive, options, table);
    }
    const QString workbook = findWorkbook(archive, error);
    if (!error.isEmpty() || workbook.isEmpty()) {
        return error.isEmpty() ? message::otherZip() : error;
    }
    if (workbook.endsWith(QLatin1String(".bin"), Qt::CaseInsensitive)) {
        return message::binaryWorkbook();
    }
    if (workbook.startsWith(QLatin1String("word/")) || workbook.startsWith(QLatin1String("ppt/"))) {
        return message::otherDocument();
    }
    table.format = QStringLiteral("xlsx");
    return readXlsx(archive, workbook, options, table);
}

QString readAny(QIODevice& file, const ReadOptions& options, table::Table& table)
{
    const QByteArray head = file.peek(HeadBytes);
    if (isZip(head)) {
        return readZip(file, options, table);
    }
    if (isXls(head)) {
        return readXls(file, options, table);
    }
    const QString refusal = refuseBinaryOfAnotherKind(head);
    return refusal.isEmpty() ? readCsv(file, options, table) : refusal;
}

} // namespace

table::Table readTable(QIODevice& file, const ReadOptions& options)
{
    table::Table table;
    table.error = readAny(file, options, table);
    if (!table.error.isEmpty()) {
        table.rows.clear();
        table.lines.clear();
        table.sheets.clear();
        table.inspection = {};
    }
    return table;
}

table::Table readTable(const QString& path, const ReadOptions& options)
{
    return TableFile(path).read(options);
}

} // namespace table_reader
