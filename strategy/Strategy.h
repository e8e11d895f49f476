#pragma once

#include "strategy/Traits.h"
#include "table/Outcome.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// A strategy as an import sees it: the columns of its table and what is known of it by its code. Read once
/// from the host's format document; dialog, templates and reports share it.
namespace strategy {

/// One choice of a drop-down parameter: what is shown, and what is sent.
struct Option {
    QString shown;
    QString value;
};

/// One entry of the format document.
struct Parameter {
    QVariantMap entry;       ///< as the document has it; empty: an element that says nothing
    QString name;            ///< the column's title
    QString id;              ///< under which the value travels
    QString editor;          ///< a text of Algo_Values::AlgoParamUiType, or any other
    QList<Option> options;   ///< in the document's order
    bool ofSecurity = false; ///< a column of the document's table, else a parameter of the instance
    bool visible = false;
    bool required = false; ///< by its own attribute
    QString defaultValue;
    QString defaultShown;
};

/// Those of an entry, whatever its editor.
QList<Option> optionsOf(const QVariantMap& entry);

/// One element of the document: a parameter, or a table with a parameter a column.
struct Element {
    QVariant json;
    bool isTable = false;
    QList<Parameter> parameters; ///< of a table those without an entry too
};

/// How the cells of a column are read.
enum class Kind { Code, Market, SecurityName, CreateAndStart, SealingAmount, OrderAmount, Ordinary };

/// A column of the table, as its title's last parameter in the document has it.
struct Column {
    QString title;
    Kind kind = Kind::Ordinary;
    Parameter parameter; ///< the one that this column stands for; default-made in the added columns
    QString id;
    QString editor;
    QMap<QString, QString> options;  ///< shown -> sent, of drop-down parameters
    QMap<QString, QString> accepted; ///< typed -> shown, where the strategy has a vocabulary of its own
    QString defaultValue;
    QString defaultShown;
    bool ofSecurity = false;
    bool ofInstance = false;
    bool wholeNumber = false;
    bool compulsory = false; ///< the file must have it, and every row a value
    bool required = false;   ///< likewise, but for what the import fills in by itself

    /// An import without the column ends; templates mark it.
    bool mustStandInFile() const { return compulsory || required; }
    bool isAdded() const { return parameter.entry.isEmpty(); }
};

struct Strategy {
    QString code;  ///< identifies the strategy, such as "AITWAP"
    QString alias; ///< shown to people
    Traits traits;
    QList<Element> document;
    /// The completed head: visible parameters without the first fund account, with name and market behind
    /// the first, and the start flag at the end.
    QList<Column> columns;
    QStringList securityParameters; ///< names, in the document's order, and the market
    QStringList instanceParameters; ///< likewise, and the start flag

    QStringList titles() const;
    /// Null where no column has the title.
    const Column* column(const QString& title) const;
    /// Of the document, in its order, before the head is completed.
    QStringList visibleNames() const;

    /// The one reader of the format document. Fails with the JSON parser's words; a document that is no
    /// array is one without parameters.
    static Outcome<Strategy> parse(const QString& code, const QString& alias, const QString& paramFormats);
    /// With the added columns alone.
    static Strategy withoutParameters(const QString& code, const QString& alias);
};

/// What may be typed in a column under these styles, and how it is shown; empty: its options decide.
QMap<QString, QMap<QString, QString>> acceptedTexts(const Styles& styles);

} // namespace strategy
