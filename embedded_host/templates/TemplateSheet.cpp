#include "embedded_host/templates/TemplateSheet.h"

#include "embedded_host/templates/TemplateTexts.h"
#include "host/AlgoConstants.h"
#include "strategy/ColumnRules.h"
#include "table/Table.h"
#include "words/Words.h"

#include <QDate>
#include <QHash>

#include <algorithm>

namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace ParamId = Algo_Values::AlgoParamId;
namespace UiType = Algo_Values::AlgoParamUiType;

namespace template_files {

namespace {

const QChar LegSeparator = QLatin1Char('/');
const QString OneContract = QStringLiteral("1");

/// Texts in UTF-8.
struct Convention {
    CellKind kind;
    const char* unit;
    const char* example = "";
    const char* whenEmpty = nullptr; ///< what an empty cell means, beside a default of the document
};

/// What the trade writes into a column that is no choice and no time.
const QHash<QString, Convention>& conventions()
{
    static const Convention quantity{
        CellKind::Whole, QT_TRANSLATE_NOOP("Words", "数量（股票为股、债券为张、期货为手）"), "1000"};
    static const Convention price{CellKind::Decimal, QT_TRANSLATE_NOOP("Words", "价格（元，港股为港元）"),
                                  "10.50", QT_TRANSLATE_NOOP("Words", "空为不限价")};
    static const Convention money{CellKind::Decimal, QT_TRANSLATE_NOOP("Words", "金额（元）"), "100000"};
    static const Convention percent{CellKind::Decimal, QT_TRANSLATE_NOOP("Words", "百分数，如15表示15%"),
                                    "15"};
    static const Convention seconds{CellKind::Whole, QT_TRANSLATE_NOOP("Words", "秒"), "30"};
    static const Convention whole{CellKind::Whole, QT_TRANSLATE_NOOP("Words", "整数"), "1"};
    static const Convention number{CellKind::Decimal, QT_TRANSLATE_NOOP("Words", "可带小数"), "1"};
    static const Convention spread{CellKind::Decimal,
                                   QT_TRANSLATE_NOOP("Words", "与合约价格同单位，可带小数"), "12.5"};
    static const Convention pair{CellKind::Text, QT_TRANSLATE_NOOP("Words", "同一对证券写相同的编号"), "P1"};
    static const QHash<QString, Convention> table = {
        {Info::Quantity, quantity},
        {QStringLiteral("单笔最大"), quantity},
        {QStringLiteral("单笔最小"), quantity},
        {QStringLiteral("单笔最小量"), quantity},
        {QStringLiteral("单笔最大委托数量"), quantity},
        {Info::PriceLimits, price},
        {QStringLiteral("限价"), price},
        {Info::Quantity_Amount, money},
        {columns::SealingAmount, money},
        {ParamId::SellBalance, money},
        {Info::minAmout, money},
        {Info::participationrate, percent},
        {QStringLiteral("扫盘比例（%）"), percent},
        {QStringLiteral("扫盘比例(%)"), percent},
        {QStringLiteral("触发涨幅（%）"), percent},
        {QStringLiteral("增减持比例（%）"), percent},
        {QStringLiteral("委托间隔"), seconds},
        {QStringLiteral("撤单时间"), seconds},
        {QStringLiteral("配对编号"), pair},
        {QStringLiteral("配对比例"), number},
        {QStringLiteral("目标价差"), spread},
        {QStringLiteral("起始成本"), whole},
        {QStringLiteral("最差滑点"), whole},
    };
    return table;
}

/// A value that may be typed and what it means.
using Choice = QPair<QString, QString>;

/// Directions are typed as the market numbers them, not as the strategy sends them.
QList<Choice> choicesOf(const strategy::Parameter& parameter)
{
    const bool direction = parameter.name == ParamId::traderOrder;
    QList<Choice> choices;
    for (const strategy::Option& option : parameter.options) {
        const QString typed = direction ? strategy::TypedDirections.key(option.shown) : option.value;
        if (!typed.isEmpty()) {
            choices.append({typed, option.shown});
        }
    }
    return choices;
}

QStringList typedValues(const QList<Choice>& choices)
{
    QStringList values;
    for (const Choice& choice : choices) {
        values.append(choice.first);
    }
    return values;
}

QString meaningOf(const QList<Choice>& choices)
{
    QStringList meanings;
    for (const Choice& choice : choices) {
        meanings.append(choice.first + QLatin1Char('-') + choice.second);
    }
    return meanings.join(template_texts::noteSeparator());
}

/// Legs of a lock are opposite in direction; every other value may stand beside every value.
QStringList legPairs(const QStringList& values, bool opposite)
{
    QStringList pairs;
    for (const QString& first : values) {
        for (const QString& second : values) {
            if (!opposite || first != second) {
                pairs.append(first + LegSeparator + second);
            }
        }
    }
    return pairs;
}

QString defaultNote(const strategy::Parameter& parameter, const QList<Choice>& choices)
{
    const QString& value = parameter.defaultValue;
    if (value.isEmpty()) {
        return QString();
    }
    if (parameter.editor == UiType::DateTime) {
        return value == Algo_Values::AlgoParamOptions::currentTime
                   ? template_texts::defaultNow()
                   : template_texts::defaultToday().arg(value);
    }
    const auto choice = std::find_if(choices.begin(), choices.end(),
                                     [&](const Choice& known) { return known.first == value; });
    return template_texts::defaultValue().arg(choice == choices.end() ? value : choice->second);
}

QString joinedNote(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(template_texts::noteSeparator());
}

/// What of a strategy its columns depend on.
struct Kind {
    bool twoLegs; ///< in one row
    bool futures;
};

/// Describes one column that a parameter of the document makes.
class ColumnWriter {
public:
    ColumnWriter(const strategy::Column& column, const Kind& kind)
        : mParameter(column.parameter), mChoices(choicesOf(mParameter)),
          mTwoLegs(kind.twoLegs && mParameter.ofSecurity), mFutures(kind.futures)
    {
        mColumn.title = column.title;
        mColumn.required = column.mustStandInFile();
    }

    TemplateColumn column()
    {
        QString unit;
        if (mColumn.title == Info::Symbol) {
            mColumn.kind = CellKind::Verbatim;
            unit = template_texts::codeNote();
        } else if (mParameter.editor == UiType::DateTime) {
            mColumn.kind = CellKind::DateTime;
            mColumn.example = exampleTime();
            unit = template_texts::dateTimeNote();
        } else if (!mChoices.isEmpty()) {
            fillChoice();
            unit = meaningOf(mChoices);
        } else {
            unit = fillConventional();
        }
        if (mColumn.required) {
            mColumn.note = joinedNote({unit, legsNote(), template_texts::required()});
        } else {
            mColumn.note = joinedNote({unit, template_texts::optional(), whenEmpty()});
            mColumn.example.clear(); // what a trader leaves as it is must not send more than the defaults do
        }
        return mColumn;
    }

private:
    void fillChoice()
    {
        mColumn.accepted = typedValues(mChoices);
        if (mTwoLegs) {
            mColumn.kind = CellKind::Verbatim;
            mColumn.accepted = legPairs(mColumn.accepted, mColumn.title == ParamId::traderOrder);
        }
        mColumn.example = mColumn.accepted.value(0);
    }

    QString fillConventional()
    {
        const auto known = conventions().constFind(mColumn.title);
        if (known == conventions().constEnd()) {
            return QString();
        }
        mColumn.kind = known->kind;
        mColumn.example = QString::fromUtf8(known->example);
        if (mFutures && mColumn.title == Info::Quantity) {
            mColumn.example = OneContract;
        }
        const bool legs = mTwoLegs && mColumn.title == Info::PriceLimits;
        if (legs) {
            mColumn.kind = CellKind::Verbatim;
            mColumn.example += LegSeparator + mColumn.example;
        }
        return Words::tr(known->unit);
    }

    QString whenEmpty() const
    {
        const QString byDefault = defaultNote(mParameter, mChoices);
        const auto known = conventions().constFind(mColumn.title);
        const bool isSaid = known != conventions().constEnd() && known->whenEmpty != nullptr;
        return byDefault.isEmpty() && isSaid ? Words::tr(known->whenEmpty) : byDefault;
    }

    QString legsNote() const
    {
        const bool legs = mTwoLegs && mColumn.example.contains(LegSeparator);
        return legs ? template_texts::bothLegs().arg(mColumn.example) : QString();
    }

    QString exampleTime() const
    {
        const QTime time = QTime::fromString(mParameter.defaultValue, Qt::TextDate);
        return QDate::currentDate().toString(Qt::ISODate) + QLatin1Char(' ') +
               (time.isValid() ? time : QTime(9, 30)).toString(QStringLiteral("HH:mm:ss"));
    }

    const strategy::Parameter& mParameter;
    const QList<Choice> mChoices;
    const bool mTwoLegs;
    const bool mFutures;
    TemplateColumn mColumn;
};

/// Futures are opened and closed instead of bought and sold.
bool tradesFutures(const strategy::Strategy& strategy)
{
    return std::any_of(strategy.document.begin(), strategy.document.end(),
                       [](const strategy::Element& element) {
                           return !element.isTable &&
                                  std::any_of(element.parameters.begin(), element.parameters.end(),
                                              [](const strategy::Parameter& parameter) {
                                                  return parameter.name == ParamId::traderOrder &&
                                                         typedValues(choicesOf(parameter))
                                                             .contains(Solvey_Values::SideUnion::openBuy);
                                              });
                       });
}

TemplateColumn choiceColumn(const QString& title, const QList<Choice>& choices)
{
    TemplateColumn column;
    column.title = title;
    column.required = true;
    column.accepted = typedValues(choices);
    column.example = column.accepted.value(0);
    column.note = joinedNote({meaningOf(choices), template_texts::required()});
    return column;
}

TemplateColumn marketColumn(const QList<Market>& markets)
{
    QList<Choice> choices;
    for (const Market& market : markets) {
        choices.append({market.exchange, market.name});
    }
    TemplateColumn column = choiceColumn(Info::Exchange, choices);
    column.example.clear(); // only the security that a trader fills in tells its market
    return column;
}

TemplateColumn startColumn()
{
    return choiceColumn(columns::CreateAndStart,
                        {{Algo_Values::AlgoInstruction::Create, template_texts::createOnly()},
                         {Algo_Values::AlgoInstruction::StartOnCreate, template_texts::startOnCreate()}});
}

TemplateColumn nameColumn()
{
    TemplateColumn column;
    column.title = columns::SecurityName;
    column.note = template_texts::nameNote();
    return column;
}

TemplateColumn columnOf(const strategy::Column& column, const Kind& kind, const QList<Market>& markets)
{
    if (!column.isAdded()) {
        return ColumnWriter(column, kind).column();
    }
    if (column.kind == strategy::Kind::Market) {
        return marketColumn(markets);
    }
    return column.kind == strategy::Kind::CreateAndStart ? startColumn() : nameColumn();
}

QStringList notesOn(const QList<TemplateColumn>& columns)
{
    using namespace template_texts;
    QStringList notes{notesTitle(),
                      numberedNote().arg(1).arg(skippedRowsTitle(), skippedRows().arg(table::MostOrders))};
    for (const TemplateColumn& column : columns) {
        notes.append(numberedNote().arg(notes.size()).arg(column.title, column.note));
    }
    notes.append(exampleTitle());
    return notes;
}

} // namespace

QStringList TemplateSheet::titles() const
{
    QStringList result;
    for (const TemplateColumn& column : columns) {
        result.append(column.title);
    }
    return result;
}

QStringList TemplateSheet::noteRow(const QString& text)
{
    return {QString(), QString(), text};
}

QStringList TemplateSheet::exampleRow() const
{
    QStringList row;
    for (int i = 0; i < columns.size(); ++i) {
        row.append(i < 2 ? QString() : columns.at(i).example);
    }
    return row;
}

QList<QStringList> TemplateSheet::rows() const
{
    QList<QStringList> result{titles()};
    for (const QString& note : notes) {
        result.append(noteRow(note));
    }
    result.append(exampleRow());
    return result;
}

TemplateSheet describeTemplate(const AesStrategy& offered, const QList<Market>& markets)
{
    TemplateSheet sheet;
    sheet.name = offered.name();
    const strategy::Strategy strategy =
        strategy::Strategy::parse(offered.name(), offered.alias(), offered.paramFormats()).value;
    if (strategy.visibleNames().isEmpty()) {
        return sheet;
    }
    const Kind kind{strategy.traits.has(strategy::Lock), tradesFutures(strategy)};
    for (const strategy::Column& column : strategy.columns) {
        const bool isStart = column.isAdded() && column.kind == strategy::Kind::CreateAndStart;
        if (!isStart || !strategy.traits.has(strategy::StartsOnCreate)) {
            sheet.columns.append(columnOf(column, kind, markets));
        }
    }
    sheet.notes = notesOn(sheet.columns);
    return sheet;
}

} // namespace template_files
