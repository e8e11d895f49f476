#include "atdl/Parameters.h"

#include "atdl/Bounds.h"
#include "atdl/Columns.h"
#include "atdl/Names.h"
#include "atdl/Tags.h"
#include "atdl/Titles.h"
#include "atdl/Values.h"
#include "gateway/messages/WireNumber.h"
#include "words/Words.h"

namespace atdl {

namespace {

using gateway::wire_number::isNumber;

const QString Element = QStringLiteral("Parameter");
const QString Null = QStringLiteral("{NULL}");

class ParameterBuilder {
public:
    ParameterBuilder(const XmlElement& element, const XmlElement* control, LossBook& losses)
        : mElement(element), mControl(control), mLosses(losses)
    {
        mMade.name = element.attribute(QStringLiteral("name"));
    }

    std::optional<Parameter> build(QSet<QString>& titles)
    {
        const Type* type = typeOf(mElement);
        if (mMade.name.isEmpty() || type == nullptr) {
            return lost(Words::tr("不支持的类型“%1”").arg(typeNameOf(mElement)));
        }
        if (isTrue(mElement.attribute(QStringLiteral("invertOnWire")))) {
            return lost(Words::tr("不支持 invertOnWire"));
        }
        mMade.kind = type->kind;
        mMade.wire = QString::fromLatin1(type->wire);
        mMade.tag = usableTag();
        mMade.isRequired = mElement.attribute(QStringLiteral("use")) == QLatin1String("required");
        mMade.isTimesHundred = isTrue(mElement.attribute(QStringLiteral("multiplyBy100")));
        if (mElement.has(QStringLiteral("constValue"))) {
            return constant();
        }
        takeChoices();
        nameIt(titles);
        mMade.rule = rule();
        mMade.bounds = boundsOf(mElement, mMade, mLosses);
        mMade.column = columnOf(mElement, mControl, mMade, mLosses);
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

    int usableTag() { return usableTagOf(mElement, QStringLiteral("fixTag")); }

    std::optional<Parameter> constant()
    {
        const QString value = mElement.attribute(QStringLiteral("constValue"));
        const bool isNumberAsItShould = !isNumeric(mMade.kind) || isNumber(value);
        if (value.isEmpty() || isTime(mMade.kind) || !isNumberAsItShould) {
            return lost(Words::tr("不支持的常量“%1”").arg(value));
        }
        mMade.constant = value;
        if (mMade.kind == Kind::Flag) {
            mMade.constant = wireOfFlag(isTrue(value));
        } else if (mMade.isTimesHundred) {
            mMade.constant = hundredfold(value);
        }
        mMade.rule = {
            {QStringLiteral("constant"), mMade.constant},
            {QStringLiteral("type"), mMade.kind == Kind::Percent ? QStringLiteral("Float") : mMade.wire}};
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
            lose(id, Words::tr("取值 {NULL} 表示不发送：请将单元格留空"));
        } else {
            mMade.choices.insert(id, wire);
            mMade.ids.append(id);
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

    /// Values of an enumeration are the wire's already.
    QString wireType() const
    {
        const bool isListed = mMade.kind == Kind::Choice || mMade.hasOwnWire();
        if (isListed &&
            (mMade.wire == QLatin1String("Boolean") || mMade.wire.startsWith(QLatin1String("UTC")) ||
             mMade.wire == QLatin1String("LocalMktDate"))) {
            return QStringLiteral("String");
        }
        const bool isPlainNumber =
            mMade.wire == QLatin1String("Percentage") && (isListed || mMade.isTimesHundred);
        return isPlainNumber ? QStringLiteral("Float") : mMade.wire;
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

    const XmlElement& mElement;
    const XmlElement* mControl;
    LossBook& mLosses;
    Parameter mMade;
};

} // namespace

bool Parameter::hasOwnWire() const
{
    return kind == Kind::Flag && !ids.isEmpty();
}

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
    return ParameterBuilder(element, control, losses).build(titles);
}

} // namespace atdl
