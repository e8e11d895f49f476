#pragma once

#include "table/Outcome.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

/// How a broker wants orders on the wire, as data.
namespace gateway {

/// The standard's types of a field's value; the number of each is StrategyParameterType (959).
enum class ValueType {
    Int = 1,
    Length = 2,
    NumInGroup = 3,
    SeqNum = 4,
    TagNum = 5,
    Float = 6,
    Qty = 7,
    Price = 8,
    PriceOffset = 9,
    Amt = 10,
    Percentage = 11, ///< 15 in a table is 0.15 on the wire
    Char = 12,
    Boolean = 13, ///< 1 and 0 in a table, Y and N on the wire
    String = 14,
    MultipleCharValue = 15, ///< this and those that follow: texts as they stand
    Currency = 16,
    Exchange = 17,
    MonthYear = 18,
    UtcTimestamp = 19, ///< from Shanghai time
    UtcTimeOnly = 20,  ///< from Shanghai time
    LocalMktDate = 21,
    MultipleStringValue = 24,
    Country = 25,
    Language = 26,
    Tenor = 29,
};

/// A field with a constant value.
struct Constant {
    int tag = 0;
    QString value;
};

/// Where a parameter of a strategy goes: a field of its own, or an entry of the strategy parameters group.
struct ParameterRule {
    QString paramId;  ///< empty: a constant
    QString constant; ///< as it stands on the wire, in every order
    int tag = 0;      ///< 0: by name
    QString name;     ///< StrategyParameterName (958); empty: by tag
    ValueType type = ValueType::String;
    QMap<QString, QString> values; ///< of the table -> of the wire; empty: as it stands
    int legTag = 0;                ///< field of the leg where legs do not agree; 0: that refuses
};

struct StrategyRule {
    QList<Constant> fields;
    QList<ParameterRule> parameters; ///< in the order of the wire
    QStringList ignored;             ///< parameters that do not go out
};

struct Profile {
    QStringList accounts; ///< trading accounts served; empty: all
    int statusTimeoutSeconds = 30;
    bool statusRequest = true;              ///< whether the counterparty answers OrderStatusRequest
    bool possResend = true;                 ///< whether what it does not know may be sent again with 97=Y
    QMap<QString, QString> exchanges;       ///< market of a row -> SecurityExchange (207)
    QMap<QString, QList<Constant>> sides;   ///< direction of a row -> fields, 54 among them
    QMap<QString, StrategyRule> strategies; ///< by code
};

/// Reads and checks a profile. The error holds a line for everything that is wrong, each with its path, such
/// as "strategies.AITWAP.parameters[2].type：未知的类型“Percent”".
Outcome<Profile> readProfile(const QByteArray& json);
/// The same from a file; the error names it.
Outcome<Profile> loadProfile(const QString& path);

} // namespace gateway
