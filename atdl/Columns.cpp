#include "atdl/Columns.h"

#include "atdl/Names.h"
#include "atdl/Values.h"
#include "gateway/messages/WireNumber.h"
#include "host/AlgoConstants.h"
#include "words/Words.h"

#include <QJsonArray>
#include <QSet>

#include <algorithm>

namespace atdl {

namespace {

using gateway::wire_number::isNumber;

namespace Field = Algo_Fields::AlgoParamFields;
namespace Ui = Algo_Values::AlgoParamUiType;

const QString Null = QStringLiteral("{NULL}");

class ColumnBuilder {
public:
    ColumnBuilder(const XmlElement& element, const XmlElement* control, const Parameter& parameter,
                  LossBook& losses)
        : mElement(element), mControl(control), mParameter(parameter), mLosses(losses)
    {
    }

    QJsonObject column()
    {
        const Option byDefault = defaultOf();
        QJsonObject made = {{Field::paramId, mParameter.paramId},
                            {Field::paramName, mParameter.title},
                            {Field::required, mParameter.isRequired && byDefault.value.isEmpty()},
                            {Field::strDefault,
                             QJsonObject{{Field::display, byDefault.shown}, {Field::value, byDefault.value}}},
                            {Field::visible, true}};
        const bool isChosen = mParameter.kind == Kind::Choice || mParameter.kind == Kind::Flag;
        made.insert(Field::ui, isChosen                  ? Ui::ComboBox
                               : isTime(mParameter.kind) ? Ui::DateTime
                                                         : Ui::LineEdit);
        if (isChosen) {
            QJsonArray list;
            for (const Option& option : options()) {
                list.append(QJsonObject{{Field::display, option.shown}, {Field::value, option.value}});
            }
            made.insert(Field::options, list);
        }
        return made;
    }

private:
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
        if (mParameter.kind == Kind::Flag) {
            QList<Option> flags = {{QStringLiteral("是"), QStringLiteral("1")},
                                   {QStringLiteral("否"), QStringLiteral("0")}};
            flags.erase(std::remove_if(flags.begin(), flags.end(),
                                       [this](const Option& one) {
                                           return mParameter.hasOwnWire() &&
                                                  !mParameter.ids.contains(one.value);
                                       }),
                        flags.end());
            return flags;
        }
        QList<Option> made;
        QSet<QString> seen;
        for (const QString& id : mParameter.ids) {
            const QString shown = shownOf(id).isEmpty() ? id : shownOf(id);
            made.append({seen.contains(shown) ? Words::tr("%1（%2）").arg(shown, id) : shown, id});
            seen.insert(shown);
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
            loseOfControl(QStringLiteral("initFixField"), Words::tr("初始值取自委托的字段，表中没有"));
        }
        const QString text = mControl->attribute(QStringLiteral("initValue"));
        if (text.isEmpty() || text == Null) {
            return {};
        }
        const Option made = isTime(mParameter.kind) ? timeDefault(text) : plainDefault(text);
        if (made.value.isEmpty()) {
            loseOfControl(QStringLiteral("initValue"), Words::tr("初始值“%1”无法用作默认值").arg(text));
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
        const QTime local = mParameter.kind == Kind::Day ? QTime() : inShanghai(time, zone);
        const QString value =
            time.isValid() && local.isValid() ? local.toString(QStringLiteral("HH:mm:ss")) : QString();
        if (!value.isEmpty() && mControl->attribute(QStringLiteral("initValueMode")) == QLatin1String("1")) {
            loseOfControl(QStringLiteral("initValueMode"), Words::tr("已过初始时间时不会改用当前时间"));
        }
        return {value, value};
    }

    Option plainDefault(const QString& text) const
    {
        if (isNumeric(mParameter.kind)) {
            return isNumber(text) ? Option{text, text} : Option();
        }
        if (mParameter.kind == Kind::Text) {
            return {text, text};
        }
        if (mParameter.kind == Kind::Several) {
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
        return mParameter.kind == Kind::Flag ? QString::number(isTrue(text) ? 1 : 0) : text;
    }

    Option severalDefault(const QString& text) const
    {
        QStringList wires;
        for (const QString& id : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const QString wire = mParameter.choices.value(id);
            if (wire.isEmpty()) {
                return {};
            }
            wires.append(wire);
        }
        return {wires.join(QLatin1Char(' ')), wires.join(QLatin1Char(' '))};
    }

    const XmlElement& mElement;
    const XmlElement* mControl;
    const Parameter& mParameter;
    LossBook& mLosses;
};

} // namespace

QJsonObject columnOf(const XmlElement& element, const XmlElement* control, const Parameter& parameter,
                     LossBook& losses)
{
    return ColumnBuilder(element, control, parameter, losses).column();
}

} // namespace atdl
