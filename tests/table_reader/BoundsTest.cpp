#include "embedded_host/table_check/TableLint.h"
#include "embedded_host/table_reader/xls/BiffStream.h"
#include "tests/table_reader/Reading.h"
#include "tests/table_reader/Samples.h"

#include <sys/resource.h>
#include <unistd.h>

#include <QFile>

#include <cstdio>
#include <cstdlib>

using namespace samples;
namespace biff = table_reader::biff;

// Files made to exhaust a reader, each read in a process of its own that the system ends where it takes too
// much.

namespace {

constexpr rlim_t Seconds = 30; // of computing; each takes about one, and some times that under a sanitizer
constexpr rlim_t Bytes = 300 << 20; // beyond those of the test itself
constexpr rlim_t SanitizerBytes = Q_UINT64_C(1)
                                  << 40; // that much address space is reserved by a sanitizer alone

rlim_t addressSpaceInUse()
{
    QFile status(QStringLiteral("/proc/self/statm"));
    status.open(QIODevice::ReadOnly);
    return status.readLine().split(' ').first().toULongLong() * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

void bound(decltype(RLIMIT_AS) resource, rlim_t most)
{
    const rlimit limit = {most, most};
    setrlimit(resource, &limit);
}

/// Reads and inspects the file, prints "N rows, N findings" or the error, and ends the process.
[[noreturn]] void readWithinBounds(const QByteArray& bytes)
{
    bound(RLIMIT_CPU, Seconds);
    const rlim_t inUse = addressSpaceInUse();
    if (inUse < SanitizerBytes) { // else nothing can be said of the reader's own memory
        bound(RLIMIT_AS, inUse + Bytes);
    }
    const table::Table table = inspect(bytes);
    const int findings = table_lint::lint(table, {}).size();
    std::fprintf(stderr, "%s%d rows, %d findings\n", table.error.toUtf8().constData(), table.rows.size(),
                 findings);
    std::_Exit(0);
}

QByteArray xlsx(const QByteArray& sheetData)
{
    Xlsx sample;
    sample.sheetData = sheetData;
    return sample.file();
}

QByteArray numbered(const QByteArray& before, int count, const QByteArray& after)
{
    QByteArray text;
    for (int number = 0; number < count; ++number) {
        text += before + QByteArray::number(number) + after;
    }
    return text;
}

} // namespace

#define EXPECT_READ_WITHIN_BOUNDS(bytes, printed)                                                            \
    EXPECT_EXIT(readWithinBounds(bytes), testing::ExitedWithCode(0), printed)

TEST(Bounds, HoldForATagOfManyAttributes)
{
    EXPECT_READ_WITHIN_BOUNDS(xlsx("<row" + numbered(" a", 400000, "=\"\"") + "/>"), "属性过多");
}

TEST(Bounds, HoldForManyNamespaces)
{
    QByteArray open;
    for (int depth = 0; depth < 100; ++depth) {
        open += "<a" + numbered(" xmlns:p" + QByteArray::number(depth) + "_", 90, "=\"u\"") + ">";
    }
    EXPECT_READ_WITHIN_BOUNDS(xlsx(open + QByteArray("<b/>").repeated(1000000)), "命名空间过多");
}

TEST(Bounds, HoldForDatesOfManyBlanks)
{
    const QByteArray date = "<c t=\"d\"><v>" + QByteArray(3000, ' ') + "x</v></c>";
    EXPECT_READ_WITHIN_BOUNDS(xlsx("<row>" + date.repeated(5000) + "</row>"), "1 rows");
}

TEST(Bounds, HoldForANumberOfManyDigits)
{
    EXPECT_READ_WITHIN_BOUNDS(QByteArray(1000000, '1') + "x", "1 rows");
}

TEST(Bounds, HoldForAnArchiveOfManyParts)
{
    constexpr int Entries = 2000000;
    constexpr int EntryBytes = 46;
    const QByteArray directory = ("PK\x01\x02" + QByteArray(EntryBytes - 4, '\0')).repeated(Entries);
    const QByteArray end = "PK\x05\x06" + dword(0) + word(Entries & 0xFFFF) + word(Entries & 0xFFFF) +
                           dword(static_cast<quint32>(directory.size())) + dword(4) + word(0);
    EXPECT_READ_WITHIN_BOUNDS("PK\x03\x04" + directory + end, "压缩包内文件过多");
}

TEST(Bounds, HoldForMergedAreasOverAllCells)
{
    Biff records;
    for (int row = 0; row < 300; ++row) {
        for (int column = 0; column < 1000; ++column) {
            records.number(row, column, row * 1000 + column);
        }
    }
    const QByteArray area = word(0) + word(999) + word(1000) + word(2000);
    for (int record = 0; record < 1000; ++record) {
        records.record(biff::MergedCells, word(1000) + area.repeated(1000));
    }
    EXPECT_READ_WITHIN_BOUNDS(xls(records.bytes()), "300 rows, 0 findings");
}

TEST(Bounds, HoldForManyCellsOfOneSharedText)
{
    QByteArray records = Biff().cell(biff::LabelSst, 0, 0, 0, dword(0)).bytes().repeated(5000000);
    const QByteArray texts =
        Biff().record(biff::Sst, dword(1) + dword(1) + text8(QStringLiteral("a"), 2)).bytes();
    EXPECT_READ_WITHIN_BOUNDS(workbookStream(biff::Version8, texts, {{"a", records}}), "单元格过多");
}

TEST(Bounds, HoldForACsvFileThatIsReadInTwoEncodings)
{
    const QByteArray full = QByteArray("1234567,").repeated(1990) + '\n';
    EXPECT_READ_WITHIN_BOUNDS(
        full.repeated(1000) + QByteArray("\xE4\xB8\xAD,\xE5\x9B\xBD,").repeated(9) + "\n\xFF", "1002 rows");
}
