#include "atdl/Bounds.h"

#include "atdl/Values.h"
#include "gateway/messages/WireNumber.h"
#include "words/Words.h"

#include <QJsonArray>

namespace atdl {

namespace {

using gateway::wire_number::isNumber;

class BoundsBuilder {
public:
    BoundsBuilder(const XmlElement& element, const Parameter& parameter, LossBook& losses)
        : mElement(element), mParameter(parameter), mLosses(losses)
    {
    }

    QJsonObject bounds()
    {
        QJsonObject made;
        if (isNumeric(mParameter.kind)) {
            made = ofNumber();
        } else if (isTime(mParameter.kind)) {
            made = ofTime();
        } else if (mParameter.kind == Kind::Text) {
            made = ofText();
        } else if (mParameter.kind == Kind::Several) {
            made = {{QStringLiteral("kind"), QStringLiteral("several")},
                    {QStringLiteral("values"), QJsonArray::fromStringList(mParameter.choices.values())}};
        }
        if (!made.isEmpty()) {
            made.insert(QStringLiteral("paramId"), mParameter.paramId);
            made.insert(QStringLiteral("title"), mParameter.title);
        }
        return made;
    }

private:
    QJsonObject ofNumber()
    {
        QJsonObject made = {{QStringLiteral("kind"), mParameter.kind == Kind::Whole
                                                         ? QStringLiteral("integer")
                                                         : QStringLiteral("number")}};
        takeNumber(made, QStringLiteral("minValue"), QStringLiteral("min"));
        takeNumber(made, QStringLiteral("maxValue"), QStringLiteral("max"));
        if (mElement.has(QStringLiteral("precision"))) {
            const int precision = mElement.attribute(QStringLiteral("precision")).toInt();
            const bool isOfFraction = mParameter.kind == Kind::Percent && !mParameter.isTimesHundred;
            made.insert(QStringLiteral("decimals"), qMax(0, isOfFraction ? precision - 2 : precision));
        }
        return made;
    }

    void takeNumber(QJsonObject& made, const QString& attribute, const QString& key)
    {
        const QString text = mElement.attribute(attribute);
        if (isNumber(text)) {
            made.insert(key, mParameter.kind == Kind::Percent ? hundredfold(text) : text);
        } else if (mElement.has(attribute)) {
            lose(attribute, Words::tr("“%1”不是数字").arg(text));
        }
    }

    QJsonObject ofTime()
    {
        QJsonObject made;
        takeTime(made, QStringLiteral("minValue"), QStringLiteral("min"));
        takeTime(made, QStringLiteral("maxValue"), QStringLiteral("max"));
        if (!made.isEmpty() && mParameter.kind != Kind::Day) {
            made.insert(QStringLiteral("timeZone"), zone());
        }
        if (!made.isEmpty()) {
            made.insert(QStringLiteral("kind"),
                        mParameter.kind == Kind::Day ? QStringLiteral("day") : QStringLiteral("time"));
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
        if (minIsUtc || maxIsUtc || (named.isEmpty() && mParameter.kind == Kind::Clock)) {
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
        if (mParameter.kind == Kind::Day && date.isValid()) {
            made.insert(key, date.toString(Qt::ISODate));
        } else if (mParameter.kind != Kind::Day && time.isValid() && isKnownZone(zone())) {
            made.insert(key, time.toString(QStringLiteral("HH:mm:ss")));
        } else if (mElement.has(attribute)) {
            lose(attribute, Words::tr("“%1”（时区“%2”）不是可用的时间").arg(text, zone()));
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
        if (mParameter.wire == QLatin1String("Char")) {
            made.insert(QStringLiteral("maxLength"), 1);
        }
        if (!made.isEmpty()) {
            made.insert(QStringLiteral("kind"), QStringLiteral("text"));
        }
        return made;
    }

    void lose(const QString& attribute, const QString& why)
    {
        mLosses.add(QStringLiteral("Parameter"), QStringLiteral("%1/@%2").arg(mParameter.name, attribute),
                    why);
    }

    const XmlElement& mElement;
    const Parameter& mParameter;
    LossBook& mLosses;
};

} // namespace

QJsonObject boundsOf(const XmlElement& element, const Parameter& parameter, LossBook& losses)
{
    return BoundsBuilder(element, parameter, losses).bounds();
}

} // namespace atdl
