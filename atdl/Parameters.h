#pragma once

#include "atdl/Kinds.h"
#include "atdl/Loss.h"
#include "atdl/XmlTree.h"

#include <QJsonObject>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

/// A parameter of the document as the desk's: a column, a place on the wire, bounds.
namespace atdl {

struct Parameter {
    QString name; ///< as the document names it
    QString title;
    QString paramId;
    Kind kind = Kind::Text;
    QString wire;       ///< its type, as profiles name it
    QJsonObject column; ///< entry of the format document; empty: a constant
    QJsonObject rule;   ///< entry of the profile, without its place on the wire
    QJsonObject bounds; ///< entry of strategy_rules.json; empty: none
    QString constant;   ///< as it goes out; empty: the table says
    int tag = 0;        ///< FIX field of its own; 0: none that may be used
    bool isRequired = false;
    bool isTimesHundred = false;
    QMap<QString, QString> choices; ///< of the table -> of the wire

    QStringList ids; ///< of the choices, in the document's order

    bool isConstant() const { return !constant.isEmpty(); }
    /// A flag that is sent as something else than Y and N.
    bool hasOwnWire() const;
    /// What a condition's wire value is in the table; nothing where it is none.
    std::optional<QString> inTable(const QString& wireValue) const;
};

/// Reads one; nothing where it cannot be carried over, which is written down. `control` is null where no
/// control of the layout shows it; `titles` are those that are taken, and gains its own.
std::optional<Parameter> parameterOf(const XmlElement& element, const XmlElement* control,
                                     QSet<QString>& titles, LossBook& losses);

} // namespace atdl
