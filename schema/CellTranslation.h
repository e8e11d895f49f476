#pragma once

#include "strategy/Strategy.h"
#include "table/Fault.h"

#include <QMap>
#include <QString>

#include <optional>

/// A cell holds what a person typed. Translation turns it into a text that is shown and a value for the
/// server, by the column's editor type.
namespace schema {

/// Shown text of a cell that could not be translated.
inline const QString TranslationError = QStringLiteral("TRANS_ERROR");

struct Translation {
    QString shown;
    QString value;
    std::optional<table::Fault> fault; ///< why not; of a cell that reads TranslationError there is none

    bool ok() const { return shown != TranslationError; }
};

/// What translates the cells of one import.
struct Translator {
    bool twoLegs = false;   ///< a cell of exactly two parts holds one value per leg
    QString dateTimeFormat; ///< layout of date-times in the file

    /// `symbol` tells the precision of a price.
    ///
    ///     translated(direction, "600000.SH", "1")   // shown 买入, value Buy
    Translation translated(const strategy::Column& column, const QString& symbol, const QString& cell) const;

private:
    Translation dateTime(const strategy::Column& column, const QString& cell) const;
    Translation option(const strategy::Column& column, const QString& symbol, const QString& cell) const;
    Translation line(const strategy::Column& column, const QString& symbol, const QString& cell) const;
    bool splits(const QString& cell, QString& first, QString& second) const;
};

/// A date and time in the layout given, or as people type it, as it is sent; empty for what is neither.
QString sentDateTimeOf(const QString& typed, const QString& dateTimeFormat);

/// "0-创建不启动,7-创建并立即启动,": of options by what they show.
QString acceptedOptions(const QMap<QString, QString>& options);
/// "激进-aggressive,平稳-neutral,": of a vocabulary by what is typed. Texts that share a display are each
/// listed with the first of them.
QString acceptedValues(const QMap<QString, QString>& values);

} // namespace schema
