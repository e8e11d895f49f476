#pragma once

#include "host/AesStrategy.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// Reads strategies.json: an array, in catalogue order, of objects with `name`, `alias` (the name),
/// `globalType` (algo) and `paramFormats` (an array or object, handed on as compact JSON text, or a string,
/// handed on as it stands). False on a fault, with `error` as "FILE:LINE: what is wrong", FILE as `path`.
bool readStrategyCatalogue(const QByteArray& json, const QString& path, QList<AesStrategy>& strategies,
                           QString& error);
