#pragma once

#include "embedded_host/reference_data/ReferenceData.h"
#include "host/AesStrategy.h"
#include "strategy/Strategy.h"

#include <QList>
#include <QString>
#include <QStringList>

/// What an import template of one strategy holds, whatever file it is written to.
namespace template_files {

/// How the cells of a column are typed in a spreadsheet.
enum class CellKind {
    Text,     ///< free text
    Verbatim, ///< text that a spreadsheet would change: codes (000001), cells of two legs (1/2)
    Whole,    ///< whole number
    Decimal,  ///< price or money
    DateTime, ///< yyyy-MM-dd HH:mm:ss
};

struct TemplateColumn {
    QString title; ///< exactly as the import wants it
    CellKind kind = CellKind::Text;
    bool required = false;
    QStringList accepted; ///< what may be typed, where that is a fixed set
    QString note;         ///< unit, accepted values with their meaning, default
    QString example;      ///< empty for an optional column: the import fills in its default
};

struct TemplateSheet {
    QString name; ///< the strategy's code
    QList<TemplateColumn> columns;
    QStringList notes; ///< one a row, without the two empty cells in front

    QStringList titles() const;
    /// A note row: two empty cells, then the text.
    static QStringList noteRow(const QString& text);
    /// The example under its columns: what is required, but for the security's code and market, and nothing
    /// else. Its first two cells are empty, so that the import skips it.
    QStringList exampleRow() const;
    /// Header, note rows and example.
    QList<QStringList> rows() const;
};

/// The columns that the import dialog shows for the strategy, in its order: visible parameters without the
/// fund account, with name and market behind the first, and the start flag at the end unless the strategy
/// always starts at once. Without columns where the parameter format document has none.
TemplateSheet describeTemplate(const AesStrategy& offered, const QList<Market>& markets);

} // namespace template_files
