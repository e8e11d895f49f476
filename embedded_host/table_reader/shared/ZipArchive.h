#pragma once

#include <QHash>
#include <QIODevice>
#include <QString>
#include <QStringList>
#include <QTextDecoder>

#include <memory>

struct zip;
struct zip_file;

namespace table_reader {

/// Closes what libzip opened, without writing anything.
struct ZipCloser {
    void operator()(zip* archive) const;
    void operator()(zip_file* part) const;
};

/// The parts of a zip archive by name. Names are matched as Office packages do: letter case, a leading slash
/// and the direction of slashes do not count. Of parts with the same name the last one is taken.
class ZipArchive {
public:
    explicit ZipArchive(QIODevice& file);

    /// Reads the directory. Empty, or the sentence that says what is wrong.
    QString open();
    bool contains(const QString& name) const { return mParts.contains(key(name)); }
    /// Of all parts, in no order.
    QStringList names() const { return mParts.keys(); }

private:
    friend class PartStream;
    static QString key(const QString& name);
    QString readDirectory(qint64 entries);
    qint64 entryOf(const QString& name) const { return mParts.value(key(name), -1); }

    QIODevice& mFile;
    qint64 mBytesLeft; ///< that may still be read; bounds what the directory takes
    std::unique_ptr<zip, ZipCloser> mZip;
    QHash<QString, qint64> mParts; ///< number of the entry
};

/// One part, inflated as it is read, never whole in memory. Reading fails beyond the limits; finish() checks
/// the length and the checksum. The bytes must be XML in an encoding that leaves ASCII as it is, or in
/// UTF-16, and come out as UTF-8; or plain ASCII. Only one stream of an archive may be open at a time.
class PartStream : public QIODevice {
    Q_OBJECT

public:
    PartStream(ZipArchive& archive, const QString& name);
    ~PartStream() override;

    /// Empty, or why the part cannot be read.
    QString begin();
    /// Forgets the bytes counted for the current token; see limits::TokenBytes.
    void beginToken() { mTokenBytes = 0; }
    /// Reads what is left without a look at it, then checks length and checksum. Empty, or what is wrong. A
    /// rest longer than limits::RestBytes is left, and the part taken as it is.
    QString finish();
    /// What stopped the reading, if anything did.
    const QString& failure() const { return mFailure; }
    const QString& name() const { return mName; }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 maximum) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    qint64 inflate(char* data, qint64 maximum);
    qint64 readBytes(char* data, qint64 maximum);
    qint64 takeRecoded(char* data, qint64 maximum);
    void recode(const QByteArray& bytes);
    bool isSuspicious() const;

    ZipArchive& mArchive;
    QString mName;
    QString mFailure;
    std::unique_ptr<zip_file, ZipCloser> mPart;
    qint64 mSize = 0;
    qint64 mCompressed = 0;
    qint64 mRead = 0;
    qint64 mTokenBytes = 0;
    std::unique_ptr<QTextDecoder> mDecoder; ///< of a part that is not in UTF-8
    QByteArray mRecoded;                    ///< read of it and not yet given out
    bool mHasBegun = false;
};

} // namespace table_reader
