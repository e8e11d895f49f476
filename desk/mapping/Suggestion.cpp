#include "desk/mapping/Suggestion.h"

#include "desk/mapping/Cells.h"
#include "embedded_host/table_check/TitleLint.h"
#include "host/AlgoConstants.h"
#include "import/HeaderMatching.h"
#include "strategy/ColumnRules.h"

#include <QDateTime>
#include <QVector>

#include <algorithm>

namespace mapping {

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace UiType = Algo_Values::AlgoParamUiType;
using strategy::Kind;
using strategy::Strategy;

constexpr int MostHeaderRows = 50;

/// Letters and digits, letter case not counted.
QString plainWord(const QString& text)
{
    QString word;
    for (const QChar c : folded(text)) {
        if (c.isLetterOrNumber()) {
            word.append(c);
        }
    }
    return word;
}

QStringList words(const char* list)
{
    return QString::fromUtf8(list).split(QLatin1Char(' '));
}

/// Columns beside those of which an order is made, by what others call them.
const QMap<QString, QStringList>& furtherNames()
{
    static const QMap<QString, QStringList> names = {
        {columns::SecurityName, words("securityname name stockname instrumentname 简称 证券简称 股票名称")},
        {columns::Style, words("style urgency aggressiveness 风格 执行风格")},
        {QStringLiteral("实例备注"), words("remark remarks note notes comment comments memo 说明")},
        {QStringLiteral("委托属性"), words("ordertype entrusttype creditflag 交易属性 信用标志")},
        {Algo_Values::AlgoParamId::InvestType, words("investtype hedgeflag hedge 投保标志 投机套保")},
        {columns::CreateAndStart, words("start autostart startnow 立即启动 是否启动 启动")}};
    return names;
}

/// What the trade agrees on, by what the strategy shows for it.
const QMap<QString, QStringList>& agreedWords()
{
    using namespace Algo_Values::FutureSide;
    static const QMap<QString, QStringList> agreed = {
        {QStringLiteral("买入"), words("买入 买 b buy")},
        {QStringLiteral("卖出"), words("卖出 卖 s sell")},
        {BuyOpenChi, words("买入开仓 买开 开多 buyopen buytoopen")},
        {SellOpenChi, words("卖出开仓 卖开 开空 sellopen selltoopen")},
        {BuyCloseChi, words("买入平仓 买平 平空 buyclose buytoclose")},
        {SellCloseChi, words("卖出平仓 卖平 平多 sellclose selltoclose")},
        {QStringLiteral("是"), words("是 y yes true")},
        {QStringLiteral("否"), words("否 n no false")},
        {QStringLiteral("普通交易"), words("普通交易 普通 normal")},
        {QStringLiteral("投机"), words("投机 spec speculation")},
        {QStringLiteral("套保"), words("套保 套期保值 hedge")},
        {QStringLiteral("套利"), words("套利 arb arbitrage")}};
    return agreed;
}

QString byAlias(const QString& title, const QStringList& columns)
{
    for (const QString& other : {strategy::HeadAliases.value(title), strategy::HeadAliases.key(title)}) {
        if (!other.isEmpty() && columns.contains(other)) {
            return other;
        }
    }
    return QString();
}

QString byName(const QString& title, const QStringList& columns)
{
    const QString synonym = table_lint::synonymOf(title, columns);
    if (!synonym.isEmpty()) {
        return synonym;
    }
    for (const QString& column : columns) {
        if (furtherNames().value(column).contains(plainWord(title))) {
            return column;
        }
    }
    return QString();
}

/// The strategy's column that a title means; empty where it means none of these.
QString meant(const QString& title, Found by, const QStringList& columns)
{
    switch (by) {
    case Found::ByTitle:
        return columns.contains(title) ? title : QString();
    case Found::ByAlias:
        return byAlias(title, columns);
    case Found::ByName:
        return title.trimmed().isEmpty() ? QString() : byName(title, columns);
    case Found::ByContent:
        break;
    }
    return QString();
}

bool isMoment(const QString& text)
{
    return dateTimeOf(text, DateOrder::DayFirst, QDate(2000, 1, 1)) ||
           dateTimeOf(text, DateOrder::MonthFirst, QDate(2000, 1, 1));
}

/// The one order in which every date of two small numbers is one.
DateOrder orderOf(const QStringList& texts)
{
    const auto allReadIn = [&](DateOrder order) {
        return std::all_of(texts.begin(), texts.end(), [&](const QString& text) {
            return dateTimeOf(text, order, QDate(2000, 1, 1)).has_value();
        });
    };
    const bool dayFirst = allReadIn(DateOrder::DayFirst);
    const bool monthFirst = allReadIn(DateOrder::MonthFirst);
    if (dayFirst == monthFirst) {
        return DateOrder::YearFirst;
    }
    return dayFirst ? DateOrder::DayFirst : DateOrder::MonthFirst;
}

/// Finds the strategy's columns in the header, the surest first.
class Finder {
public:
    Finder(int header, const Strategy& strategy, const table::Table& table, const Surroundings& surroundings)
        : mHeader(header), mStrategy(strategy), mTable(table), mSurroundings(surroundings),
          mTitles(table.rows.value(header)), mOpen(strategy.titles())
    {
        mOpen.removeDuplicates();
        mTargets.resize(mTitles.size());
    }

    Suggestion find()
    {
        for (const Found by : {Found::ByTitle, Found::ByAlias, Found::ByName}) {
            for (int column = 0; column < mTitles.size(); ++column) {
                if (mTargets.at(column).isEmpty()) {
                    take(column, meant(mTitles.at(column), by, mOpen), by);
                }
            }
        }
        for (int column = 0; column < mTitles.size(); ++column) {
            if (mTargets.at(column).isEmpty()) {
                take(column, byContent(column), Found::ByContent);
            }
        }
        findTimes();
        fill();
        return mSuggestion;
    }

private:
    void take(int column, const QString& target, Found by)
    {
        if (!target.isEmpty()) {
            mTargets[column] = target;
            mOpen.removeAll(target);
            mSuggestion.found[target] = by;
        }
    }

    QString byContent(int column) const
    {
        const QStringList texts = textsBelow(mHeader, column, mTable);
        if (texts.isEmpty()) {
            return QString();
        }
        QStringList fitting;
        for (const QString& title : mOpen) {
            const strategy::Column* wanted = mStrategy.column(title);
            const bool fits = std::all_of(texts.begin(), texts.end(),
                                          [&](const QString& text) { return isSurely(*wanted, text); });
            if (fits) {
                fitting.append(title);
            }
        }
        return fitting.size() == 1 ? fitting.first() : QString();
    }

    bool isSurely(const strategy::Column& wanted, const QString& text) const
    {
        if (wanted.kind == Kind::Code) {
            return !codeOf(text, mSurroundings).exchanges.isEmpty() || mSurroundings.codes.contains(text);
        }
        if (wanted.kind == Kind::Market) {
            return mSurroundings.markets.contains(text.toUpper());
        }
        bool isNumber = false;
        text.toDouble(&isNumber);
        return !isNumber && !choicesOf(wanted).isEmpty() && !meaningOf(text, wanted, mSurroundings).isEmpty();
    }

    /// Two columns of times, of which the first is never later, are start and end.
    void findTimes()
    {
        QStringList wanted;
        for (const QString& title : mOpen) {
            if (mStrategy.column(title)->editor == UiType::DateTime) {
                wanted.append(title);
            }
        }
        QList<int> times;
        for (int column = 0; column < mTitles.size(); ++column) {
            const QStringList texts = textsBelow(mHeader, column, mTable);
            if (mTargets.at(column).isEmpty() && !texts.isEmpty() &&
                std::all_of(texts.begin(), texts.end(), isMoment)) {
                times.append(column);
            }
        }
        if (wanted.size() == 2 && times.size() == 2 && isOrdered(times.first(), times.last())) {
            take(times.first(), wanted.first(), Found::ByContent);
            take(times.last(), wanted.last(), Found::ByContent);
        }
    }

    bool isOrdered(int first, int second) const
    {
        const QDate day(2000, 1, 1);
        const DateOrder order =
            orderOf(textsBelow(mHeader, first, mTable) + textsBelow(mHeader, second, mTable));
        for (const QStringList& row : mTable.rows.mid(mHeader + 1)) {
            const auto start = dateTimeOf(row.value(first), order, day);
            const auto end = dateTimeOf(row.value(second), order, day);
            if (start && end && *start > *end) {
                return false;
            }
        }
        return true;
    }

    void fill()
    {
        QMap<QString, int> numbers;
        for (int column = 0; column < mTitles.size(); ++column) {
            const int number = ++numbers[mTitles.at(column)];
            if (!mTargets.at(column).isEmpty()) {
                mSuggestion.mapping.columns.append(told(column, number));
            }
        }
        for (const QString& title : qAsConst(mOpen)) {
            const QString constant = harmlessConstant(*mStrategy.column(title));
            if (!constant.isEmpty()) {
                mSuggestion.mapping.constants[title] = constant;
            }
        }
        mSuggestion.mapping.strategy = mStrategy.code;
        mSuggestion.mapping.headerLine = mTable.lineOf(mHeader);
    }

    Column told(int column, int number) const
    {
        const strategy::Column* wanted = mStrategy.column(mTargets.at(column));
        const QStringList texts = textsBelow(mHeader, column, mTable);
        Column made{mTitles.at(column), number, wanted->title, formFor(*wanted), DateOrder::YearFirst, {}};
        if (made.form == Form::DateTime) {
            made.order = orderOf(texts);
        }
        suggestValues(made, *wanted, texts, mSurroundings);
        return made;
    }

    /// Of a column that the file must have.
    QString harmlessConstant(const strategy::Column& column) const
    {
        if (!column.mustStandInFile() || mStrategy.traits.has(strategy::StartsOnCreate)) {
            return QString();
        }
        return column.kind == Kind::CreateAndStart ? Algo_Values::AlgoInstruction::Create : QString();
    }

    const int mHeader;
    const Strategy& mStrategy;
    const table::Table& mTable;
    const Surroundings& mSurroundings;
    const QStringList mTitles;
    QStringList mOpen;         ///< of the strategy, that no column of the file is yet
    QVector<QString> mTargets; ///< of each column of the file
    Suggestion mSuggestion;
};

bool takesMoment(const QString& text)
{
    return QDateTime::fromString(text, QStringLiteral("yyyy-M-d H:m:s")).isValid();
}

bool takesOne(const strategy::Column& column, const QString& text, const Surroundings& surroundings)
{
    if (column.kind == Kind::Market) {
        return surroundings.markets.contains(text.trimmed().toUpper());
    }
    if (column.editor == UiType::DateTime) {
        return takesMoment(text);
    }
    const QList<strategy::Option> choices = choicesOf(column);
    return choices.isEmpty() || std::any_of(choices.begin(), choices.end(),
                                            [&](const auto& choice) { return choice.value == text; });
}

/// Whether the import takes a text in the column, as far as choices and times go.
bool takes(const Strategy& strategy, const strategy::Column& column, const QString& text,
           const Surroundings& surroundings)
{
    if (text.isEmpty() || takesOne(column, text, surroundings)) {
        return true;
    }
    const QStringList legs = text.split(QLatin1Char('/'));
    return strategy.traits.has(strategy::Lock) && legs.size() == 2 &&
           std::all_of(legs.begin(), legs.end(),
                       [&](const QString& leg) { return takesOne(column, leg, surroundings); });
}

class GapFinder {
public:
    GapFinder(const Mapping& mapping, const Strategy& strategy, const table::Table& table,
              const Surroundings& surroundings)
        : mMapping(mapping), mStrategy(strategy), mTable(table), mSurroundings(surroundings),
          mHeader(headerRow(mapping, table))
    {
    }

    Gaps find()
    {
        findUnknown();
        findMissing();
        findValues();
        findUnmapped();
        return mGaps;
    }

private:
    void findUnknown()
    {
        QStringList targets = mMapping.constants.keys();
        for (const Column& column : mMapping.columns) {
            targets.append(column.to);
        }
        for (const QString& target : qAsConst(targets)) {
            if (!mStrategy.column(target)) {
                mGaps.unknown.append(target);
            }
        }
    }

    void findMissing()
    {
        for (const strategy::Column& column : mStrategy.columns) {
            const bool isGiven =
                mMapping.columnTo(column.title) || mMapping.constants.contains(column.title) ||
                column.kind == Kind::Market ||
                (column.kind == Kind::CreateAndStart && mStrategy.traits.has(strategy::StartsOnCreate));
            if (column.mustStandInFile() && !isGiven && !mGaps.missing.contains(column.title)) {
                mGaps.missing.append(column.title);
            }
        }
        if (lacksMarkets()) {
            mGaps.missing.append(Info::Exchange);
        }
    }

    /// Whether an order names no market.
    bool lacksMarkets() const
    {
        const Outcome<table::Table> told = apply(mMapping, mTable, mSurroundings);
        const QStringList titles = told.value.rows.value(0);
        const int market = titles.indexOf(Info::Exchange);
        return told.ok() && std::any_of(told.value.rows.begin(), told.value.rows.end(), [&](const auto& row) {
                   return !row.isEmpty() && !table::isBlankOrNote(row) && row.value(market).isEmpty();
               });
    }

    void findValues()
    {
        const QStringList header = mTable.rows.value(mHeader);
        for (const Column& column : mMapping.columns) {
            const strategy::Column* wanted = mStrategy.column(column.to);
            int place = -1;
            for (int number = 0; number < column.number; ++number) {
                place = header.indexOf(column.from, place + 1);
            }
            for (const QString& text : wanted ? textsBelow(mHeader, place, mTable) : QStringList()) {
                if (!takes(mStrategy, *wanted, toldAnew(column, text, mSurroundings), mSurroundings)) {
                    mGaps.values[column.to].append(text);
                }
            }
        }
        for (auto constant = mMapping.constants.cbegin(); constant != mMapping.constants.cend(); ++constant) {
            const strategy::Column* wanted = mStrategy.column(constant.key());
            if (wanted && !takes(mStrategy, *wanted, *constant, mSurroundings)) {
                mGaps.values[constant.key()].append(*constant);
            }
        }
    }

    void findUnmapped()
    {
        QMap<QString, int> numbers;
        for (const QString& title : mTable.rows.value(mHeader)) {
            const int number = ++numbers[title];
            const bool isMapped =
                std::any_of(mMapping.columns.begin(), mMapping.columns.end(), [&](const Column& column) {
                    return column.from == title && column.number == number;
                });
            if (!isMapped && !title.trimmed().isEmpty()) {
                mGaps.unmapped.append(title);
            }
        }
    }

    const Mapping& mMapping;
    const Strategy& mStrategy;
    const table::Table& mTable;
    const Surroundings& mSurroundings;
    const int mHeader;
    Gaps mGaps;
};

} // namespace

Form formFor(const strategy::Column& column)
{
    if (column.kind == Kind::Code) {
        return Form::Code;
    }
    if (column.kind == Kind::OrderAmount || column.kind == Kind::SealingAmount) {
        return Form::Amount;
    }
    if (column.wholeNumber) {
        return Form::Quantity;
    }
    if (column.editor == UiType::DateTime) {
        return Form::DateTime;
    }
    const bool isPrice = column.title == Info::PriceLimits || column.title == columns::Limit;
    return isPrice ? Form::Decimal : Form::AsIs;
}

QList<strategy::Option> choicesOf(const strategy::Column& column)
{
    using namespace Algo_Values::AlgoInstruction;
    if (column.kind == Kind::CreateAndStart) {
        return {{QStringLiteral("否"), Create}, {QStringLiteral("是"), StartOnCreate}};
    }
    QList<strategy::Option> choices;
    if (!column.accepted.isEmpty()) {
        for (auto typed = column.accepted.cbegin(); typed != column.accepted.cend(); ++typed) {
            if (column.options.isEmpty() || column.options.contains(*typed)) {
                choices.append({*typed, typed.key()});
            }
        }
        return choices;
    }
    for (const strategy::Option& option : column.parameter.options) {
        if (column.editor == UiType::ComboBox) {
            choices.append(option);
        }
    }
    return choices;
}

QString meaningOf(const QString& text, const strategy::Column& column, const Surroundings& surroundings)
{
    if (column.kind == Kind::Market) {
        const QStringList exchanges =
            surroundings.markets.value(text.toUpper(), surroundings.postfixes.value(text.toUpper()));
        return exchanges.size() == 1 ? exchanges.first() : QString();
    }
    for (const strategy::Option& choice : choicesOf(column)) {
        const bool isAgreed = folded(choice.shown) == folded(text) ||
                              agreedWords().value(choice.shown).contains(plainWord(text)) ||
                              folded(choice.value) == folded(text);
        if (isAgreed) {
            return choice.value;
        }
    }
    return QString();
}

void suggestValues(Column& column, const strategy::Column& wanted, const QStringList& texts,
                   const Surroundings& surroundings)
{
    if (choicesOf(wanted).isEmpty() && wanted.kind != Kind::Market) {
        return;
    }
    for (const QString& text : texts) {
        for (const QString& leg : text.split(QLatin1Char('/'))) {
            const QString word = leg.trimmed();
            const bool isKnown =
                std::any_of(column.values.keyBegin(), column.values.keyEnd(),
                            [&](const QString& known) { return folded(known) == folded(word); });
            const QString meaning = isKnown || takesOne(wanted, word, surroundings)
                                        ? QString()
                                        : meaningOf(word, wanted, surroundings);
            if (!meaning.isEmpty()) {
                column.values[word] = meaning;
            }
        }
    }
}

QStringList textsBelow(int headerRow, int column, const table::Table& table)
{
    QStringList texts;
    QSet<QString> seen;
    for (int row = headerRow + 1; row < table.rows.size(); ++row) {
        const QString text = table.rows.at(row).value(column).trimmed();
        if (!text.isEmpty() && !seen.contains(text)) {
            seen.insert(text);
            texts.append(text);
        }
    }
    return texts;
}

int likelyHeader(const Strategy& strategy, const table::Table& table)
{
    const QStringList columns = strategy.titles();
    int best = 0;
    int most = 1; // one title alone may be a word in a note
    for (int row = 0; row < table.rows.size() && row < MostHeaderRows; ++row) {
        QSet<QString> found;
        for (const QString& title : table.rows.at(row)) {
            for (const Found by : {Found::ByTitle, Found::ByAlias, Found::ByName}) {
                found.insert(meant(title, by, columns));
            }
        }
        found.remove(QString());
        if (found.size() > most) {
            most = found.size();
            best = row;
        }
    }
    return best;
}

Suggestion suggestAt(int headerRow, const Strategy& strategy, const table::Table& table,
                     const Surroundings& surroundings)
{
    Suggestion suggestion = Finder(headerRow, strategy, table, surroundings).find();
    suggestion.mapping.sheet = table.sheet;
    return suggestion;
}

Suggestion suggest(const Strategy& strategy, const table::Table& table, const Surroundings& surroundings)
{
    return suggestAt(likelyHeader(strategy, table), strategy, table, surroundings);
}

Gaps gapsOf(const Mapping& mapping, const Strategy& strategy, const table::Table& table,
            const Surroundings& surroundings)
{
    return GapFinder(mapping, strategy, table, surroundings).find();
}

bool fitsAsItStands(const Strategy& strategy, const table::Table& table)
{
    return !import::matchHeader(import::completedHeader(table.rows.value(0), strategy.traits),
                                import::wantedColumns(strategy))
                .missingColumn;
}

} // namespace mapping
