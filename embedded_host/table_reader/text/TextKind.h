#pragma once

#include <QByteArray>
#include <QString>

namespace table_reader {

/// The sentence that refuses a text which is no table: HTML, XML, RTF, PDF. Empty for a table. `head` is the
/// beginning of the decoded text.
QString refuseTextOfAnotherKind(const QString& head);

/// The sentence that refuses a file by its first bytes: images and archives other than zip. Empty for
/// anything else.
QString refuseBinaryOfAnotherKind(const QByteArray& head);

} // namespace table_reader
