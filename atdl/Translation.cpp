#include "atdl/Translation.h"

#include "atdl/Conditions.h"
#include "atdl/Markets.h"
#include "atdl/Names.h"
#include "atdl/OrderColumns.h"
#include "atdl/Parameters.h"
#include "atdl/Tags.h"
#include "atdl/Unread.h"
#include "atdl/Values.h"
#include "host/AlgoConstants.h"
#include "strategy/Traits.h"
#include "words/Words.h"

#include <QHash>

#include <algorithm>

namespace atdl {

namespace {

const QString StrategyElement = QStringLiteral("Strategy");

/// Every control of the layout that shows a parameter, by the parameter's name; the first of several.
void collectControls(const XmlElement& element, QHash<QString, const XmlElement*>& controls)
{
    for (const XmlElement& child : element.children) {
        const QString shown = child.attribute(QStringLiteral("parameterRef"));
        if (child.is(spaces::Layout, QStringLiteral("Control")) && !shown.isEmpty() &&
            !controls.contains(shown)) {
            controls.insert(shown, &child);
        }
        collectControls(child, controls);
    }
}

class StrategyTranslation {
public:
    StrategyTranslation(const XmlElement& document, const XmlElement& strategy, Translation& made)
        : mDocument(document), mStrategy(strategy), mMade(made),
          mCode(strategy.attribute(QStringLiteral("name"))), mLosses(mCode, made.losses)
    {
    }

    void run()
    {
        tellOfUnread(mStrategy, mLosses);
        const QString obstacle = obstacleOfStrategy();
        const QString fault = obstacle.isEmpty() ? readParameters() : obstacle;
        if (!fault.isEmpty()) {
            mLosses.add(StrategyElement, mCode, Words::tr("整个算法未写出：%1").arg(fault));
            return;
        }
        const QJsonArray conditions = conditionsOf(mDocument, mStrategy, mParameters, mLosses);
        const std::optional<QStringList> exchanges = exchangesOf(mStrategy, mLosses);
        mMade.strategies.append(entry());
        mMade.profile[QStringLiteral("strategies")] = withStrategy(profileRule());
        addRules(conditions, exchanges);
        addSummary(conditions, exchanges);
    }

private:
    QString obstacleOfStrategy() const
    {
        const strategy::Traits traits = strategy::traitsOf(mCode);
        const bool isSpecial = traits.isPaired() || traits.has(strategy::CollateralOnly) ||
                               traits.has(strategy::Futures) || traits.has(strategy::PriceLimit) ||
                               traits.has(strategy::StartsOnCreate) || traits.has(strategy::TellsRepayment);
        const QString message = mStrategy.attribute(QStringLiteral("fixMsgType"));
        if (mCode.isEmpty() || isSpecial) {
            return Words::tr("算法代码“%1”在本系统另有含义或为空").arg(mCode);
        }
        if (mMade.rules.contains(mCode) || isTwice()) {
            return Words::tr("算法代码“%1”重复").arg(mCode);
        }
        if (!message.isEmpty() && message != QLatin1String("D")) {
            return Words::tr("消息类型“%1”不是 D").arg(message);
        }
        if (mStrategy.attribute(QStringLiteral("wireValue")).isEmpty()) {
            return Words::tr("缺少 wireValue");
        }
        return usableTagOf(mDocument, QStringLiteral("strategyIdentifierTag")) == 0
                   ? Words::tr("strategyIdentifierTag 缺少或由程序填写")
                   : QString();
    }

    bool isTwice() const
    {
        return std::any_of(mMade.strategies.begin(), mMade.strategies.end(), [this](const QJsonValue& one) {
            return one.toObject().value(QStringLiteral("name")).toString() == mCode;
        });
    }

    /// Why the strategy cannot go out without what was lost; empty: it can.
    QString readParameters()
    {
        QHash<QString, const XmlElement*> controls;
        collectControls(mStrategy, controls);
        QSet<QString> titles;
        QSet<QString> names;
        const QList<XmlElement> elements = mStrategy.all(spaces::Core, QStringLiteral("Parameter"));
        for (const XmlElement& element : elements) {
            const QString name = element.attribute(QStringLiteral("name"));
            const bool isTwin = names.contains(name);
            names.insert(name);
            const std::optional<Parameter> parameter =
                isTwin ? std::nullopt : parameterOf(element, controls.value(name), titles, mLosses);
            const bool isNeeded = element.attribute(QStringLiteral("use")) == QLatin1String("required") ||
                                  element.has(QStringLiteral("constValue"));
            if (isTwin || (!parameter && isNeeded)) {
                return Words::tr("必填参数或常量“%1”无法转换").arg(name);
            }
            if (parameter) {
                mParameters.append(*parameter);
            }
        }
        return placeOnWire();
    }

    /// Fields of their own where all have one, else the group: never both.
    QString placeOnWire()
    {
        const bool takesGroup = isTrue(mDocument.attribute(QStringLiteral("tag957Support")));
        const auto hasTag = [](const Parameter& one) { return one.tag != 0; };
        mByName = takesGroup && !std::all_of(mParameters.begin(), mParameters.end(), hasTag);
        QList<Parameter> placed;
        for (const Parameter& one : mParameters) {
            if (mByName || hasTag(one)) {
                placed.append(one);
                continue;
            }
            mLosses.add(QStringLiteral("Parameter"), one.name,
                        Words::tr("没有可用的 fixTag，文件也不支持参数组（tag957Support）"));
            if (one.isRequired || one.isConstant()) {
                return Words::tr("必填参数或常量“%1”没有去处").arg(one.name);
            }
        }
        mParameters = placed;
        return QString();
    }

    QJsonObject entry() const
    {
        QJsonArray formats = orderColumns();
        for (const Parameter& one : mParameters) {
            if (!one.isConstant()) {
                formats.append(one.column);
            }
        }
        formats.append(remarkColumn());
        const QString alias = mStrategy.attribute(QStringLiteral("uiRep"));
        return {{QStringLiteral("name"), mCode},
                {QStringLiteral("alias"), alias.isEmpty() ? mCode : alias},
                {QStringLiteral("globalType"), Algo_Values::AlgoGlobalType::algo},
                {QStringLiteral("paramFormats"), formats}};
    }

    QJsonObject profileRule()
    {
        QJsonArray parameters;
        for (const Parameter& one : mParameters) {
            QJsonObject rule = one.rule;
            if (mByName) {
                rule.insert(QStringLiteral("name"), one.name);
                tellOfNumberType(one);
            } else {
                rule.insert(QStringLiteral("tag"), one.tag);
            }
            parameters.append(rule);
        }
        return {{QStringLiteral("fields"), identifiers()},
                {QStringLiteral("parameters"), parameters},
                {QStringLiteral("ignore"), QJsonArray{Remark}}};
    }

    void tellOfNumberType(const Parameter& one)
    {
        if (one.isTimesHundred) {
            mLosses.add(QStringLiteral("Parameter"), one.name + QStringLiteral("/@multiplyBy100"),
                        Words::tr("参数组中的类型（959）为 Float，不是 Percentage"));
        }
    }

    QJsonObject identifiers()
    {
        QJsonObject fields;
        const int strategyTag = usableTagOf(mDocument, QStringLiteral("strategyIdentifierTag"));
        fields.insert(QString::number(strategyTag), mStrategy.attribute(QStringLiteral("wireValue")));
        const QString version = mStrategy.attribute(QStringLiteral("version"));
        const int versionTag = usableTagOf(mDocument, QStringLiteral("versionIdentifierTag"));
        if (versionTag != 0 && versionTag != strategyTag && !version.isEmpty()) {
            fields.insert(QString::number(versionTag), version);
        } else if (mDocument.has(QStringLiteral("versionIdentifierTag"))) {
            mLosses.add(StrategyElement, mCode + QStringLiteral("/@version"),
                        Words::tr("版本号没有可用的字段"));
        }
        return fields;
    }

    QJsonObject withStrategy(const QJsonObject& rule) const
    {
        QJsonObject all = mMade.profile.value(QStringLiteral("strategies")).toObject();
        all.insert(mCode, rule);
        return all;
    }

    void addRules(const QJsonArray& conditions, const std::optional<QStringList>& exchanges)
    {
        QJsonObject rules;
        QJsonArray bounds;
        for (const Parameter& one : mParameters) {
            if (!one.bounds.isEmpty()) {
                bounds.append(one.bounds);
            }
        }
        if (!bounds.isEmpty()) {
            rules.insert(QStringLiteral("parameters"), bounds);
        }
        if (!conditions.isEmpty()) {
            rules.insert(QStringLiteral("conditions"), conditions);
        }
        if (exchanges) {
            rules.insert(QStringLiteral("exchanges"), QJsonArray::fromStringList(*exchanges));
        }
        if (!rules.isEmpty()) {
            mMade.rules.insert(mCode, rules);
        }
    }

    void addSummary(const QJsonArray& conditions, const std::optional<QStringList>& exchanges)
    {
        const auto constants = std::count_if(mParameters.begin(), mParameters.end(),
                                             [](const Parameter& one) { return one.isConstant(); });
        const QJsonObject last = mMade.strategies.last().toObject();
        mMade.summaries.append(QJsonObject{
            {QStringLiteral("code"), mCode},
            {QStringLiteral("alias"), last.value(QStringLiteral("alias"))},
            {QStringLiteral("parameters"), mParameters.size() - static_cast<int>(constants)},
            {QStringLiteral("constants"), static_cast<int>(constants)},
            {QStringLiteral("conditions"), conditions.size()},
            {QStringLiteral("exchanges"),
             exchanges ? QJsonValue(QJsonArray::fromStringList(*exchanges)) : QJsonValue(QJsonValue::Null)}});
    }

    const XmlElement& mDocument;
    const XmlElement& mStrategy;
    Translation& mMade;
    QString mCode;
    LossBook mLosses;
    QList<Parameter> mParameters;
    bool mByName = false;
};

QJsonObject emptyProfile()
{
    QJsonObject exchanges;
    for (const MarketName& name : marketNames()) {
        exchanges.insert(name.exchange, name.mic);
    }
    const QString side = QString::number(SideTag);
    return {{QStringLiteral("exchanges"), exchanges},
            {QStringLiteral("sides"),
             QJsonObject{{Algo_Values::AlgoOrderSide::BuyValue, QJsonObject{{side, QStringLiteral("1")}}},
                         {Algo_Values::AlgoOrderSide::SellValue, QJsonObject{{side, QStringLiteral("2")}}}}},
            {QStringLiteral("strategies"), QJsonObject()}};
}

} // namespace

Outcome<Translation> translate(const QByteArray& document)
{
    const Outcome<XmlElement> read = readXml(document);
    if (!read.ok()) {
        return {{}, read.error};
    }
    if (!read.value.is(spaces::Core, QStringLiteral("Strategies"))) {
        return {{},
                Words::tr("不是 FIXatdl 1.1 文件：最外层是“%1”，命名空间“%2”")
                    .arg(read.value.name, read.value.space)};
    }
    Translation made;
    made.profile = emptyProfile();
    LossBook ofDocument(QString(), made.losses);
    tellOfUnreadOfDocument(read.value, ofDocument);
    const QList<XmlElement> strategies = read.value.all(spaces::Core, StrategyElement);
    if (strategies.isEmpty()) {
        return {{}, Words::tr("文件中没有算法（Strategy）")};
    }
    for (const XmlElement& strategy : strategies) {
        StrategyTranslation(read.value, strategy, made).run();
    }
    return {made, QString()};
}

} // namespace atdl
