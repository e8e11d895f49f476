#pragma once

#include <QString>

namespace ledger {

/// A unit of UTF-16 becomes so many bytes at most.
constexpr int MostUtf8Bytes = 3;

/// Encodes the character that begins at `at`, which is not ASCII, and moves behind it. As Qt does it, a
/// surrogate without its other half becomes the character that stands for what cannot be shown.
inline char* encodeWide(const QChar*& at, const QChar* end, char* to)
{
    const bool isPair = at->isHighSurrogate() && end - at > 1 && at[1].isLowSurrogate();
    const uint single = at->isSurrogate() ? uint(QChar::ReplacementCharacter) : at->unicode();
    const uint code = isPair ? QChar::surrogateToUcs4(at[0], at[1]) : single;
    at += isPair ? 2 : 1;
    const auto rest = [code](int shift) { return static_cast<char>(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x800) {
        *to++ = static_cast<char>(0xC0 | code >> 6);
    } else if (code < 0x10000) {
        *to++ = static_cast<char>(0xE0 | code >> 12);
        *to++ = rest(6);
    } else {
        *to++ = static_cast<char>(0xF0 | code >> 18);
        *to++ = rest(12);
        *to++ = rest(6);
    }
    *to++ = rest(0);
    return to;
}

/// text.toUtf8() without memory of its own: a batch has tens of thousands of texts.
inline char* encodeUtf8(const QString& text, char* to)
{
    const QChar* const end = text.cend();
    for (const QChar* at = text.cbegin(); at != end;) {
        if (at->unicode() < 0x80) {
            *to++ = static_cast<char>((at++)->unicode());
        } else {
            to = encodeWide(at, end, to);
        }
    }
    return to;
}

} // namespace ledger
