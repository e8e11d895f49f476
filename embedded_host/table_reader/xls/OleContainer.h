#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

struct _GsfInput;
struct _GsfInfile;

namespace table_reader {

struct GObjectRelease {
    void operator()(void* object) const;
};
using GsfInputPtr = std::unique_ptr<_GsfInput, GObjectRelease>;
using GsfInfilePtr = std::unique_ptr<_GsfInfile, GObjectRelease>;

/// A stream over bytes in memory, which must outlive it.
GsfInputPtr memoryInput(const QByteArray& bytes);

/// An OLE2 container in memory, such as old Office documents are. The bytes must outlive it.
class OleContainer {
public:
    explicit OleContainer(const QByteArray& bytes);

    bool isValid() const { return mContainer != nullptr; }
    /// Names of the streams and folders at the top.
    const QStringList& names() const { return mNames; }
    /// Whether there is an entry of this name in any letter case, be it damaged.
    bool contains(const QString& name) const;
    /// The stream of this name in any letter case; null where it is missing or damaged.
    GsfInputPtr stream(const QString& name) const;

private:
    QByteArray mFile;
    GsfInputPtr mBytes;
    GsfInfilePtr mContainer;
    QStringList mNames;
};

} // namespace table_reader
