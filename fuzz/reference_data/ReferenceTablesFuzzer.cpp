// Bytes of a reference data file, the first of them choosing the file. Whatever they are, they give rows that
// can be written and read again, or a fault with a file and a line.
//
//     ASAN_OPTIONS=detect_leaks=0 fuzz_reference_data -max_total_time=60 CORPUS
//
// Leaks are not looked for: Qt's JSON parser loses a container that stands under a key that comes twice.
#include "embedded_host/reference_data/CsvTable.h"
#include "embedded_host/reference_data/ReferenceFile.h"
#include "embedded_host/reference_data/StrategyCatalogue.h"

#include <QRegularExpression>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

const QString Path = QStringLiteral("folder/file");

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

void requireLine(const QString& error)
{
    static const QRegularExpression fault(QStringLiteral("^folder/file:[1-9][0-9]*: ."));
    require(fault.match(error).hasMatch());
}

template <typename Row> void requireReadable(const ReferenceTable<Row>& table, const Row& row)
{
    Row again;
    for (const auto& column : table.columns) {
        const QString cell = column.write(row);
        require(cell.isEmpty() || column.read(again, cell).isEmpty());
        require(column.write(again) == cell || cell.isEmpty());
    }
}

template <typename Row> void readCsv(const ReferenceTable<Row>& table, const QByteArray& bytes)
{
    QList<Row> rows;
    QString error;
    if (!CsvTable(table, Path).read(bytes, rows, error)) {
        requireLine(error);
        return;
    }
    require(rows.size() <= reference_limits::Rows);
    for (const Row& row : qAsConst(rows)) {
        requireReadable(table, row);
    }
}

void readJson(const QByteArray& bytes)
{
    QList<AesStrategy> strategies;
    QString error;
    if (!readStrategyCatalogue(bytes, Path, strategies, error)) {
        requireLine(error);
        return;
    }
    for (const AesStrategy& strategy : qAsConst(strategies)) {
        require(strategy.name().size() <= reference_limits::TextCharacters);
        require(strategy.paramFormats().size() <= reference_limits::DocumentCharacters);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));
    int position = 0;
    const int chosen = data[0] % 9;
    if (chosen == 8) {
        readJson(bytes);
    }
    forEachCsvTable([&](const auto& table) {
        if (position++ == chosen) {
            readCsv(table, bytes);
        }
        return true;
    });
    return 0;
}
