#include "gateway/profile/Profile.h"

#include "gateway/profile/JsonSection.h"
#include "gateway/profile/ProfileTags.h"
#include "words/Words.h"

#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <algorithm>

namespace gateway {

namespace {

const int HighestTag = 99999999;
const int SideTag = 54;

/// Whose fields they are: a direction's, or a strategy's.
enum class Owner { Side, Strategy };

bool isFree(int tag, Owner owner)
{
    if (owner == Owner::Side) {
        return !isReservedTag(tag);
    }
    return tag != SideTag && (!isReservedTag(tag) || isReplaceableTag(tag));
}

const QHash<QString, ValueType>& valueTypes()
{
    static const QHash<QString, ValueType> types = {
        {QStringLiteral("Int"), ValueType::Int},
        {QStringLiteral("Length"), ValueType::Length},
        {QStringLiteral("NumInGroup"), ValueType::NumInGroup},
        {QStringLiteral("SeqNum"), ValueType::SeqNum},
        {QStringLiteral("TagNum"), ValueType::TagNum},
        {QStringLiteral("Float"), ValueType::Float},
        {QStringLiteral("Qty"), ValueType::Qty},
        {QStringLiteral("Price"), ValueType::Price},
        {QStringLiteral("PriceOffset"), ValueType::PriceOffset},
        {QStringLiteral("Amt"), ValueType::Amt},
        {QStringLiteral("Percentage"), ValueType::Percentage},
        {QStringLiteral("Char"), ValueType::Char},
        {QStringLiteral("Boolean"), ValueType::Boolean},
        {QStringLiteral("String"), ValueType::String},
        {QStringLiteral("MultipleCharValue"), ValueType::MultipleCharValue},
        {QStringLiteral("Currency"), ValueType::Currency},
        {QStringLiteral("Exchange"), ValueType::Exchange},
        {QStringLiteral("MonthYear"), ValueType::MonthYear},
        {QStringLiteral("UTCTimestamp"), ValueType::UtcTimestamp},
        {QStringLiteral("UTCTimeOnly"), ValueType::UtcTimeOnly},
        {QStringLiteral("LocalMktDate"), ValueType::LocalMktDate},
        {QStringLiteral("MultipleStringValue"), ValueType::MultipleStringValue},
        {QStringLiteral("Country"), ValueType::Country},
        {QStringLiteral("Language"), ValueType::Language},
        {QStringLiteral("Tenor"), ValueType::Tenor},
    };
    return types;
}

/// What a field can hold: something, and no byte that ends it.
bool isFieldValue(const QString& text)
{
    return !text.isEmpty() &&
           std::none_of(text.begin(), text.end(), [](QChar one) { return one.unicode() < 0x20; });
}

/// The tag that a key names; 0 after a complaint.
int tagOf(const QString& key, const JsonSection& section, Owner owner)
{
    bool isNumber = false;
    const int tag = key.toInt(&isNumber);
    if (!isNumber || tag < 1 || tag > HighestTag || QString::number(tag) != key) {
        section.complain(key, Words::tr("应为字段号"));
        return 0;
    }
    if (!isFree(tag, owner)) {
        section.complain(key, Words::tr("字段 %1 由程序填写").arg(tag));
        return 0;
    }
    return tag;
}

QList<Constant> readConstants(JsonSection section, Owner owner)
{
    QList<Constant> constants;
    const QStringList keys = section.keys();
    for (const QString& key : keys) {
        const int tag = tagOf(key, section, owner);
        const QString value = section.takeText(key);
        if (tag != 0 && !value.isEmpty() && !isFieldValue(value)) {
            section.complain(key, Words::tr("含有控制字符"));
        }
        constants.append({tag, value});
    }
    std::sort(constants.begin(), constants.end(),
              [](const Constant& one, const Constant& other) { return one.tag < other.tag; });
    return constants;
}

QMap<QString, QString> readTexts(JsonSection section)
{
    QMap<QString, QString> texts;
    const QStringList keys = section.keys();
    for (const QString& key : keys) {
        const QString value = section.takeText(key);
        if (!value.isEmpty() && !isFieldValue(value)) {
            section.complain(key, Words::tr("含有控制字符"));
        }
        texts.insert(key, value);
    }
    return texts;
}

QMap<QString, QList<Constant>> readSides(JsonSection section)
{
    QMap<QString, QList<Constant>> sides;
    const QStringList keys = section.keys();
    for (const QString& key : keys) {
        const QList<Constant> fields = readConstants(section.takeSection(key), Owner::Side);
        if (std::none_of(fields.begin(), fields.end(),
                         [](const Constant& field) { return field.tag == SideTag; })) {
            section.complain(key, Words::tr("缺少字段 54"));
        }
        sides.insert(key, fields);
    }
    return sides;
}

int readTag(JsonSection& section, const QString& key)
{
    const int tag = section.takePositive(key, 0);
    if (tag != 0 && (isReservedTag(tag) || tag == SideTag)) {
        section.complain(key, Words::tr("字段 %1 由程序填写").arg(tag));
    }
    return tag;
}

/// What is sent: a parameter of the row, or a constant.
void readSource(JsonSection& section, ParameterRule& rule)
{
    rule.constant = section.takeText(QStringLiteral("constant"));
    rule.paramId = section.takeText(QStringLiteral("paramId"));
    if (!rule.constant.isEmpty() && !isFieldValue(rule.constant)) {
        section.complain(QStringLiteral("constant"), Words::tr("含有控制字符"));
    }
    if (!rule.constant.isEmpty() && section.has(QStringLiteral("values"))) {
        section.complain(QStringLiteral("values"), Words::tr("常量没有取值"));
    }
    if (section.has(QStringLiteral("constant")) && section.has(QStringLiteral("paramId"))) {
        section.complain(QStringLiteral("constant"), Words::tr("constant 与 paramId 应有且只有一个"));
    } else if (rule.paramId.isEmpty() && rule.constant.isEmpty()) {
        section.complain(QStringLiteral("paramId"), Words::tr("缺少"));
    }
}

ParameterRule readParameter(JsonSection section)
{
    ParameterRule rule;
    readSource(section, rule);
    rule.tag = readTag(section, QStringLiteral("tag"));
    rule.name = section.takeText(QStringLiteral("name"));
    if (section.has(QStringLiteral("tag")) == section.has(QStringLiteral("name"))) {
        section.complain(QStringLiteral("tag"), Words::tr("tag 与 name 应有且只有一个"));
    }
    const QString type = section.takeText(QStringLiteral("type"));
    if (!valueTypes().contains(type)) {
        section.complain(QStringLiteral("type"), Words::tr("未知的类型“%1”").arg(type));
    }
    rule.type = valueTypes().value(type, ValueType::String);
    rule.values = readTexts(section.takeSection(QStringLiteral("values")));
    if (section.has(QStringLiteral("values")) && rule.values.isEmpty()) {
        section.complain(QStringLiteral("values"), Words::tr("没有任何取值"));
    }
    rule.legTag = readTag(section, QStringLiteral("legTag"));
    section.complainOfTheRest();
    return rule;
}

/// A field, a name or a parameter that stands twice would make a message that nobody can read.
void complainOfTwins(const StrategyRule& rule, const JsonSection& section)
{
    QSet<QString> names;
    QSet<QString> parameters;
    QSet<int> tags;
    for (const Constant& field : rule.fields) {
        tags.insert(field.tag);
    }
    for (int i = 0; i < rule.parameters.size(); ++i) {
        const ParameterRule& one = rule.parameters.at(i);
        const QString place = QStringLiteral("parameters[%1]").arg(i);
        if ((one.tag != 0 && tags.contains(one.tag)) || names.contains(one.name) ||
            (!one.paramId.isEmpty() && parameters.contains(one.paramId))) {
            section.complain(place, Words::tr("重复"));
        }
        if (one.tag != 0) {
            tags.insert(one.tag);
        } else {
            names.insert(one.name);
        }
        parameters.insert(one.paramId);
    }
    for (const QString& ignored : rule.ignored) {
        if (parameters.contains(ignored)) {
            section.complain(QStringLiteral("ignore"), Words::tr("参数“%1”既要发送又要忽略").arg(ignored));
        }
    }
}

QList<ParameterRule> readParameters(JsonSection& section)
{
    const QString key = QStringLiteral("parameters");
    const QJsonValue value = section.take(key);
    if (!value.isUndefined() && !value.isArray()) {
        section.complain(key, Words::tr("应为数组"));
    }
    const QJsonArray array = value.toArray();
    QList<ParameterRule> rules;
    for (int i = 0; i < array.size(); ++i) {
        const QString place = QStringLiteral("%1[%2]").arg(key).arg(i);
        if (!array.at(i).isObject()) {
            section.complain(place, Words::tr("应为对象"));
            continue;
        }
        rules.append(
            readParameter(JsonSection(array.at(i).toObject(), section.pathOf(place), section.complaints())));
    }
    return rules;
}

StrategyRule readStrategy(JsonSection section)
{
    StrategyRule rule;
    rule.fields = readConstants(section.takeSection(QStringLiteral("fields")), Owner::Strategy);
    rule.parameters = readParameters(section);
    rule.ignored = section.takeTexts(QStringLiteral("ignore"));
    section.complainOfTheRest();
    complainOfTwins(rule, section);
    return rule;
}

QMap<QString, StrategyRule> readStrategies(JsonSection section)
{
    QMap<QString, StrategyRule> strategies;
    const QStringList keys = section.keys();
    for (const QString& key : keys) {
        strategies.insert(key, readStrategy(section.takeSection(key)));
    }
    return strategies;
}

void complainOfMissing(const JsonSection& section)
{
    for (const char* key : {"exchanges", "sides", "strategies"}) {
        if (!section.has(QLatin1String(key))) {
            section.complain(QLatin1String(key), Words::tr("缺少"));
        }
    }
}

Profile readAll(JsonSection section)
{
    Profile profile;
    profile.accounts = section.takeTexts(QStringLiteral("accounts"));
    if (section.has(QStringLiteral("accounts")) && profile.accounts.isEmpty()) {
        section.complain(QStringLiteral("accounts"), Words::tr("没有任何账号；所有账号请删去此键"));
    }
    profile.statusTimeoutSeconds =
        section.takePositive(QStringLiteral("statusTimeoutSeconds"), profile.statusTimeoutSeconds);
    profile.statusRequest = section.takeSwitch(QStringLiteral("statusRequest"), profile.statusRequest);
    profile.possResend = section.takeSwitch(QStringLiteral("possResend"), profile.possResend);
    profile.exchanges = readTexts(section.takeSection(QStringLiteral("exchanges")));
    profile.sides = readSides(section.takeSection(QStringLiteral("sides")));
    profile.strategies = readStrategies(section.takeSection(QStringLiteral("strategies")));
    complainOfMissing(section);
    section.complainOfTheRest();
    return profile;
}

/// "line 3, column 7" of an offset in bytes.
QString placeOf(const QByteArray& json, int offset)
{
    const QByteArray before = json.left(offset);
    const int line = before.count('\n') + 1;
    const int column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    return Words::tr("第 %1 行第 %2 列").arg(line).arg(column);
}

} // namespace

Outcome<Profile> readProfile(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        return {{},
                Words::tr("%1：不是正确的 JSON（%2）").arg(placeOf(json, error.offset), error.errorString())};
    }
    if (!document.isObject()) {
        return {{}, Words::tr("应为一个 JSON 对象")};
    }
    QStringList complaints;
    const Profile profile = readAll(JsonSection(document.object(), QString(), complaints));
    return complaints.isEmpty() ? Outcome<Profile>{profile, QString()}
                                : Outcome<Profile>{{}, complaints.join(QLatin1Char('\n'))};
}

Outcome<Profile> loadProfile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {{}, Words::tr("无法读取“%1”：%2").arg(path, file.errorString())};
    }
    Outcome<Profile> read = readProfile(file.readAll());
    if (!read.ok()) {
        read.error = Words::tr("“%1”：%2").arg(path, read.error);
    }
    return read;
}

} // namespace gateway
