#include "embedded_host/table_reader/text/TextEncoding.h"

#include <algorithm>

namespace table_reader {
namespace {

bool isTextByte(uchar byte)
{
    return byte == '\t' || byte == '\n' || byte == '\r' || (byte >= 0x20 && byte < 0x7f);
}

/// UTF-16 without a mark: latin letters, digits and separators have a zero beside them, always on the same
/// side. Even a header of Chinese titles alone has enough of them; a stray zero byte in a text of another
/// encoding does not make one.
QString encodingByZeros(const QByteArray& head)
{
    int zeroBehind = 0;
    int zeroBefore = 0;
    int bothText = 0;
    for (int at = 0; at + 1 < head.size(); at += 2) {
        const auto first = static_cast<uchar>(head.at(at));
        const auto second = static_cast<uchar>(head.at(at + 1));
        zeroBehind += isTextByte(first) && second == 0 ? 1 : 0;
        zeroBefore += first == 0 && isTextByte(second) ? 1 : 0;
        bothText +=
            isTextByte(first) && isTextByte(second) ? 1 : 0; // also what many Chinese characters look like
    }
    constexpr int Dominance = 4;
    constexpr int Share = 8; // of the characters, one in so many is a separator, a digit or a line end
    const int least = std::max(bothText / Dominance, (head.size() / 2 + Share - 1) / Share);
    if (head.size() % 2 != 0) {
        return QString();
    }
    if (zeroBehind > Dominance * zeroBefore && zeroBehind >= least) {
        return QStringLiteral("UTF-16LE");
    }
    if (zeroBefore > Dominance * zeroBehind && zeroBefore >= least) {
        return QStringLiteral("UTF-16BE");
    }
    return QString();
}

} // namespace

QString encodingByFirstBytes(const QByteArray& head)
{
    if (head.startsWith("\xEF\xBB\xBF")) {
        return QStringLiteral("UTF-8");
    }
    if (head.startsWith("\xFF\xFE")) {
        return QStringLiteral("UTF-16LE");
    }
    if (head.startsWith("\xFE\xFF")) {
        return QStringLiteral("UTF-16BE");
    }
    return head.contains('\0') ? encodingByZeros(head) : QString();
}

TextDecoder::TextDecoder(const QString& encoding)
    : mCodec(QTextCodec::codecForName(encoding.toLatin1())),
      mCountsReplacements(!encoding.startsWith(QLatin1String("UTF-"), Qt::CaseInsensitive))
{
}

QString TextDecoder::decode(const QByteArray& bytes)
{
    const QString text = mCodec->toUnicode(bytes.constData(), bytes.size(), &mState);
    if (mCountsReplacements) {
        mReplacements += text.count(QChar(QChar::ReplacementCharacter));
    }
    return text;
}

bool TextDecoder::endsWithinCharacter()
{
    if (!mCountsReplacements) {
        return mState.remainingChars > 0;
    }
    // These codecs do not tell what they hold back. A line feed is never the second byte of a character.
    const QString probe = mCodec->toUnicode("\n", 1, &mState);
    return probe != QLatin1String("\n");
}

int TextDecoder::faults() const
{
    return mCountsReplacements ? mReplacements : mState.invalidChars;
}

} // namespace table_reader
