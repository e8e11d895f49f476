#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

/// What the system knows of a strategy by its code, beside its parameters.
namespace strategy {

enum Trait : unsigned {
    None = 0,
    Lock = 1U << 0,           ///< trades one security on two legs at once: a cell may hold "first/second"
    Pair = 1U << 1,           ///< trades two securities against each other; each leg has its own direction
    CollateralOnly = 1U << 2, ///< carries an amount instead of a quantity, and takes only collateral and
                              ///< financing orders on a credit account
    Futures = 1U << 3,        ///< trades futures contracts
    PriceLimit = 1U << 4,     ///< its legs carry the day's upper limit and the previous close
    StartsOnCreate = 1U << 5, ///< always: its files have no column for it
    TellsRepayment = 1U << 6, ///< shows what entrust property 6 means on each side
    OwnTemplate = 1U << 7,    ///< has a template file of its own
    HongKong = 1U << 8,       ///< accepts Hong Kong securities
    GeneralTitles = 1U << 9,  ///< its columns are named by the general fixed template
    VwapTitles = 1U << 10,    ///< its columns are named by the fixed template of the VWAP family
};

/// What a style may be typed as, and how it is shown.
using Styles = QMap<QString, QString>;

class Traits {
public:
    Traits() = default;
    Traits(QString code, unsigned traits, const Styles& (*accepted)());

    bool has(Trait trait) const { return (mTraits & trait) != 0; }
    /// Each leg carries its own direction and entrust property.
    bool isPaired() const { return has(Lock) || has(Pair); }
    const QString& code() const { return mCode; }
    const Styles& styles() const;

private:
    QString mCode;
    unsigned mTraits = None;
    const Styles& (*mStyles)() = nullptr; ///< null: the usual ones
};

/// By the exact code. A code that nobody listed has no trait and the usual styles.
Traits traitsOf(const QString& code);

/// Codes that have a trait, in the order of the table of traits.
QStringList codesWith(Trait trait);

/// A style by name.
struct Style {
    QString value; ///< as typed and sent
    QString shown;
    QString code; ///< as other parts of a host name it
};

/// 保守, 平稳 and 激进; strategies take some of them.
const QList<Style>& namedStyles();
/// 平稳 and 激进.
const Styles& usualStyles();

} // namespace strategy
