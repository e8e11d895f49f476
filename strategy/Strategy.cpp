#include "strategy/Strategy.h"

#include "host/AlgoConstants.h"
#include "strategy/ColumnRules.h"

#include <QHash>
#include <QJsonDocument>

namespace strategy {

namespace {

namespace Field = Algo_Fields::AlgoParamFields;
namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace UiType = Algo_Values::AlgoParamUiType;

/// true in any letter case, as a JSON boolean or as text; an absent attribute counts as true.
bool isVisible(const QVariantMap& entry)
{
    const QString yes = QStringLiteral("true");
    return entry.value(Field::visible, yes).toString().toUpper() == yes.toUpper();
}

/// Any text but "false" requires a parameter, and an absent attribute does not.
bool isRequired(const QVariantMap& entry)
{
    const QString no = QStringLiteral("false");
    return entry.value(Field::required, no).toString() != no;
}

Parameter parameterOf(const QVariantMap& entry, bool ofSecurity)
{
    const QVariantMap defaults = entry.value(Field::strDefault).toMap();
    Parameter parameter;
    parameter.entry = entry;
    parameter.name = entry.value(Field::paramName).toString();
    parameter.id = entry.value(Field::paramId).toString();
    parameter.editor = entry.value(Field::ui).toString();
    parameter.options = optionsOf(entry);
    parameter.ofSecurity = ofSecurity;
    parameter.visible = !entry.isEmpty() && isVisible(entry);
    parameter.required = isRequired(entry);
    parameter.defaultValue = defaults.value(Field::value).toString();
    parameter.defaultShown = defaults.value(Field::display).toString();
    return parameter;
}

Element elementOf(const QVariant& json)
{
    Element element;
    element.json = json;
    const QVariantMap entry = json.toMap();
    element.isTable = entry.value(Field::ui).toString() == UiType::Table;
    if (element.isTable) {
        const QVariantList columns = entry.value(Field::columns).toList();
        for (const QVariant& column : columns) {
            element.parameters.append(parameterOf(column.toMap(), true));
        }
    } else if (!entry.isEmpty()) {
        element.parameters.append(parameterOf(entry, false));
    }
    return element;
}

Kind kindOf(const QString& title)
{
    static const QHash<QString, Kind> kinds = {{columns::Code, Kind::Code},
                                               {Info::Symbol, Kind::Code},
                                               {Info::Exchange, Kind::Market},
                                               {columns::SecurityName, Kind::SecurityName},
                                               {columns::CreateAndStart, Kind::CreateAndStart},
                                               {columns::SealingAmount, Kind::SealingAmount},
                                               {Info::Quantity_Amount, Kind::OrderAmount}};
    return kinds.value(title, Kind::Ordinary);
}

/// Completes a strategy whose document stands.
class Head {
public:
    explicit Head(Strategy& strategy) : mStrategy(strategy)
    {
        for (const Element& element : mStrategy.document) {
            for (const Parameter& parameter : element.parameters) {
                take(parameter);
            }
        }
    }

    void complete()
    {
        mStrategy.securityParameters.append(Info::Exchange);
        mStrategy.instanceParameters.append(columns::CreateAndStart);
        mAccepted = acceptedTexts(mStrategy.traits.styles());

        QList<Parameter> head = mVisible;
        removeFundAccount(head);
        head.append(added(columns::CreateAndStart));
        head.insert(1, added(columns::SecurityName));
        head.insert(2, added(Info::Exchange));
        for (const Parameter& parameter : qAsConst(head)) {
            mStrategy.columns.append(columnOf(parameter));
        }
    }

private:
    void take(const Parameter& parameter)
    {
        if (parameter.entry.isEmpty()) {
            return;
        }
        (parameter.ofSecurity ? mStrategy.securityParameters : mStrategy.instanceParameters)
            .append(parameter.name);
        mLast[parameter.name] = parameter;
        if (parameter.editor == UiType::ComboBox) {
            for (const Option& option : parameter.options) {
                mOptions[parameter.name][option.shown] = option.value;
            }
        }
        if (parameter.visible) {
            mVisible.append(parameter);
        }
    }

    static Parameter added(const QString& title)
    {
        Parameter parameter;
        parameter.name = title;
        return parameter;
    }

    static void removeFundAccount(QList<Parameter>& head)
    {
        for (int i = 0; i < head.size(); ++i) {
            if (head.at(i).name == Info::fundAccount) {
                head.removeAt(i);
                return;
            }
        }
    }

    Column columnOf(const Parameter& own) const
    {
        const Parameter last = mLast.value(own.name);
        Column column;
        column.title = own.name;
        column.kind = kindOf(own.name);
        column.parameter = own;
        column.id = idOf(own.name, last);
        column.editor = last.editor;
        column.options = mOptions.value(own.name);
        column.accepted = mAccepted.value(own.name);
        column.defaultValue = last.defaultValue;
        column.defaultShown = last.defaultShown;
        column.ofSecurity = mStrategy.securityParameters.contains(own.name);
        column.ofInstance = mStrategy.instanceParameters.contains(own.name);
        column.wholeNumber = WholeNumberColumns.contains(own.name);
        column.compulsory = column.ofSecurity || CompulsoryColumns.contains(own.name);
        column.required = last.required;
        return column;
    }

    /// Market and start flag travel under their own names, even where the document has such parameters.
    static QString idOf(const QString& title, const Parameter& last)
    {
        const bool ownName = title == Info::Exchange || title == columns::CreateAndStart;
        return ownName ? title : last.id;
    }

    Strategy& mStrategy;
    QList<Parameter> mVisible;
    QHash<QString, Parameter> mLast; ///< of each name the last one of the document
    QHash<QString, QMap<QString, QString>> mOptions;
    QMap<QString, QMap<QString, QString>> mAccepted;
};

Strategy made(const QString& code, const QString& alias, const QVariantList& document)
{
    Strategy strategy;
    strategy.code = code;
    strategy.alias = alias;
    strategy.traits = traitsOf(code);
    for (const QVariant& element : document) {
        strategy.document.append(elementOf(element));
    }
    Head(strategy).complete();
    return strategy;
}

} // namespace

QList<Option> optionsOf(const QVariantMap& entry)
{
    QList<Option> options;
    const QVariantList list = entry.value(Field::options).toList();
    for (const QVariant& element : list) {
        const QVariantMap option = element.toMap();
        options.append({option.value(Field::display).toString(), option.value(Field::value).toString()});
    }
    return options;
}

QStringList Strategy::titles() const
{
    QStringList list;
    for (const Column& column : columns) {
        list.append(column.title);
    }
    return list;
}

const Column* Strategy::column(const QString& title) const
{
    for (const Column& column : columns) {
        if (column.title == title) {
            return &column;
        }
    }
    return nullptr;
}

QStringList Strategy::visibleNames() const
{
    QStringList names;
    for (const Element& element : document) {
        for (const Parameter& parameter : element.parameters) {
            if (parameter.visible) {
                names.append(parameter.name);
            }
        }
    }
    return names;
}

Outcome<Strategy> Strategy::parse(const QString& code, const QString& alias, const QString& paramFormats)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(paramFormats.toUtf8(), &error);
    if (error.error != QJsonParseError::NoError) {
        return {{}, error.errorString()};
    }
    return {made(code, alias, document.toVariant().toList()), QString()};
}

Strategy Strategy::withoutParameters(const QString& code, const QString& alias)
{
    return made(code, alias, {});
}

QMap<QString, QMap<QString, QString>> acceptedTexts(const Styles& styles)
{
    return {{columns::Style, styles}, {Algo_Values::AlgoParamId::traderOrder, TypedDirections}};
}

} // namespace strategy
