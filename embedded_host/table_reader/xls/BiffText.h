#pragma once

#include "embedded_host/table_reader/xls/BiffStream.h"

#include <QString>

class QTextCodec;

namespace table_reader {

/// The codec of a workbook's CODEPAGE record, for the byte texts of BIFF5; null where the number is unknown.
QTextCodec* codecOfCodePage(int codePage);
/// That of a workbook which does not say, or says what nobody knows.
QTextCodec* westernCodec();

/// Reads texts of BIFF8 that may go on in CONTINUE records. Where one is cut within its characters, the next
/// record begins with a byte that says anew how wide they are.
class BiffText {
public:
    /// From this offset of a record that `stream` returned last.
    BiffText(BiffStream& stream, const BiffRecord& record, int offset)
        : mStream(stream), mRecord(record), mAt(offset)
    {
    }

    /// The next text, with a length of one or two bytes before it; `keep` false passes it over. False: it is
    /// cut off.
    bool read(int lengthBytes, bool keep, QString& text);

private:
    bool readByte(quint8& byte);
    bool readNumber(int bytes, quint32& number);
    bool readCharacters(quint32 count, bool wide, bool keep, QString& text);
    bool skip(qint64 bytes);
    bool continueRecord();

    BiffStream& mStream;
    BiffRecord mRecord;
    int mAt;
};

} // namespace table_reader
