#include "desk/check/ImportExpectation.h"

#include "embedded_host/reference_data/ReferenceData.h"
#include "host/AlgoConstants.h"
#include "host/NorvikConstants.h"
#include "strategy/ColumnRules.h"
#include "strategy/Strategy.h"

#include <QHash>
#include <QMultiHash>

#include <algorithm>

using table_lint::Expectation;
using table_lint::KnownSecurity;
using table_lint::NumberKind;

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;

/// Code -> the securities that it may mean, as a person should see them.
QMultiHash<QString, QString> securitiesByCode(const ReferenceData& data)
{
    QMultiHash<QString, QString> byCode;
    for (const Security& security : data.tables().securities) {
        byCode.insert(security.code, security.symbol + QLatin1Char(' ') + security.name);
    }
    return byCode;
}

std::optional<KnownSecurity> knownSecurity(const ReferenceData& data, const QString& code,
                                           const QString& market)
{
    const Security* security = data.security(data.symbolOf(code, market));
    if (security == nullptr || security->exchanges.isEmpty()) {
        return std::nullopt;
    }
    const bool isFuture = security->securityType == Norvik_Values::MdcSecurityType::FuturesType;
    KnownSecurity known;
    known.symbol = security->symbol;
    known.name = security->name;
    known.leastQuantity = security->minQtyPerOrder;
    known.quantityStep = security->qtyStep;
    known.precision = security->pricePrecision;
    known.isBondRepo = security->bondRepo;
    known.hasOddLots = !isFuture && !security->bondRepo;
    return known;
}

bool holdsOneOf(const QString& title, std::initializer_list<const char*> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&](const char* word) { return title.contains(QString::fromUtf8(word)); });
}

/// Of a parameter that a person types, by what its format says of it. A text that may be anything is none.
std::optional<NumberKind> kindOfTyped(const strategy::Column& column)
{
    const QString& title = column.title;
    if (column.editor != Algo_Values::AlgoParamUiType::LineEdit || !column.options.isEmpty() ||
        holdsOneOf(title, {"编号", "账号", "备注", "名称", "代码", "版本"})) {
        return std::nullopt;
    }
    bool hasNumber = false;
    column.defaultValue.toDouble(&hasNumber);
    if (holdsOneOf(title, {"占比", "扫盘"})) {
        return NumberKind::Share;
    }
    if (holdsOneOf(title, {"配对比例", "间隔"})) {
        return NumberKind::Positive;
    }
    if (holdsOneOf(title, {"%", "％"})) {
        return NumberKind::Percent;
    }
    if (holdsOneOf(title, {"价差"})) {
        return NumberKind::Signed;
    }
    const bool isNamedSo = holdsOneOf(title, {"金额", "数量", "比例"});
    return hasNumber || isNamedSo ? std::optional(NumberKind::Free) : std::nullopt;
}

/// Columns that the import reads as numbers under every strategy.
QMap<QString, NumberKind> generalNumbers()
{
    QMap<QString, NumberKind> kinds = {{Info::PriceLimits, NumberKind::Price},
                                       {Info::Quantity_Amount, NumberKind::Amount},
                                       {columns::SealingAmount, NumberKind::Amount},
                                       {Info::participationrate, NumberKind::Share}};
    for (const QString& title : strategy::WholeNumberColumns) {
        kinds[title] = NumberKind::Whole;
    }
    kinds[Algo_Values::AlgoParamId::SellBalance] = NumberKind::Amount;
    return kinds;
}

QMap<QString, NumberKind> numbersOf(const strategy::Strategy& strategy)
{
    QMap<QString, NumberKind> kinds = generalNumbers();
    for (const strategy::Column& column : strategy.columns) {
        const std::optional<NumberKind> kind = kindOfTyped(column);
        if (kind && !kinds.contains(column.title)) {
            kinds[column.title] = *kind;
        }
    }
    for (auto alias = strategy::HeadAliases.cbegin(); alias != strategy::HeadAliases.cend(); ++alias) {
        if (kinds.contains(*alias)) {
            kinds[alias.key()] = kinds.value(*alias);
        } else if (kinds.contains(alias.key())) {
            kinds[*alias] = kinds.value(alias.key());
        }
    }
    return kinds;
}

/// What the import takes for a choice of every strategy, and this one has no value for.
QMap<QString, QSet<QString>> lostTexts(const strategy::Strategy& strategy)
{
    QMap<QString, QSet<QString>> lost;
    for (const strategy::Column& column : strategy.columns) {
        for (auto typed = column.accepted.cbegin(); typed != column.accepted.cend(); ++typed) {
            if (!column.options.isEmpty() && !column.options.contains(*typed)) {
                lost[column.title].insert(typed.key());
            }
        }
    }
    return lost;
}

strategy::Strategy parsed(const AesStrategy& offered)
{
    return strategy::Strategy::parse(offered.name(), offered.alias(), offered.paramFormats()).value;
}

/// Parsing dozens of documents costs more than checking a file.
QStringList titlesOf(const AesStrategy& offered)
{
    thread_local QHash<QString, QStringList> known; // by document
    const QString key = offered.name() + QLatin1Char('\n') + offered.paramFormats();
    auto titles = known.constFind(key);
    if (titles == known.constEnd()) {
        titles = known.insert(key, parsed(offered).titles());
    }
    return *titles;
}

QMap<QString, QStringList> titlesOfOthers(const ReferenceData& data, const QString& code)
{
    QMap<QString, QStringList> titles;
    for (const AesStrategy& offered : data.tables().strategies) {
        const QStringList own = offered.name() == code ? QStringList() : titlesOf(offered);
        if (!own.isEmpty() && offered.globalType() == Algo_Values::AlgoGlobalType::algo) {
            titles[offered.name() + QLatin1Char(' ') + offered.alias()] = own;
        }
    }
    return titles;
}

} // namespace

Expectation importExpectation(const QString& strategy, const QStringList& titles, const ReferenceData& data)
{
    const AesStrategy* offered = data.strategy(strategy);
    const strategy::Strategy known = offered == nullptr ? strategy::Strategy() : parsed(*offered);
    Expectation expected;
    expected.titles = titles;
    expected.aliases = strategy::HeadAliases;
    expected.codeTitle = Info::Symbol;
    expected.securities = [byCode = securitiesByCode(data)](const QString& code) {
        return QStringList(byCode.values(code));
    };
    expected.security = [&data](const QString& code, const QString& market) {
        return knownSecurity(data, code, market);
    };
    expected.numbers = numbersOf(known);
    expected.lostTexts = lostTexts(known);
    expected.pairedPrices = strategy.isEmpty() || strategy::traitsOf(strategy).has(strategy::Lock);
    if (!strategy.isEmpty()) {
        expected.otherStrategies = [&data, strategy] { return titlesOfOthers(data, strategy); };
    }
    return expected;
}
