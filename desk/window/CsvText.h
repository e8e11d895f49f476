#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// Tables as csv files that a spreadsheet program opens in the right encoding: UTF-8 with a byte order mark,
/// comma, CRLF, RFC 4180 quotes.
namespace csv_text {

QByteArray encoded(const QList<QStringList>& rows);
/// Replaces the file only once the new one is whole. Returns a Chinese sentence for the user, empty on
/// success.
QString save(const QString& path, const QList<QStringList>& rows);

} // namespace csv_text
