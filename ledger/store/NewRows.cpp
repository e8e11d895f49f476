#include "ledger/store/NewRows.h"

#include "ledger/store/Statements.h"
#include "ledger/store/Store.h"
#include "ledger/store/Utf8.h"

#include <algorithm>

namespace ledger {

NewRows& NewRows::operator<<(const QString& text)
{
    end(encodeUtf8(text, roomFor(text.size() * MostUtf8Bytes)));
    return *this;
}

NewRows& NewRows::operator<<(const QByteArray& utf8)
{
    end(std::copy(utf8.cbegin(), utf8.cend(), roomFor(utf8.size())));
    return *this;
}

char* NewRows::roomFor(int bytes)
{
    if (mTexts.size() - mUsed < bytes) {
        mTexts.resize(2 * mTexts.size() + bytes);
    }
    return mTexts.data() + mUsed;
}

void NewRows::end(const char* cell)
{
    mUsed = static_cast<int>(cell - mTexts.constData());
    mEnds.append(mUsed);
}

void NewRows::clear()
{
    mUsed = 0;
    mEnds.resize(0);
}

NewRows::Cell NewRows::cell(int row, int column) const
{
    const int at = row * mColumns.size() + column;
    const int begin = at == 0 ? 0 : mEnds.at(at - 1);
    return {mTexts.constData() + begin, mEnds.at(at) - begin};
}

void insertRows(Statements& statements, Store& store, const NewRows& rows)
{
    if (!statements.failed() && rows.count() > 0) {
        statements.fail(store.insertRows(rows));
    }
}

} // namespace ledger
