#pragma once

#include <QByteArray>
#include <QString>
#include <QTextCodec>

namespace table_reader {

/// What the first bytes of a text tell: its byte order mark, or the zero bytes that UTF-16 has at every other
/// place. UTF-8, UTF-16LE or UTF-16BE; empty where only the whole text can tell.
QString encodingByFirstBytes(const QByteArray& head);

/// Decodes a text piece by piece; a character cut at a piece's edge stays whole. Drops the byte order mark.
class TextDecoder {
public:
    /// `encoding` is a name that QTextCodec knows; isValid() tells whether it is.
    explicit TextDecoder(const QString& encoding);

    bool isValid() const { return mCodec != nullptr; }
    QString decode(const QByteArray& bytes);
    /// Places that the encoding could not read, so far.
    int faults() const;
    /// Call once, at the end of the text: true where a character was begun and never completed.
    bool endsWithinCharacter();

private:
    QTextCodec* mCodec;
    QTextCodec::ConverterState mState;
    bool mCountsReplacements; ///< the codec does not tell what it could not read
    int mReplacements = 0;
};

} // namespace table_reader
