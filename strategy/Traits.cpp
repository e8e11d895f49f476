#include "strategy/Traits.h"

#include <QHash>

namespace strategy {

namespace {

const QString Neutral = QStringLiteral("neutral");
const QString Aggressive = QStringLiteral("aggressive");

/// Named styles by what is typed.
Styles stylesOf(const QStringList& values)
{
    Styles styles;
    for (const Style& style : namedStyles()) {
        if (values.contains(style.value)) {
            styles[style.value] = style.shown;
        }
    }
    return styles;
}

const Styles& steadyOnly()
{
    static const Styles styles = stylesOf({Neutral});
    return styles;
}

const Styles& numberedStyles()
{
    static const Styles styles = {{QStringLiteral("0"), QStringLiteral("动态均衡")},
                                  {QStringLiteral("1"), QStringLiteral("静态均衡")},
                                  {QStringLiteral("2"), QStringLiteral("低撤单率")},
                                  {QStringLiteral("3"), QStringLiteral("高收益")}};
    return styles;
}

/// One row a strategy. Those that accept Hong Kong securities stand first, in the order in which they are
/// listed to others.
const QList<Traits>& table()
{
    static const QList<Traits> rows = {
        {QStringLiteral("AIPAIR"), Pair | HongKong, usualStyles},
        {QStringLiteral("AIPAIRBASIC"), Pair | HongKong, usualStyles},
        {QStringLiteral("AIPAIRPLUS"), Pair | HongKong, usualStyles},
        {QStringLiteral("AINHG"), HongKong, usualStyles},
        {QStringLiteral("AIVWAP3"), HongKong | VwapTitles, usualStyles},
        {QStringLiteral("AIVWAP"), HongKong | OwnTemplate, usualStyles},
        {QStringLiteral("AITWAP"), HongKong | OwnTemplate, usualStyles},
        {QStringLiteral("AITWAP3"), HongKong | OwnTemplate, usualStyles},
        {QStringLiteral("TWAP"), HongKong, usualStyles},
        {QStringLiteral("AIPOV"), HongKong | OwnTemplate, usualStyles},
        {QStringLiteral("AITWAPBASIC"), HongKong | OwnTemplate, usualStyles},
        {QStringLiteral("AITWAPPLUS"), HongKong, usualStyles},
        {QStringLiteral("AIVWAPBASIC"), HongKong | OwnTemplate | VwapTitles, usualStyles},
        {QStringLiteral("AIVWAPPLUS"), HongKong | VwapTitles, usualStyles},
        {QStringLiteral("AIPOVBASIC"), HongKong | OwnTemplate, usualStyles},
        {QStringLiteral("AIPOVPLUS"), HongKong, usualStyles},
        {QStringLiteral("AIPOVZJC"), HongKong, usualStyles},
        {QStringLiteral("AITWAPZJC"), HongKong, usualStyles},
        {QStringLiteral("AIVWAPZJC"), HongKong | VwapTitles, usualStyles},
        {QStringLiteral("VWAP"), HongKong | VwapTitles, usualStyles},
        {QStringLiteral("POV"), HongKong, usualStyles},
        {QStringLiteral("SUPERVWAP"), HongKong | OwnTemplate, usualStyles},
        {QStringLiteral("SUPERTWAP"), HongKong | OwnTemplate, usualStyles},
        {QStringLiteral("AILOCK"), Lock, steadyOnly},
        {QStringLiteral("AILOCKPLUS"), Lock, steadyOnly},
        {QStringLiteral("AILOCK3"), Lock, steadyOnly},
        {QStringLiteral("AITWAP7"), CollateralOnly, usualStyles},
        {QStringLiteral("AIPOV7"), CollateralOnly, usualStyles},
        {QStringLiteral("AITWAP5"), Futures, usualStyles},
        {QStringLiteral("G-TWAP"), Futures, usualStyles},
        {QStringLiteral("G-VWAP"), Futures, usualStyles},
        {QStringLiteral("G-FuturesArbi"), Futures, usualStyles},
        {QStringLiteral("G-Pair"), Futures, usualStyles},
        {QStringLiteral("G-PairFuturesArbi"), Futures, usualStyles},
        {QStringLiteral("PursueHighLimit"), PriceLimit | OwnTemplate, usualStyles},
        {QStringLiteral("PursueHighLimitB"), PriceLimit, usualStyles},
        {QStringLiteral("PursueHighLimitPLUS"), PriceLimit, usualStyles},
        {QStringLiteral("DoubleConditionOrder"), PriceLimit | OwnTemplate, usualStyles},
        {QStringLiteral("DoubleConditionOrderPLUS"), PriceLimit, usualStyles},
        {QStringLiteral("KF_TWAPPLUS"), StartsOnCreate | TellsRepayment | OwnTemplate, usualStyles},
        {QStringLiteral("KF_VWAPPLUS"), StartsOnCreate | TellsRepayment | OwnTemplate, usualStyles},
        {QStringLiteral("QND_TWAP"), TellsRepayment | OwnTemplate, numberedStyles},
        {QStringLiteral("QND_VWAP"), TellsRepayment | OwnTemplate, numberedStyles},
        {QStringLiteral("52"), GeneralTitles, usualStyles},
    };
    return rows;
}

QHash<QString, Traits> byCode()
{
    QHash<QString, Traits> index;
    for (const Traits& traits : table()) {
        index.insert(traits.code(), traits);
    }
    return index;
}

} // namespace

Traits::Traits(QString code, unsigned traits, const Styles& (*accepted)())
    : mCode(std::move(code)), mTraits(traits), mStyles(accepted)
{
}

const Styles& Traits::styles() const
{
    return mStyles == nullptr ? usualStyles() : mStyles();
}

Traits traitsOf(const QString& code)
{
    static const QHash<QString, Traits> index = byCode();
    return index.value(code, Traits(code, None, usualStyles));
}

QStringList codesWith(Trait trait)
{
    QStringList codes;
    for (const Traits& traits : table()) {
        if (traits.has(trait)) {
            codes.append(traits.code());
        }
    }
    return codes;
}

const QList<Style>& namedStyles()
{
    static const QList<Style> styles = {
        {QStringLiteral("passive"), QStringLiteral("保守"), QStringLiteral("Conservative")},
        {Neutral, QStringLiteral("平稳"), QStringLiteral("Balance")},
        {Aggressive, QStringLiteral("激进"), QStringLiteral("Aggressive")}};
    return styles;
}

const Styles& usualStyles()
{
    static const Styles styles = stylesOf({Neutral, Aggressive});
    return styles;
}

} // namespace strategy
