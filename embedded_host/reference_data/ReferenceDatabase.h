#pragma once

#include "embedded_host/reference_data/ReferenceData.h"

#include <QString>

#include <optional>

/// Keeps the tables of a reference data folder in an SQLite file, so that the desk parses and checks the
/// folder only when it has changed. Every table stands there under its file's name with its columns as texts,
/// indexed by key (and securities by post and code), for other tools to query.
///
///     QString error;
///     auto tables = ReferenceDatabase::refresh(folder, home + "/reference.sqlite", error);
class ReferenceDatabase {
public:
    /// Goes up whenever tables, columns, or what counts as a fault change; a database of another version is
    /// written anew.
    static constexpr int SchemaVersion = 2;

    /// The folder's tables: from the database where names, sizes and SHA-256 of the folder's files are those
    /// that it was made of; else from the folder, which then goes into the database in one transaction. A
    /// damaged database, or one of another program, is replaced. A database that cannot be written is not an
    /// error: it is logged, and the tables come from the folder. Nothing, with `error` as of
    /// readReferenceFolder(), when the folder has a fault; the database stays as it was then.
    static std::optional<ReferenceTables> refresh(const QString& folder, const QString& databasePath,
                                                  QString& error);
};
