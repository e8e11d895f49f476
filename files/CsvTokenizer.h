#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

namespace files {

/// Splits csv text into records by RFC 4180 with LF, CRLF or CR. Text is fed in pieces of any size; a record,
/// a quoted cell or a CRLF may span them.
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
    /// Moves the next complete record into `cells`; a blank line is one empty cell. False when more text is
    /// needed, or after finish() when nothing is left.
    bool next(QStringList& cells);

    /// 1-based line on which the record last returned begins.
    int recordLine() const { return mRecordLine; }
    /// After finish(): a quoted cell was never closed.
    bool hasOpenQuote() const { return mOpenQuote; }
    /// 1-based line on which that quoted cell begins.
    int openQuoteLine() const { return mOpenQuoteLine; }

    /// Characters held of a record that is not complete yet. A caller that reads untrusted text bounds it.
    qint64 pendingCharacters() const { return mText.size() - mPosition + mRecordCharacters; }

private:
    enum class State {
        CellStart, ///< nothing of the cell was seen
        Plain,     ///< an unquoted cell, or what follows a closing quote
        Quoted,    ///< between the quotes
        QuoteSeen, ///< a quote within a quoted cell: the closing one, or the first of a doubled one
    };

    bool step(QChar character);
    void takeRun();
    void openQuote();
    void endCell();
    void startRecord(int characters);
    bool takeRecord(QStringList& cells);
    bool finishRecord(QStringList& cells);
    void countLine(QChar character);

    QChar mSeparator;
    QString mText; ///< fed and not yet looked at from mPosition on
    int mPosition = 0;
    QString mCell;
    QStringList mCells;
    State mState = State::CellStart;
    qint64 mRecordCharacters = 0;
    bool mInRecord = false;
    bool mFinished = false;
    bool mAfterCarriageReturn = false; ///< a line feed that comes now is the second half of a line end
    bool mEndedByCarriageReturn = false;
    int mLine = 1;
    int mQuoteLine = 0;
    int mStartLine = 1;
    int mRecordLine = 0;
    bool mOpenQuote = false;
    int mOpenQuoteLine = 0;
};

} // namespace files
