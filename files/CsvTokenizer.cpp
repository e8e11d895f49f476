#include "files/CsvTokenizer.h"

#include <algorithm>

namespace files {
namespace {

constexpr QLatin1Char Quote('"');
constexpr QLatin1Char LineFeed('\n');
constexpr QLatin1Char CarriageReturn('\r');

} // namespace

CsvTokenizer::CsvTokenizer(QChar separator) : mSeparator(separator) {}

void CsvTokenizer::feed(const QString& text)
{
    mText = mPosition < mText.size() ? mText.mid(mPosition) + text : text;
    mPosition = 0;
}

void CsvTokenizer::finish()
{
    mFinished = true;
}

bool CsvTokenizer::next(QStringList& cells)
{
    while (mPosition < mText.size()) {
        takeRun();
        if (mPosition < mText.size() && step(mText.at(mPosition++))) {
            return takeRecord(cells);
        }
    }
    return mFinished && finishRecord(cells);
}

/// Takes the characters up to the next one that means something. Most of a file goes this way.
void CsvTokenizer::takeRun()
{
    const bool quoted = mState == State::Quoted;
    if (mState == State::QuoteSeen) {
        return;
    }
    const bool opens = mState == State::CellStart; // a quote means something only here and within quotes
    const QChar* const begin = mText.constData() + mPosition;
    const QChar* const end = mText.constData() + mText.size();
    const auto means = [&](QChar c) {
        return c == LineFeed || c == CarriageReturn || (quoted ? c == Quote : c == mSeparator);
    };
    const QChar* at = begin;
    if (!opens || *begin != Quote) {
        at = std::find_if(begin, end, means);
    }
    if (at != begin) {
        const int length = static_cast<int>(at - begin);
        startRecord(length);
        mCell = mCell.isEmpty() ? QString(begin, length) : mCell.append(begin, length);
        mState = quoted ? State::Quoted : State::Plain;
        mPosition += length;
        mAfterCarriageReturn = false;
    }
}

/// Takes one character; true when it ended the record.
bool CsvTokenizer::step(QChar character)
{
    if (mEndedByCarriageReturn && character == LineFeed) {
        mEndedByCarriageReturn = false; // the second half of the line end before this record
        return false;
    }
    startRecord(1);
    countLine(character);
    if (mState == State::Quoted) {
        if (character == Quote) {
            mState = State::QuoteSeen;
        } else {
            mCell.append(character);
        }
        return false;
    }
    if (character == Quote && mState != State::Plain) {
        openQuote();
    } else if (character == mSeparator) {
        endCell();
    } else if (character == LineFeed || character == CarriageReturn) {
        endCell();
        mEndedByCarriageReturn = character == CarriageReturn;
        return true;
    } else {
        mState = State::Plain;
        mCell.append(character);
    }
    return false;
}

/// The first quote of a cell opens it; one behind a quote within it is a doubled one.
void CsvTokenizer::openQuote()
{
    if (mState == State::QuoteSeen) {
        mCell.append(Quote);
    } else {
        mQuoteLine = mLine;
    }
    mState = State::Quoted;
}

void CsvTokenizer::endCell()
{
    mCells.append(mCell);
    mCell = QString();
    mState = State::CellStart;
}

/// Characters of a record were met; they may be its first.
void CsvTokenizer::startRecord(int characters)
{
    mEndedByCarriageReturn = false;
    mRecordCharacters += characters;
    if (!mInRecord) {
        mInRecord = true;
        mStartLine = mLine;
    }
}

bool CsvTokenizer::takeRecord(QStringList& cells)
{
    cells.clear();
    cells.swap(mCells);
    mRecordLine = mStartLine;
    mInRecord = false;
    mAfterCarriageReturn = false;
    mRecordCharacters = 0;
    return true;
}

bool CsvTokenizer::finishRecord(QStringList& cells)
{
    if (!mInRecord) {
        return false;
    }
    if (mState == State::Quoted) {
        mOpenQuote = true;
        mOpenQuoteLine = mQuoteLine;
    }
    endCell();
    return takeRecord(cells);
}

void CsvTokenizer::countLine(QChar character)
{
    if (character == CarriageReturn || (character == LineFeed && !mAfterCarriageReturn)) {
        ++mLine;
    }
    mAfterCarriageReturn = character == CarriageReturn;
}

} // namespace files
