#pragma once

#include "embedded_host/reference_data/ReferenceData.h"

#include <QString>
#include <QVector>

#include <functional>

/// One column of a table: how a cell's text gets into a row, and out of it again.
template <typename Row> struct ReferenceColumn {
    enum Kind { Ordinary, Key };

    QString name;
    /// Takes a cell that is not empty; returns what is wrong with it, empty when nothing is. A row starts
    /// with the defaults of its columns.
    std::function<QString(Row& row, const QString& cell)> read;
    /// The cell that read() makes the same field of.
    std::function<QString(const Row& row)> write;
    Kind kind = Ordinary;
};

/// A table of the reference data, of which both the csv file and the database table are made.
template <typename Row> struct ReferenceTable {
    enum Presence { Optional, Required };
    enum Keys { Unique, Repeatable };

    QString name;
    QList<Row> ReferenceTables::*rows;
    QVector<ReferenceColumn<Row>> columns;
    Presence presence = Optional;
    Keys keys = Unique;
    /// Fills the fields whose default depends on other fields; may be null.
    void (*complete)(Row& row) = nullptr;

    QString fileName() const { return name + QLatin1String(".csv"); }
};

const ReferenceTable<Market>& marketTable();
const ReferenceTable<Security>& securityTable();
const ReferenceTable<FuturesContract>& futuresTable();
const ReferenceTable<tagUserAccountInfo>& accountTable();
const ReferenceTable<SecurityAccount>& securityAccountTable();
const ReferenceTable<Authority>& authorityTable();
const ReferenceTable<Quote>& quoteTable();
const ReferenceTable<HkRate>& hkRateTable();
/// Kept in the database like the others; in a folder it is strategies.json.
const ReferenceTable<AesStrategy>& strategyTable();

/// Visits the tables that are csv files, until a visit returns false; whether all returned true.
template <typename Visitor> bool forEachCsvTable(Visitor visit)
{
    return visit(marketTable()) && visit(securityTable()) && visit(accountTable()) && visit(futuresTable()) &&
           visit(securityAccountTable()) && visit(authorityTable()) && visit(quoteTable()) &&
           visit(hkRateTable());
}

/// All tables, strategies included.
template <typename Visitor> bool forEachTable(Visitor visit)
{
    return visit(strategyTable()) && forEachCsvTable(visit);
}
