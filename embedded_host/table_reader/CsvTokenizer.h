#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

/// Splits csv text into records by RFC 4180 with LF, CRLF or CR. Text is fed in pieces of any size; a record, a quoted
/// cell or a CRLF may span them.
///
///     CsvTokenizer csv(QLatin1Char(','));
///     csv.feed(text);
///     csv.finish();
///     QStringList cells;
///     while (csv.next(cells)) { … csv.recordLine() … }
class CsvTokenizer {
public:
    explicit CsvTokenizer(QChar separator);

    void feed(const QString& text);
    /// No more text follows. A line end at the very end begins no record.
    void finish();
    /// Moves the next complete record into `cells`; a blank line is one empty cell. False when more text is needed, or
    /// after finish() when nothing is left.
    bool next(QStringList& cells);

    /// 1-based line on which the record last returned begins.
    int recordLine() const { return mRecordLine; }
    /// After finish(): a quoted cell was never closed.
    bool hasOpenQuote() const { return mOpenQuote; }
    /// 1-based line on which that quoted cell begins.
    int openQuoteLine() const { return mOpenQuoteLine; }

private:
    // The implementer of this file completes the state.
    QChar mSeparator;
    int mRecordLine = 0;
    bool mOpenQuote = false;
    int mOpenQuoteLine = 0;
};
