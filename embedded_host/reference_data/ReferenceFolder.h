#pragma once

#include "embedded_host/reference_data/ReferenceData.h"

#include <QString>
#include <QStringList>

#include <optional>

/// Reads the csv and json files of a reference data folder (docs/reference-data.md lists files and columns).
/// On the first fault returns nothing and sets `error` to "FILE:LINE: what is wrong", FILE as a path that
/// starts with `folder` as it was given.
std::optional<ReferenceTables> readReferenceFolder(const QString& folder, QString& error);

/// The names of the files that readReferenceFolder() reads where they are there.
QStringList referenceFileNames();

/// Whether a file counts as there. A link whose target is gone does, and is a fault then: with
/// authorities.csv taken for absent everything would be allowed.
bool isReferenceFileThere(const QString& path);
