#include "embedded_host/table_reader/text/CsvReader.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/text/TextEncoding.h"
#include "embedded_host/table_reader/text/TextKind.h"
#include "files/CsvTokenizer.h"
#include "table/CellAddress.h"
#include "table/HarmlessCell.h"

#include <QIODevice>

#include <algorithm>
#include <optional>

namespace table_reader {
namespace {

constexpr qint64 PieceBytes = qint64(64) * 1024;

/// Comma; where the first line has none outside quotes, tab or semicolon.
QChar separatorOf(const QString& text)
{
    const auto isSeparator = [](QChar c) { return c == u',' || c == u'\t' || c == u';'; };
    QChar found = QLatin1Char(',');
    bool quoted = false;
    bool atStart = true; // of a cell: only there a quote opens
    for (const QChar c : text) {
        if (c == QLatin1Char('"') && (quoted || atStart)) {
            quoted = !quoted;
            atStart = !quoted; // a quote right behind the closing one opens again: a doubled quote
        } else if (!quoted) {
            if (c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QLatin1Char(',')) {
                return c == QLatin1Char(',') ? c : found;
            }
            atStart = isSeparator(c);
            if (atStart && found != QLatin1Char('\t')) {
                found = c;
            }
        }
    }
    return found;
}

/// One attempt to read the rows in one encoding.
class CsvAttempt {
public:
    CsvAttempt(QIODevice& file, const ReadOptions& options, const QString& encoding)
        : mFile(file), mMaxRows(options.maxRows), mDecoder(encoding)
    {
        mTable.encoding = encoding;
    }

    /// `stopAtFault`: give up, with whatever was read, at the first piece that the encoding cannot read
    /// whole.
    QString read(bool stopAtFault);
    bool isStopped() const { return mStopped; }
    int faults() const { return mDecoder.faults() + (mCutOff ? 1 : 0); }
    table::Table& table() { return mTable; }

private:
    bool readPiece(QString& text, QString& error);
    QString takePiece(const QString& text);
    QString takeRows();
    QString take(const QStringList& cells);
    bool isFull() const { return mTable.rows.size() >= mMaxRows; }

    QIODevice& mFile;
    int mMaxRows;
    TextDecoder mDecoder;
    table::Table mTable;
    std::optional<files::CsvTokenizer> mTokenizer; ///< from the first piece on, which tells the separator
    qint64 mCells = 0;
    qint64 mCharacters = 0;
    bool mStopped = false;
    bool mCutOff = false; ///< the file ends within a character
};

/// False at the file's end and where the device fails.
bool CsvAttempt::readPiece(QString& text, QString& error)
{
    QByteArray bytes(static_cast<int>(PieceBytes), Qt::Uninitialized);
    const qint64 length = mFile.read(bytes.data(), bytes.size());
    if (length < 0) {
        error = message::unreadable(mFile.errorString());
    }
    if (length <= 0) {
        return false;
    }
    bytes.truncate(static_cast<int>(length));
    text = mDecoder.decode(bytes);
    return true;
}

QString CsvAttempt::read(bool stopAtFault)
{
    QString text;
    QString error;
    while (!isFull() && error.isEmpty() && readPiece(text, error)) {
        mStopped = stopAtFault && mDecoder.faults() > 0;
        if (mStopped) {
            return QString();
        }
        error = takePiece(text);
    }
    if (!error.isEmpty() || isFull() || !mTokenizer) {
        return error;
    }
    if (mDecoder.endsWithinCharacter()) {
        mCutOff = true;
        mTokenizer->feed(QString(QChar(QChar::ReplacementCharacter)));
    }
    mTokenizer->finish();
    error = takeRows();
    return error.isEmpty() && mTokenizer->hasOpenQuote() ? message::openQuote(mTokenizer->openQuoteLine())
                                                         : error;
}

QString CsvAttempt::takePiece(const QString& text)
{
    if (text.contains(QChar(QChar::Null))) {
        return message::binary();
    }
    if (!mTokenizer && !text.isEmpty()) {
        const QString refusal = refuseTextOfAnotherKind(text);
        if (!refusal.isEmpty()) {
            return refusal;
        }
        const QChar separator = separatorOf(text);
        mTable.separator = separator;
        mTokenizer.emplace(separator);
    }
    if (!mTokenizer) {
        return QString();
    }
    mTokenizer->feed(text);
    const QString error = takeRows();
    if (!error.isEmpty() || isFull() || mTokenizer->pendingCharacters() <= limits::TableCharacters / 4) {
        return error;
    }
    mTokenizer->finish(); // one endless row: look whether a quote that was never closed made it so
    QStringList cells;
    mTokenizer->next(cells);
    return mTokenizer->hasOpenQuote() ? message::openQuote(mTokenizer->openQuoteLine())
                                      : message::tooMuchText();
}

QString CsvAttempt::takeRows()
{
    QStringList cells;
    while (!isFull() && mTokenizer->next(cells)) {
        const QString error = take(cells);
        if (!error.isEmpty()) {
            return error;
        }
        mTable.rows.append(cells);
        mTable.lines.append(mTokenizer->recordLine());
    }
    return QString();
}

QString CsvAttempt::take(const QStringList& cells)
{
    mCells += cells.size();
    if (cells.size() > limits::Columns) {
        return message::tooManyColumns(mTable.rows.size());
    }
    if (mCells > limits::Cells) {
        return message::tooManyCells();
    }
    for (int column = 0; column < cells.size(); ++column) {
        mCharacters += cells.at(column).size();
        if (cells.at(column).size() > limits::CellCharacters) {
            return message::cellTooLong(table::cellAddress(mTable.rows.size(), column));
        }
    }
    return mCharacters > limits::TableCharacters ? message::tooMuchText() : QString();
}

/// What an attempt gave; `faults` are those met before it stopped, if it did.
struct Attempted {
    table::Table table;
    QString error;
    int faults = 0;
    bool stopped = false;
};

Attempted attempt(QIODevice& file, const ReadOptions& options, const QString& encoding,
                  bool stopAtFault = false)
{
    Attempted outcome;
    if (!file.seek(0)) {
        outcome.error = message::unreadable(file.errorString());
        return outcome;
    }
    CsvAttempt reading(file, options, encoding);
    outcome.error = reading.read(stopAtFault);
    outcome.faults = reading.faults();
    outcome.stopped = reading.isStopped();
    if (!outcome.stopped) { // at most two tables at a time are in memory, not three
        outcome.table = std::move(reading.table());
        outcome.table.inspection.replacedCharacters = options.inspect ? outcome.faults : 0;
    }
    return outcome;
}

/// UTF-8 where all of it is valid; else GB18030, unless UTF-8 has fewer faults. UTF-8 is read to the end only
/// where the faults met so far leave the question open.
Attempted readByTrial(QIODevice& file, const ReadOptions& options)
{
    Attempted utf8 = attempt(file, options, QStringLiteral("UTF-8"), true);
    if (utf8.faults == 0) {
        return utf8;
    }
    Attempted chinese = attempt(file, options, QStringLiteral("GB18030"));
    if (utf8.stopped && chinese.faults > utf8.faults) {
        utf8 = attempt(file, options, QStringLiteral("UTF-8"));
    }
    return chinese.faults > utf8.faults ? utf8 : chinese;
}

} // namespace

QString readCsv(QIODevice& file, const ReadOptions& options, table::Table& table)
{
    if (!options.encoding.isEmpty() && !TextDecoder(options.encoding).isValid()) {
        return message::unknownEncoding(options.encoding);
    }
    const QString known =
        options.encoding.isEmpty() ? encodingByFirstBytes(file.peek(PieceBytes)) : options.encoding;
    Attempted outcome = known.isEmpty() ? readByTrial(file, options) : attempt(file, options, known);
    table = std::move(outcome.table);
    table.format = QStringLiteral("csv");
    table::restoreCells(table.rows);
    return outcome.error;
}

} // namespace table_reader
