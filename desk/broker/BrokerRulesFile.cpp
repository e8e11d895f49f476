// strategy_rules.json, read and checked.

#include "desk/broker/BrokerRules.h"
#include "embedded_host/reference_data/ReferenceFaults.h"
#include "embedded_host/reference_data/ReferenceFile.h"
#include "embedded_host/reference_data/ReferenceFolder.h"
#include "gateway/messages/WireNumber.h"
#include "gateway/profile/JsonSection.h"
#include "words/Words.h"

#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTime>
#include <QTimeZone>

namespace broker {

namespace {

using gateway::JsonSection;

constexpr int MostLevels = 64;
const QString FileName = QStringLiteral("strategy_rules.json");

const QMap<QString, Bounds::Kind>& boundKinds()
{
    static const QMap<QString, Bounds::Kind> kinds = {{QStringLiteral("integer"), Bounds::Kind::Integer},
                                                      {QStringLiteral("number"), Bounds::Kind::Number},
                                                      {QStringLiteral("time"), Bounds::Kind::Time},
                                                      {QStringLiteral("day"), Bounds::Kind::Day},
                                                      {QStringLiteral("text"), Bounds::Kind::Text},
                                                      {QStringLiteral("several"), Bounds::Kind::Several}};
    return kinds;
}

const QMap<QString, Node::Kind>& logicKinds()
{
    static const QMap<QString, Node::Kind> kinds = {{QStringLiteral("AND"), Node::Kind::And},
                                                    {QStringLiteral("OR"), Node::Kind::Or},
                                                    {QStringLiteral("XOR"), Node::Kind::Xor},
                                                    {QStringLiteral("NOT"), Node::Kind::Not}};
    return kinds;
}

/// The objects of an array, each with its path.
QList<JsonSection> takeSections(JsonSection& section, const QString& key)
{
    const QJsonValue value = section.take(key);
    if (!value.isUndefined() && !value.isArray()) {
        section.complain(key, Words::tr("应为数组"));
    }
    QList<JsonSection> sections;
    const QJsonArray array = value.toArray();
    for (int i = 0; i < array.size(); ++i) {
        const QString place = QStringLiteral("%1[%2]").arg(key).arg(i);
        if (array.at(i).isObject()) {
            sections.append(JsonSection(array.at(i).toObject(), section.pathOf(place), section.complaints()));
        } else {
            section.complain(place, Words::tr("应为对象"));
        }
    }
    return sections;
}

/// A whole number from 0; -1 where there is none.
int takeCount(JsonSection& section, const QString& key)
{
    const QJsonValue value = section.take(key);
    const int count = value.toInt(-1);
    if (!value.isUndefined() && count < 0) {
        section.complain(key, Words::tr("应为非负整数"));
    }
    return count;
}

bool isBound(const Bounds& bounds, const QString& text)
{
    switch (bounds.kind) {
    case Bounds::Kind::Integer:
    case Bounds::Kind::Number:
        return gateway::wire_number::isNumber(text);
    case Bounds::Kind::Time:
        return QTime::fromString(text, QStringLiteral("HH:mm:ss")).isValid();
    case Bounds::Kind::Day:
        return QDate::fromString(text, Qt::ISODate).isValid();
    case Bounds::Kind::Text:
    case Bounds::Kind::Several:
        break;
    }
    return false;
}

QString takeBound(JsonSection& section, const Bounds& bounds, const QString& key)
{
    const QString text = section.takeText(key);
    if (!text.isEmpty() && !isBound(bounds, text)) {
        section.complain(key, Words::tr("不是界限：%1").arg(text));
    }
    return text;
}

QString takeNeeded(JsonSection& section, const QString& key)
{
    const QString text = section.takeText(key);
    if (!section.has(key)) {
        section.complain(key, Words::tr("缺少"));
    }
    return text;
}

Bounds readBounds(JsonSection section)
{
    Bounds bounds;
    bounds.paramId = takeNeeded(section, QStringLiteral("paramId"));
    bounds.title = takeNeeded(section, QStringLiteral("title"));
    const QString kind = takeNeeded(section, QStringLiteral("kind"));
    if (!kind.isEmpty() && !boundKinds().contains(kind)) {
        section.complain(QStringLiteral("kind"), Words::tr("未知的类型“%1”").arg(kind));
    }
    bounds.kind = boundKinds().value(kind, Bounds::Kind::Text);
    bounds.min = takeBound(section, bounds, QStringLiteral("min"));
    bounds.max = takeBound(section, bounds, QStringLiteral("max"));
    bounds.timeZone = section.takeText(QStringLiteral("timeZone"));
    if (bounds.kind == Bounds::Kind::Time && !QTimeZone(bounds.timeZone.toUtf8()).isValid()) {
        section.complain(QStringLiteral("timeZone"), Words::tr("没有时区“%1”").arg(bounds.timeZone));
    }
    bounds.values = section.takeTexts(QStringLiteral("values"));
    bounds.minLength = takeCount(section, QStringLiteral("minLength"));
    bounds.maxLength = takeCount(section, QStringLiteral("maxLength"));
    bounds.decimals = takeCount(section, QStringLiteral("decimals"));
    section.complainOfTheRest();
    return bounds;
}

Node readNode(JsonSection section, int level);

Node readBranch(JsonSection& section, int level)
{
    Node node;
    const QString logic = section.takeText(QStringLiteral("logic"));
    node.kind = logicKinds().value(logic, Node::Kind::And);
    for (const JsonSection& child : takeSections(section, QStringLiteral("of"))) {
        node.of.append(readNode(child, level + 1));
    }
    const bool isSound = logicKinds().contains(logic) && !node.of.isEmpty() &&
                         (node.kind != Node::Kind::Not || node.of.size() == 1);
    if (!isSound) {
        section.complain(QStringLiteral("logic"), Words::tr("“%1”有误").arg(logic));
    }
    return node;
}

Node readLeaf(JsonSection& section)
{
    static const QStringList comparisons = {QStringLiteral("EQ"), QStringLiteral("NE"), QStringLiteral("LT"),
                                            QStringLiteral("LE"), QStringLiteral("GT"), QStringLiteral("GE")};
    Node node;
    node.operation = takeNeeded(section, QStringLiteral("operator"));
    node.field = takeNeeded(section, QStringLiteral("field"));
    if (node.operation == QLatin1String("EX") || node.operation == QLatin1String("NX")) {
        node.kind = node.operation == QLatin1String("EX") ? Node::Kind::Exists : Node::Kind::Lacks;
        return node;
    }
    node.kind = Node::Kind::Compare;
    node.asNumbers = section.takeText(QStringLiteral("kind")) == QLatin1String("number");
    node.value = section.takeText(QStringLiteral("value"));
    node.field2 = section.takeText(QStringLiteral("field2"));
    if (!comparisons.contains(node.operation)) {
        section.complain(QStringLiteral("operator"), Words::tr("“%1”有误").arg(node.operation));
    }
    if (section.has(QStringLiteral("value")) == section.has(QStringLiteral("field2"))) {
        section.complain(QStringLiteral("value"), Words::tr("value 与 field2 应有且只有一个"));
    }
    return node;
}

Node readNode(JsonSection section, int level)
{
    Node node;
    if (level > MostLevels) {
        section.complain(QStringLiteral("logic"), Words::tr("嵌套过深"));
    } else if (section.has(QStringLiteral("always"))) {
        node.kind =
            section.takeSwitch(QStringLiteral("always"), true) ? Node::Kind::Always : Node::Kind::Never;
    } else {
        node = section.has(QStringLiteral("logic")) ? readBranch(section, level) : readLeaf(section);
    }
    section.complainOfTheRest();
    return node;
}

Condition readCondition(JsonSection section)
{
    Condition condition;
    condition.message = section.take(QStringLiteral("message")).toString();
    condition.holds = readNode(section.takeSection(QStringLiteral("holds")), 0);
    section.complainOfTheRest();
    return condition;
}

Rules readRules(JsonSection section)
{
    Rules rules;
    for (const JsonSection& one : takeSections(section, QStringLiteral("parameters"))) {
        rules.parameters.append(readBounds(one));
    }
    for (const JsonSection& one : takeSections(section, QStringLiteral("conditions"))) {
        rules.conditions.append(readCondition(one));
    }
    if (section.has(QStringLiteral("exchanges"))) {
        rules.exchanges = section.takeTexts(QStringLiteral("exchanges"));
    }
    section.complainOfTheRest();
    return rules;
}

} // namespace

Outcome<BrokerRules> BrokerRules::read(const QString& folder)
{
    const QString path = folder + QLatin1Char('/') + FileName;
    if (!isReferenceFileThere(path)) {
        return {};
    }
    const Outcome<QByteArray> json = readReferenceFile(path, reference_limits::JsonBytes);
    return json.ok() ? parse(json.value, path) : Outcome<BrokerRules>{{}, json.error};
}

Outcome<BrokerRules> BrokerRules::parse(const QByteArray& json, const QString& path)
{
    QJsonParseError syntax;
    const QJsonDocument document = QJsonDocument::fromJson(json, &syntax);
    if (syntax.error != QJsonParseError::NoError) {
        const int line = 1 + json.left(syntax.offset).count('\n');
        return {{}, reference_faults::at(path, line, reference_faults::jsonSyntax(syntax.errorString()))};
    }
    if (!document.isObject()) {
        return {{}, reference_faults::at(path, 1, Words::tr("最外层应为对象"))};
    }
    QStringList complaints;
    JsonSection section(document.object(), QString(), complaints);
    BrokerRules read;
    for (const QString& code : section.keys()) {
        read.mRules.insert(code, readRules(section.takeSection(code)));
    }
    return complaints.isEmpty() ? Outcome<BrokerRules>{read, QString()}
                                : Outcome<BrokerRules>{{}, reference_faults::at(path, 1, complaints.first())};
}

} // namespace broker
