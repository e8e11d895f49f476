#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// The parameter maps as a table, one instance a row: a column for every parameter that any of them has, what
/// one looks for first in front. The values of two legs stand in one cell, separated by a slash.
namespace parameter_table {

QStringList columnsOf(const QList<QMap<QString, QVariant>>& maps);
QList<QStringList> rowsOf(const QList<QMap<QString, QVariant>>& maps, const QStringList& columns);

} // namespace parameter_table
