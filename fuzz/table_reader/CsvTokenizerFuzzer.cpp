#include "files/CsvTokenizer.h"
#include "fuzz/table_reader/FuzzSupport.h"

namespace {

struct Records {
    QList<QStringList> cells;
    QList<int> lines;
    bool open = false;
    bool operator==(const Records& other) const
    {
        return cells == other.cells && lines == other.lines && open == other.open;
    }
};

/// Splits the text, fed in pieces of this many characters.
Records split(const QString& text, int piece)
{
    files::CsvTokenizer csv(QLatin1Char(','));
    Records records;
    QStringList cells;
    const auto take = [&] {
        while (csv.next(cells)) {
            records.cells.append(cells);
            records.lines.append(csv.recordLine());
        }
    };
    for (int at = 0; at < text.size(); at += piece) {
        csv.feed(text.mid(at, piece));
        take();
    }
    csv.finish();
    take();
    records.open = csv.hasOpenQuote();
    return records;
}

} // namespace

/// However the text is cut, the records are the same. The first byte says how.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size > 0) {
        const QString text = QString::fromUtf8(fuzz::bytesOf(data + 1, size - 1));
        fuzz::require(split(text, 1 + data[0] % 16) == split(text, text.size() + 1));
    }
    return 0;
}
