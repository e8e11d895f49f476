#pragma once

#include <QString>
#include <QStringList>

/// The first of `texts` that looks like a slip for `name`: the same letters apart from case, blanks,
/// underscores and hyphens, or one wrong, missing, surplus or swapped pair of letters (two in a name of seven
/// letters or more). Empty when none does.
///
///     misspellingOf("multiplier", {"note", "multipler"}) // "multipler"
QString misspellingOf(const QString& name, const QStringList& texts);
