#include "atdl/Parameters.h"

#include "atdl/Names.h"
#include "atdl/Values.h"
#include "gateway/messages/WireNumber.h"
#include "gateway/profile/ProfileTags.h"
#include "host/AlgoConstants.h"
#include "strategy/ColumnNames.h"
#include "strategy/ColumnRules.h"

#include <QJsonArray>

#include <algorithm>
#include <array>

namespace atdl {

namespace {

namespace Field = Algo_Fields::AlgoParamFields;
namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace Ui = Algo_Values::AlgoParamUiType;
using gateway::wire_number::isInteger;
using gateway::wire_number::isNumber;

const QString Element = QStringLiteral("Parameter");
const QString Null = QStringLiteral("{NULL}");
const QString Shanghai = QStringLiteral("Asia/Shanghai");
constexpr int SideTag = 54;

struct Type {
    const char* name;
    Kind kind;
    const char* wire; ///< as profiles name it
};

constexpr std::array<Type, 25> Types = {{{"Int_t", Kind::Whole, "Int"},
                                         {"Length_t", Kind::Whole, "Length"},
                                         {"NumInGroup_t", Kind::Whole, "NumInGroup"},
                                         {"SeqNum_t", Kind::Whole, "SeqNum"},
                                         {"TagNum_t", Kind::Whole, "TagNum"},
                                         {"Float_t", Kind::Number, "Float"},
                                         {"Qty_t", Kind::Number, "Qty"},
                                         {"Price_t", Kind::Number, "Price"},
                                         {"PriceOffset_t", Kind::Number, "PriceOffset"},
                                         {"Amt_t", Kind::Number, "Amt"},
                                         {"Percentage_t", Kind::Percent, "Percentage"},
                                         {"Char_t", Kind::Text, "Char"},
                                         {"Boolean_t", Kind::Flag, "Boolean"},
                                         {"String_t", Kind::Text, "String"},
                                         {"MultipleCharValue_t", Kind::Several, "MultipleCharValue"},
                                         {"MultipleStringValue_t", Kind::Several, "MultipleStringValue"},
                                         {"Currency_t", Kind::Text, "Currency"},
                                         {"Exchange_t", Kind::Text, "Exchange"},
                                         {"MonthYear_t", Kind::Text, "MonthYear"},
                                         {"Country_t", Kind::Text, "Country"},
                                         {"Language_t", Kind::Text, "Language"},
                                         {"Tenor_t", Kind::Text, "Tenor"},
                                         {"UTCTimestamp_t", Kind::Moment, "UTCTimestamp"},
                                         {"UTCTimeOnly_t", Kind::Clock, "UTCTimeOnly"},
                                         {"LocalMktDate_t", Kind::Day, "LocalMktDate"}}};

/// Without the prefix of a namespace.
QString typeNameOf(const XmlElement& element)
{
    return element.attribute(QStringLiteral("xsi:type")).section(QLatin1Char(':'), -1);
}

const Type* typeOf(const XmlElement& element)
{
    const QString name = typeNameOf(element);
    const auto* const found = std::find_if(Types.begin(), Types.end(),
                                           [&](const Type& one) { return name == QLatin1String(one.name); });
    return found == Types.end() ? nullptr : found;
}

bool isTime(Kind kind)
{
    return kind == Kind::Moment || kind == Kind::Clock || kind == Kind::Day;
}

bool isNumeric(Kind kind)
{
    return kind == Kind::Whole || kind == Kind::Number || kind == Kind::Percent;
}

/// Titles and identifiers that mean something by themselves.
bool isReserved(const QString& text)
{
    static const QSet<QString> own = [] {
        QSet<QString> all = {Info::Symbol,
                             Info::Exchange,
                             Info::Quantity,
                             Info::Quantity_Amount,
                             Info::PriceLimits,
                             Info::TradingAccount,
                             Info::SecurityAccount,
                             Info::fundAccount,
                             Info::SymbolMdcType,
                             Info::maxPrice,
                             Info::preClosePrice,
                             Info::minAmout,
                             Algo_Values::AlgoParamId::AlgoSecurityList,
                             Algo_Values::AlgoParamId::traderOrder,
                             Algo_Values::AlgoParamId::entrustProp,
                             columns::SecurityName,
                             columns::CreateAndStart,
                             columns::SealingAmount,
                             columns::Style,
                             columns::Code,
                             columns::Limit,
                             columns::OrderDirection,
                             instance_keys::SysNodeId,
                             instance_keys::BatchCreate,
                             instance_keys::SealingAmountInTenThousands,
                             QStringLiteral("实例备注"),
                             QStringLiteral("配对编号")};
        for (const QString& title : strategy::WholeNumberColumns) {
            all.insert(title);
        }
        for (auto it = strategy::HeadAliases.begin(); it != strategy::HeadAliases.end(); ++it) {
            all += {it.key(), it.value()};
        }
        return all;
    }();
    return own.contains(text);
}

/// Titles under which the desk knows what a standard field means, so that its own rules see it.
QString knownTitle(int tag, Kind kind)
{
    if (kind == Kind::Moment && tag == 168) {
        return Info::AlgoStartTime;
    }
    if (kind == Kind::Moment && tag == 126) {
        return Info::AlgoEndTime;
    }
    return kind == Kind::Percent && tag == 849 ? Info::participationrate : QString();
}

/// The label of its control, without a colon at the end.
QString labelOf(const XmlElement* control)
{
    QString label = control == nullptr ? QString() : control->attribute(QStringLiteral("label")).simplified();
    while (label.endsWith(QLatin1Char(':')) || label.endsWith(QChar(0xff1a))) {
        label = label.left(label.size() - 1).trimmed();
    }
    return label;
}

class Builder {
public:
    Builder(const XmlElement& element, const XmlElement* control, LossBook& losses)
        : mElement(element), mControl(control), mLosses(losses)
    {
        mMade.name = element.attribute(QStringLiteral("name"));
    }

    std::optional<Parameter> build(QSet<QString>& titles)
    {
        const Type* type = typeOf(mElement);
        if (mMade.name.isEmpty() || type == nullptr) {
            return lost(QStringLiteral("不支持的类型“%1”").arg(typeNameOf(mElement)));
        }
        if (isTrue(mElement.attribute(QStringLiteral("invertOnWire")))) {
            return lost(QStringLiteral("不支持 invertOnWire"));
        }
        mMade.kind = type->kind;
        mWire = QString::fromLatin1(type->wire);
        mMade.tag = usableTag();
        mMade.isRequired = mElement.attribute(QStringLiteral("use")) == QLatin1String("required");
        mMade.isTimesHundred = isTrue(mElement.attribute(QStringLiteral("multiplyBy100")));
        if (mElement.has(QStringLiteral("constValue"))) {
            return constant();
        }
        takeChoices();
        nameIt(titles);
        mMade.rule = rule();
        mMade.bounds = bounds();
        mMade.column = column();
        return mMade;
    }

private:
    std::optional<Parameter> lost(const QString& why)
    {
        mLosses.add(Element, mMade.name, why);
        return std::nullopt;
    }

    void lose(const QString& attribute, const QString& why)
    {
        mLosses.add(Element, QStringLiteral("%1/@%2").arg(mMade.name, attribute), why);
    }

    int usableTag()
    {
        const int tag = mElement.attribute(QStringLiteral("fixTag")).toInt();
        return tag < 1 || tag == SideTag || gateway::isReservedTag(tag) ? 0 : tag;
    }

    std::optional<Parameter> constant()
    {
        const QString value = mElement.attribute(QStringLiteral("constValue"));
        const bool isNumberAsItShould = !isNumeric(mMade.kind) || isNumber(value);
        if (value.isEmpty() || isTime(mMade.kind) || !isNumberAsItShould) {
            return lost(QStringLiteral("不支持的常量“%1”").arg(value));
        }
        mMade.constant = value;
        if (mMade.kind == Kind::Flag) {
            mMade.constant = wireOfFlag(isTrue(value));
        } else if (mMade.isTimesHundred) {
            mMade.constant = hundredfold(value);
        }
        mMade.rule = {
            {QStringLiteral("constant"), mMade.constant},
            {QStringLiteral("type"), mMade.kind == Kind::Percent ? QStringLiteral("Float") : mWire}};
        return mMade.constant == Null ? std::nullopt : std::make_optional(mMade);
    }

    QString wireOfFlag(bool value) const
    {
        const QString key = value ? QStringLiteral("trueWireValue") : QStringLiteral("falseWireValue");
        return mElement.has(key) ? mElement.attribute(key) : QString(QLatin1Char(value ? 'Y' : 'N'));
    }

    /// A choice that means "not sent" is what an empty cell says.
    void addChoice(const QString& wire, const QString& id)
    {
        if (wire == Null || wire.isEmpty()) {
            lose(id, QStringLiteral("取值 {NULL} 表示不发送：请将单元格留空"));
        } else {
            mMade.choices.insert(id, wire);
            mIds.append(id);
        }
    }

    void takeChoices()
    {
        const QList<XmlElement> pairs = mElement.all(spaces::Core, QStringLiteral("EnumPair"));
        for (const XmlElement& pair : pairs) {
            addChoice(pair.attribute(QStringLiteral("wireValue")), pair.attribute(QStringLiteral("enumID")));
        }
        const bool hasOwnWire =
            mElement.has(QStringLiteral("trueWireValue")) || mElement.has(QStringLiteral("falseWireValue"));
        if (pairs.isEmpty() && mMade.kind == Kind::Flag && hasOwnWire) {
            addChoice(wireOfFlag(true), QStringLiteral("1"));
            addChoice(wireOfFlag(false), QStringLiteral("0"));
            mHasOwnWire = true;
        } else if (!pairs.isEmpty() && mMade.kind != Kind::Several) {
            mMade.kind = Kind::Choice;
        }
    }

    void nameIt(QSet<QString>& titles)
    {
        const QString known = knownTitle(mElement.attribute(QStringLiteral("fixTag")).toInt(), mMade.kind);
        const QString label = labelOf(mControl);
        const QString last = QStringLiteral("算法参数 %1").arg(mMade.name);
        for (const QString& title : {known, label, mMade.name, last}) {
            if (mMade.title.isEmpty() && !title.isEmpty() && !isReserved(title) && !titles.contains(title)) {
                mMade.title = title;
            }
        }
        titles.insert(mMade.title);
        const bool isTaken = isReserved(mMade.name) || isGuarded(mMade.name);
        mMade.paramId = !known.isEmpty() && mMade.title == known ? known : isTaken ? last : mMade.name;
    }

    /// Read by the desk's own rules, whatever it means to the broker.
    static bool isGuarded(const QString& text)
    {
        return text == Info::AlgoStartTime || text == Info::AlgoEndTime || text == Info::participationrate;
    }

    /// Values of an enumeration are the wire's already.
    QString wireType() const
    {
        const bool isListed = mMade.kind == Kind::Choice || mHasOwnWire;
        if (isListed && (mWire == QLatin1String("Boolean") || mWire.startsWith(QLatin1String("UTC")) ||
                         mWire == QLatin1String("LocalMktDate"))) {
            return QStringLiteral("String");
        }
        const bool isPlainNumber = mWire == QLatin1String("Percentage") && (isListed || mMade.isTimesHundred);
        return isPlainNumber ? QStringLiteral("Float") : mWire;
    }

    QJsonObject rule() const
    {
        QJsonObject made = {{QStringLiteral("paramId"), mMade.paramId}, {QStringLiteral("type"), wireType()}};
        QJsonObject values;
        if (mMade.kind != Kind::Several) {
            for (auto it = mMade.choices.begin(); it != mMade.choices.end(); ++it) {
                values.insert(it.key(), it.value());
            }
        }
        if (!values.isEmpty()) {
            made.insert(QStringLiteral("values"), values);
        }
        return made;
    }

    // ---- bounds

    QJsonObject bounds()
    {
        QJsonObject made;
        if (isNumeric(mMade.kind)) {
            made = ofNumber();
        } else if (isTime(mMade.kind)) {
            made = ofTime();
        } else if (mMade.kind == Kind::Text) {
            made = ofText();
        } else if (mMade.kind == Kind::Several) {
            made = {{QStringLiteral("kind"), QStringLiteral("several")},
                    {QStringLiteral("values"), QJsonArray::fromStringList(mMade.choices.values())}};
        }
        if (!made.isEmpty()) {
            made.insert(QStringLiteral("paramId"), mMade.paramId);
            made.insert(QStringLiteral("title"), mMade.title);
        }
        return made;
    }

    QJsonObject ofNumber()
    {
        QJsonObject made = {{QStringLiteral("kind"), mMade.kind == Kind::Whole ? QStringLiteral("integer")
                                                                               : QStringLiteral("number")}};
        takeNumber(made, QStringLiteral("minValue"), QStringLiteral("min"));
        takeNumber(made, QStringLiteral("maxValue"), QStringLiteral("max"));
        if (mElement.has(QStringLiteral("precision"))) {
            const int precision = mElement.attribute(QStringLiteral("precision")).toInt();
            const bool isOfFraction = mMade.kind == Kind::Percent && !mMade.isTimesHundred;
            made.insert(QStringLiteral("decimals"), qMax(0, isOfFraction ? precision - 2 : precision));
        }
        return made;
    }

    void takeNumber(QJsonObject& made, const QString& attribute, const QString& key)
    {
        const QString text = mElement.attribute(attribute);
        if (isNumber(text)) {
            made.insert(key, mMade.kind == Kind::Percent ? hundredfold(text) : text);
        } else if (mElement.has(attribute)) {
            lose(attribute, QStringLiteral("“%1”不是数字").arg(text));
        }
    }

    QJsonObject ofTime()
    {
        QJsonObject made;
        takeTime(made, QStringLiteral("minValue"), QStringLiteral("min"));
        takeTime(made, QStringLiteral("maxValue"), QStringLiteral("max"));
        if (!made.isEmpty() && mMade.kind != Kind::Day) {
            made.insert(QStringLiteral("timeZone"), zone());
        }
        if (!made.isEmpty()) {
            made.insert(QStringLiteral("kind"),
                        mMade.kind == Kind::Day ? QStringLiteral("day") : QStringLiteral("time"));
        }
        return made;
    }

    /// Bounds are local times of the market; those of a time alone, and of Z, are the wire's own.
    QString zone() const
    {
        bool minIsUtc = false;
        bool maxIsUtc = false;
        timeOf(mElement.attribute(QStringLiteral("minValue")), minIsUtc);
        timeOf(mElement.attribute(QStringLiteral("maxValue")), maxIsUtc);
        const QString named = mElement.attribute(QStringLiteral("localMktTz"));
        if (minIsUtc || maxIsUtc || (named.isEmpty() && mMade.kind == Kind::Clock)) {
            return QStringLiteral("UTC");
        }
        return named.isEmpty() ? Shanghai : named;
    }

    void takeTime(QJsonObject& made, const QString& attribute, const QString& key)
    {
        bool isUtc = false;
        const QString text = mElement.attribute(attribute);
        const QTime time = timeOf(text, isUtc);
        const QDate date = dateOf(text);
        if (mMade.kind == Kind::Day && date.isValid()) {
            made.insert(key, date.toString(Qt::ISODate));
        } else if (mMade.kind != Kind::Day && time.isValid() && isKnownZone(zone())) {
            made.insert(key, time.toString(QStringLiteral("HH:mm:ss")));
        } else if (mElement.has(attribute)) {
            lose(attribute, QStringLiteral("“%1”（时区“%2”）不是可用的时间").arg(text, zone()));
        }
    }

    QJsonObject ofText()
    {
        QJsonObject made;
        for (const QString& key : {QStringLiteral("minLength"), QStringLiteral("maxLength")}) {
            if (mElement.has(key)) {
                made.insert(key, mElement.attribute(key).toInt());
            }
        }
        if (mWire == QLatin1String("Char")) {
            made.insert(QStringLiteral("maxLength"), 1);
        }
        if (!made.isEmpty()) {
            made.insert(QStringLiteral("kind"), QStringLiteral("text"));
        }
        return made;
    }

    // ---- the column

    struct Option {
        QString shown;
        QString value;
    };

    QString shownOf(const QString& id) const
    {
        const QList<XmlElement> items = mControl == nullptr
                                            ? QList<XmlElement>()
                                            : mControl->all(spaces::Layout, QStringLiteral("ListItem"));
        for (const XmlElement& item : items) {
            if (item.attribute(QStringLiteral("enumID")) == id) {
                return item.attribute(QStringLiteral("uiRep"));
            }
        }
        return QString();
    }

    /// What is shown is unique: the table finds a value by it.
    QList<Option> options() const
    {
        if (mMade.kind == Kind::Flag) {
            QList<Option> flags = {{QStringLiteral("是"), QStringLiteral("1")},
                                   {QStringLiteral("否"), QStringLiteral("0")}};
            flags.erase(std::remove_if(
                            flags.begin(), flags.end(),
                            [this](const Option& one) { return mHasOwnWire && !mIds.contains(one.value); }),
                        flags.end());
            return flags;
        }
        QList<Option> made;
        QSet<QString> seen;
        for (const QString& id : mIds) {
            const QString shown = shownOf(id).isEmpty() ? id : shownOf(id);
            made.append({seen.contains(shown) ? QStringLiteral("%1（%2）").arg(shown, id) : shown, id});
            seen.insert(shown);
        }
        return made;
    }

    QJsonObject column()
    {
        const Option byDefault = defaultOf();
        QJsonObject made = {{Field::paramId, mMade.paramId},
                            {Field::paramName, mMade.title},
                            {Field::required, mMade.isRequired && byDefault.value.isEmpty()},
                            {Field::strDefault,
                             QJsonObject{{Field::display, byDefault.shown}, {Field::value, byDefault.value}}},
                            {Field::visible, true}};
        const bool isChosen = mMade.kind == Kind::Choice || mMade.kind == Kind::Flag;
        made.insert(Field::ui, isChosen ? Ui::ComboBox : isTime(mMade.kind) ? Ui::DateTime : Ui::LineEdit);
        if (isChosen) {
            QJsonArray list;
            for (const Option& option : options()) {
                list.append(QJsonObject{{Field::display, option.shown}, {Field::value, option.value}});
            }
            made.insert(Field::options, list);
        }
        return made;
    }

    /// What an empty cell means: the value with which the control begins.
    Option defaultOf()
    {
        if (mControl == nullptr) {
            return {};
        }
        if (mControl->attribute(QStringLiteral("initPolicy")) == QLatin1String("UseFixField")) {
            loseOfControl(QStringLiteral("initFixField"), QStringLiteral("初始值取自委托的字段，表中没有"));
        }
        const QString text = mControl->attribute(QStringLiteral("initValue"));
        if (text.isEmpty() || text == Null) {
            return {};
        }
        const Option made = isTime(mMade.kind) ? timeDefault(text) : plainDefault(text);
        if (made.value.isEmpty()) {
            loseOfControl(QStringLiteral("initValue"), QStringLiteral("初始值“%1”无法用作默认值").arg(text));
        }
        return made;
    }

    void loseOfControl(const QString& attribute, const QString& why)
    {
        mLosses.add(QStringLiteral("Control"),
                    QStringLiteral("%1/@%2").arg(mControl->attribute(QStringLiteral("ID")), attribute), why);
    }

    Option timeDefault(const QString& text)
    {
        bool isUtc = false;
        const QTime time = timeOf(text, isUtc);
        QString zone = mControl->attribute(QStringLiteral("localMktTz"));
        zone = zone.isEmpty() ? mElement.attribute(QStringLiteral("localMktTz")) : zone;
        zone = isUtc ? QStringLiteral("UTC") : zone.isEmpty() ? Shanghai : zone;
        const QTime local = mMade.kind == Kind::Day ? QTime() : inShanghai(time, zone);
        const QString value =
            time.isValid() && local.isValid() ? local.toString(QStringLiteral("HH:mm:ss")) : QString();
        if (!value.isEmpty() && mControl->attribute(QStringLiteral("initValueMode")) == QLatin1String("1")) {
            loseOfControl(QStringLiteral("initValueMode"), QStringLiteral("已过初始时间时不会改用当前时间"));
        }
        return {value, value};
    }

    Option plainDefault(const QString& text) const
    {
        if (isNumeric(mMade.kind)) {
            return isNumber(text) ? Option{text, text} : Option();
        }
        if (mMade.kind == Kind::Text) {
            return {text, text};
        }
        if (mMade.kind == Kind::Several) {
            return severalDefault(text);
        }
        const QList<Option> known = options();
        const QString id = checkedId(text);
        const auto found =
            std::find_if(known.begin(), known.end(), [&](const Option& one) { return one.value == id; });
        return found == known.end() ? Option() : *found;
    }

    /// The choice that a control begins with: named, or by a box that is checked or not.
    QString checkedId(const QString& text) const
    {
        const QString reference =
            isTrue(text) ? QStringLiteral("checkedEnumRef") : QStringLiteral("uncheckedEnumRef");
        if (mControl->has(reference)) {
            return mControl->attribute(reference);
        }
        return mMade.kind == Kind::Flag ? QString::number(isTrue(text) ? 1 : 0) : text;
    }

    Option severalDefault(const QString& text) const
    {
        QStringList wires;
        for (const QString& id : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const QString wire = mMade.choices.value(id);
            if (wire.isEmpty()) {
                return {};
            }
            wires.append(wire);
        }
        return {wires.join(QLatin1Char(' ')), wires.join(QLatin1Char(' '))};
    }

    const XmlElement& mElement;
    const XmlElement* mControl;
    LossBook& mLosses;
    Parameter mMade;
    QString mWire;
    QStringList mIds; ///< of choices, in the document's order
    bool mHasOwnWire = false;
};

} // namespace

std::optional<QString> Parameter::inTable(const QString& wireValue) const
{
    if (!choices.isEmpty() && kind != Kind::Several) {
        const QString typed = choices.key(wireValue);
        return typed.isEmpty() ? std::nullopt : std::make_optional(typed);
    }
    switch (kind) {
    case Kind::Whole:
    case Kind::Number:
        return isNumber(wireValue) ? std::make_optional(wireValue) : std::nullopt;
    case Kind::Percent:
        if (!isNumber(wireValue)) {
            return std::nullopt;
        }
        return isTimesHundred ? wireValue : hundredfold(wireValue);
    case Kind::Flag:
        return QString::number(isTrue(wireValue) ? 1 : 0);
    case Kind::Text:
        return wireValue;
    case Kind::Choice:
    case Kind::Several:
    case Kind::Moment:
    case Kind::Clock:
    case Kind::Day:
        break;
    }
    return std::nullopt;
}

std::optional<Parameter> parameterOf(const XmlElement& element, const XmlElement* control,
                                     QSet<QString>& titles, LossBook& losses)
{
    return Builder(element, control, losses).build(titles);
}

} // namespace atdl
