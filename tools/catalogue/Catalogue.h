#pragma once

#include <QByteArray>
#include <QString>

/// Composes the strategy catalogue that ships (reference_data/strategies.json) from a source without
/// repetition. The source folder holds three files.
///
/// `parameters.json`: every parameter once, under a key of its own: `name`, and where they differ from the
/// default `id` (the name), `ui` (LineEdit), `required` (false), `visible` (true), `options`
/// ("value=display", in order) and `default` (a value; its display is that of the option of that value, else
/// the value itself).
///
/// `families.json`: the `table` columns and the `parameters` that strategies of a family share, as keys, in
/// document order; "*" stands where a strategy's own parameters go.
///
/// `strategies.json`: in catalogue order `name`, `alias`, `family`, and where wanted `own` and `without`
/// (keys).
namespace catalogue {

/// The catalogue as indented JSON, one parameter a line. Empty, with `error` as "FILE: what is wrong", where
/// the source is missing, no JSON, of another shape, or names something that it does not define.
QByteArray compose(const QString& sourceFolder, QString& error);

} // namespace catalogue
