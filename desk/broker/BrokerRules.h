#pragma once

#include "table/Fault.h"
#include "table/Outcome.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

/// What brokers ask of an order beyond what its columns say, as strategy_rules.json has it.
namespace broker {

/// Of one parameter. Values are held against it as they stand in the parameter map.
struct Bounds {
    enum class Kind { Integer, Number, Time, Day, Text, Several };

    QString paramId;
    QString title; ///< of its column
    Kind kind = Kind::Text;
    QString min; ///< a number, a time of day or a day; empty: none
    QString max;
    QString timeZone;   ///< of a time of day: where the clock hangs that the broker means
    QStringList values; ///< of Several: the words that may stand there
    int minLength = -1; ///< below 0: none
    int maxLength = -1;
    int decimals = -1;
};

/// A condition as a tree. A comparison with something that is not there is neither true nor false, and so is
/// what hangs on it.
struct Node {
    enum class Kind { Always, Never, And, Or, Xor, Not, Exists, Lacks, Compare };

    Kind kind = Kind::Always;
    QString operation; ///< of a comparison: EQ, NE, LT, LE, GT, GE
    bool asNumbers = false;
    QString field;
    QString value; ///< what it is compared with, unless `field2` is
    QString field2;
    QList<Node> of;
};

struct Condition {
    QString message; ///< the broker's own, for people
    Node holds;
};

struct Rules {
    QList<Bounds> parameters;
    QList<Condition> conditions;
    std::optional<QStringList> exchanges; ///< on which alone it is offered
};

class BrokerRules {
public:
    /// No such file: nobody asks for anything. The error is "FILE:LINE: what is wrong".
    static Outcome<BrokerRules> read(const QString& folder);
    static Outcome<BrokerRules> parse(const QByteArray& json, const QString& path);

    bool isEmpty() const { return mRules.isEmpty(); }
    /// Of an order of this strategy; `column` is a title, lines and cells are the caller's to add.
    table::Faults faultsOf(const QString& strategy, const QMap<QString, QVariant>& parameters) const;

private:
    QHash<QString, Rules> mRules; ///< by strategy
};

} // namespace broker
