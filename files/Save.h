#pragma once

#include "table/Outcome.h"

#include <QByteArray>
#include <QString>

/// The one way in which the house writes a file that a user asked for.
namespace files {

/// Puts these bytes where `path` leads, whole, or leaves what stands there as it was: they are written beside
/// it, carried to the disk, and only then take its place. Every step is looked at, the last flush and the
/// closing among them, since a full disk often tells of itself only there. An existing file keeps its
/// permissions and must be writable; a link stays a link, and what it leads to is replaced. The error is a
/// reason, for cannotWrite() or a sentence of the caller's own.
///
///     Outcome<void> saved = files::save(path, bytes);
///     if (!saved.ok()) { … files::cannotWrite(path, saved.error) … }
Outcome<void> save(const QString& path, const QByteArray& bytes);

/// Gives a file another name, in another folder of the same disk perhaps: at every moment it is whole under
/// one of the two. What stood under the new name is gone. Both folders are carried to the disk.
Outcome<void> move(const QString& from, const QString& to);

/// 无法写入文件“list.csv”：磁盘空间不足
QString cannotWrite(const QString& path, const QString& reason);

} // namespace files
