#include "embedded_host/reference_data/CsvRecords.h"

#include "embedded_host/reference_data/ReferenceFaults.h"
#include "embedded_host/reference_data/ReferenceFile.h"
#include "files/CsvTokenizer.h"

#include <QTextCodec>

#include <algorithm>
#include <optional>

namespace {

/// Nothing when the bytes are no UTF-8. A byte order mark is dropped.
std::optional<QString> decodeUtf8(const QByteArray& bytes)
{
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0) {
        return std::nullopt;
    }
    return text;
}

/// The line that breaks UTF-8, in bytes that do. A line end is never part of another character.
int invalidUtf8Line(const QByteArray& bytes)
{
    QByteArray unixLines = bytes;
    const QList<QByteArray> lines = unixLines.replace("\r\n", "\n").replace('\r', '\n').split('\n');
    int line = 1;
    for (const QByteArray& lineBytes : lines) {
        if (!decodeUtf8(lineBytes)) {
            return line;
        }
        ++line;
    }
    return lines.size();
}

bool isBlankLine(const QStringList& cells)
{
    return cells.size() == 1 && cells.first().isEmpty();
}

/// What of the record, the `count`th, is more than a file may hold; empty when nothing is.
QString excessOf(const CsvRecord& record, int count)
{
    using namespace reference_limits;
    if (count > Rows) {
        return reference_faults::tooManyRows(Rows);
    }
    if (record.cells.size() > Columns) {
        return reference_faults::tooManyColumns(Columns);
    }
    const bool isLong = std::any_of(record.cells.cbegin(), record.cells.cend(),
                                    [](const QString& cell) { return cell.size() > TextCharacters; });
    return isLong ? reference_faults::tooLong(QString(), TextCharacters) : QString();
}

} // namespace

bool splitCsv(const QByteArray& bytes, const QString& path, QVector<CsvRecord>& records, QString& error)
{
    const std::optional<QString> text = decodeUtf8(bytes);
    if (!text) {
        error = reference_faults::at(path, invalidUtf8Line(bytes), reference_faults::invalidUtf8());
        return false;
    }
    files::CsvTokenizer csv(QLatin1Char(','));
    csv.feed(*text);
    csv.finish();
    CsvRecord record;
    while (csv.next(record.cells)) {
        if (isBlankLine(record.cells)) {
            continue;
        }
        record.line = csv.recordLine();
        records.append(record);
        const QString excess = excessOf(record, records.size());
        if (!excess.isEmpty()) {
            error = reference_faults::at(path, record.line, excess);
            return false;
        }
    }
    if (csv.hasOpenQuote()) {
        error = reference_faults::at(path, csv.openQuoteLine(), reference_faults::unclosedQuote());
        return false;
    }
    return true;
}
