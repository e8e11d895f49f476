// As a file holds it: docs/schema/mapping.schema.json.

#include "desk/mapping/Cells.h"
#include "desk/mapping/Mapping.h"
#include "gateway/profile/JsonSection.h"
#include "words/Words.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

namespace mapping {

namespace {

using gateway::JsonSection;

constexpr qint64 MostBytes = 1 << 20;

template <typename Value> using Named = QList<QPair<QString, Value>>;

const Named<Form>& forms()
{
    static const Named<Form> names = {
        {QStringLiteral("asIs"), Form::AsIs},         {QStringLiteral("code"), Form::Code},
        {QStringLiteral("quantity"), Form::Quantity}, {QStringLiteral("amount"), Form::Amount},
        {QStringLiteral("decimal"), Form::Decimal},   {QStringLiteral("dateTime"), Form::DateTime}};
    return names;
}

const Named<DateOrder>& orders()
{
    static const Named<DateOrder> names = {{QStringLiteral("yearFirst"), DateOrder::YearFirst},
                                           {QStringLiteral("dayFirst"), DateOrder::DayFirst},
                                           {QStringLiteral("monthFirst"), DateOrder::MonthFirst}};
    return names;
}

template <typename Value> QString nameOf(Value value, const Named<Value>& names)
{
    for (const auto& name : names) {
        if (name.second == value) {
            return name.first;
        }
    }
    return QString();
}

template <typename Value> Value takeNamed(JsonSection& section, const QString& key, const Named<Value>& names)
{
    const QString text = section.takeText(key);
    QStringList known;
    for (const auto& name : names) {
        if (name.first == text) {
            return name.second;
        }
        known.append(name.first);
    }
    if (!text.isEmpty()) {
        section.complain(key, Words::tr("未知的值“%1”，应为 %2 之一").arg(text, known.join(Words::tr("、"))));
    }
    return names.first().second;
}

/// A title may be empty, or hold blanks.
QString takeTitle(JsonSection& section, const QString& key, bool mayBeEmpty)
{
    const QJsonValue value = section.take(key);
    if (!value.isString() || (!mayBeEmpty && value.toString().isEmpty())) {
        section.complain(key, value.isUndefined() ? Words::tr("缺少") : Words::tr("应为文本"));
    }
    return value.toString();
}

QMap<QString, QString> takeTextMap(JsonSection& section, const QString& key)
{
    const JsonSection texts = section.takeSection(key);
    const QJsonObject object = section.take(key).toObject();
    QMap<QString, QString> map;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        if (!entry->isString()) {
            texts.complain(entry.key(), Words::tr("应为文本"));
        }
        map[entry.key()] = entry->toString();
    }
    return map;
}

QMap<QString, QString> takeValues(JsonSection& section)
{
    const QString key = QStringLiteral("values");
    const QMap<QString, QString> values = takeTextMap(section, key);
    QSet<QString> seen;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (folded(value.key()).isEmpty()) {
            section.complain(key, Words::tr("空文本不能作为值"));
        } else if (seen.contains(folded(value.key()))) {
            section.complain(key, Words::tr("“%1”与另一个值只差大小写或空格").arg(value.key()));
        }
        seen.insert(folded(value.key()));
    }
    return values;
}

Column takeColumn(JsonSection section)
{
    Column column;
    column.from = takeTitle(section, QStringLiteral("from"), true);
    column.number = section.takePositive(QStringLiteral("number"), 1);
    column.to = takeTitle(section, QStringLiteral("to"), false);
    column.form = takeNamed(section, QStringLiteral("form"), forms());
    column.order = takeNamed(section, QStringLiteral("order"), orders());
    column.values = takeValues(section);
    section.complainOfTheRest();
    return column;
}

QList<Column> takeColumns(JsonSection& section)
{
    const QString key = QStringLiteral("columns");
    const QJsonValue value = section.take(key);
    if (!value.isArray() || value.toArray().isEmpty()) {
        section.complain(key, value.isUndefined() ? Words::tr("缺少") : Words::tr("应为非空数组"));
    }
    QList<Column> columns;
    const QJsonArray array = value.toArray();
    for (int i = 0; i < array.size(); ++i) {
        const QString place = QStringLiteral("%1[%2]").arg(key).arg(i);
        if (!array.at(i).isObject()) {
            section.complain(place, Words::tr("应为对象"));
            continue;
        }
        columns.append(
            takeColumn(JsonSection(array.at(i).toObject(), section.pathOf(place), section.complaints())));
    }
    return columns;
}

/// A column of the strategy has one source, and a column of the file one use.
void complainOfDoubles(const Mapping& mapping, const JsonSection& section)
{
    QSet<QString> targets;
    QSet<QPair<QString, int>> sources;
    for (int i = 0; i < mapping.columns.size(); ++i) {
        const Column& column = mapping.columns.at(i);
        const QString place = QStringLiteral("columns[%1].").arg(i);
        if (!column.to.isEmpty() && targets.contains(column.to)) {
            section.complain(place + QLatin1String("to"), Words::tr("“%1”已经有一列").arg(column.to));
        }
        if (sources.contains({column.from, column.number})) {
            section.complain(place + QLatin1String("from"), Words::tr("“%1”已经用过").arg(column.from));
        }
        targets.insert(column.to);
        sources.insert({column.from, column.number});
    }
    for (auto constant = mapping.constants.cbegin(); constant != mapping.constants.cend(); ++constant) {
        if (targets.contains(constant.key())) {
            section.complain(QStringLiteral("constants.") + constant.key(), Words::tr("这一列已由文件给出"));
        }
    }
}

QJsonObject toJson(const QMap<QString, QString>& texts)
{
    QJsonObject object;
    for (auto text = texts.cbegin(); text != texts.cend(); ++text) {
        object[text.key()] = *text;
    }
    return object;
}

QJsonObject toJson(const Column& column)
{
    QJsonObject json = {{QStringLiteral("from"), column.from}, {QStringLiteral("to"), column.to}};
    if (column.number > 1) {
        json[QStringLiteral("number")] = column.number;
    }
    if (column.form != Form::AsIs) {
        json[QStringLiteral("form")] = nameOf(column.form, forms());
    }
    if (column.order != DateOrder::YearFirst) {
        json[QStringLiteral("order")] = nameOf(column.order, orders());
    }
    if (!column.values.isEmpty()) {
        json[QStringLiteral("values")] = toJson(column.values);
    }
    return json;
}

} // namespace

QJsonObject toJson(const Mapping& mapping)
{
    QJsonArray columns;
    for (const Column& column : mapping.columns) {
        columns.append(toJson(column));
    }
    QJsonObject json = {{QStringLiteral("strategy"), mapping.strategy}, {QStringLiteral("columns"), columns}};
    if (!mapping.sheet.isEmpty()) {
        json[QStringLiteral("sheet")] = mapping.sheet;
    }
    if (mapping.headerLine > 0) {
        json[QStringLiteral("headerLine")] = mapping.headerLine;
    }
    if (!mapping.constants.isEmpty()) {
        json[QStringLiteral("constants")] = toJson(mapping.constants);
    }
    return json;
}

QJsonObject asEdit(const Mapping& mapping)
{
    return {{QStringLiteral("edit"), QStringLiteral("map")}, {QStringLiteral("mapping"), toJson(mapping)}};
}

Outcome<Mapping> fromJson(const QByteArray& json)
{
    QJsonParseError fault;
    const QJsonDocument document = QJsonDocument::fromJson(json, &fault);
    if (fault.error != QJsonParseError::NoError) {
        return {{},
                Words::tr("不是有效的 JSON（第 %1 字节）：%2").arg(fault.offset).arg(fault.errorString())};
    }
    if (!document.isObject()) {
        return {{}, Words::tr("映射应为一个 JSON 对象")};
    }
    QStringList complaints;
    JsonSection section(document.object(), QString(), complaints);
    Mapping mapping;
    mapping.strategy = takeTitle(section, QStringLiteral("strategy"), false);
    mapping.sheet = section.takeText(QStringLiteral("sheet"));
    mapping.headerLine = section.takePositive(QStringLiteral("headerLine"), 0);
    mapping.columns = takeColumns(section);
    mapping.constants = takeTextMap(section, QStringLiteral("constants"));
    section.complainOfTheRest();
    complainOfDoubles(mapping, section);
    return {mapping, complaints.join(Words::tr("；"))};
}

Outcome<Mapping> readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {{}, QStringLiteral("%1: %2").arg(path, file.errorString())};
    }
    const QByteArray bytes = file.read(MostBytes + 1);
    if (bytes.size() > MostBytes) {
        return {{}, QStringLiteral("%1: %2").arg(path, Words::tr("映射文件过大"))};
    }
    Outcome<Mapping> read = fromJson(bytes);
    if (!read.ok()) {
        read.error = QStringLiteral("%1: %2").arg(path, read.error);
    }
    return read;
}

} // namespace mapping
