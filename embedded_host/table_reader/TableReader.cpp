#include "embedded_host/table_reader/TableReader.h"

#include "embedded_host/table_reader/CsvReader.h"
#include "embedded_host/table_reader/Messages.h"
#include "embedded_host/table_reader/OdsReader.h"
#include "embedded_host/table_reader/Package.h"
#include "embedded_host/table_reader/TextKind.h"
#include "embedded_host/table_reader/XlsReader.h"
#include "embedded_host/table_reader/XlsxReader.h"
#include "embedded_host/table_reader/ZipArchive.h"

#include <QFile>
#include <QFileInfo>

namespace table_reader {
namespace {

constexpr int HeadBytes = 16;

bool isZip(const QByteArray& head)
{
    return head.startsWith("PK\x03\x04") || head.startsWith("PK\x05\x06") || head.startsWith("PK\x07\x08");
}

QString readZip(QIODevice& file, const ReadOptions& options, Table& table)
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

QString readAny(QIODevice& file, const ReadOptions& options, Table& table)
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

Table refused(const QString& error)
{
    Table table;
    table.error = error;
    return table;
}

} // namespace

Table readTable(QIODevice& file, const ReadOptions& options)
{
    Table table;
    table.error = readAny(file, options, table);
    if (!table.error.isEmpty()) {
        table.rows.clear();
        table.inspection = {};
    }
    return table;
}

Table readTable(const QString& path, const ReadOptions& options)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        return refused(message::missing());
    }
    if (info.isDir()) {
        return refused(message::isDirectory());
    }
    if (!info.isFile()) {
        return refused(message::notRegular()); // a pipe could keep us waiting for ever
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return refused(message::unreadable(file.errorString()));
    }
    return readTable(file, options);
}

} // namespace table_reader
