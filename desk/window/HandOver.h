#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// What the dialog hands over when the user confirms.
struct HandOver {
    QString file; ///< path of the file last imported; empty when none was
    QString strategy;
    QString strategyAlias;
    QString account;
    /// One map an instance: parameter identifier -> text; the legs stand under AlgoSecurityList as a list of
    /// maps.
    QList<QMap<QString, QVariant>> parameterMaps;
    bool closeAfterwards = true; ///< the user wants the dialog closed once the instances exist
};

/// The parameter maps as a table, one instance a row: a column for every parameter that any of them has,
/// those of the legs first. The values of two legs stand in one cell, separated by a slash.
namespace parameter_table {

QStringList columnsOf(const QList<QMap<QString, QVariant>>& maps);
QList<QStringList> rowsOf(const QList<QMap<QString, QVariant>>& maps, const QStringList& columns);

} // namespace parameter_table
