#include "tools/catalogue/Catalogue.h"

#include "host/AlgoConstants.h"

#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace Field = Algo_Fields::AlgoParamFields;
namespace UiType = Algo_Values::AlgoParamUiType;

namespace catalogue {

namespace {

const QString ParametersFile = QStringLiteral("parameters.json");
const QString FamiliesFile = QStringLiteral("families.json");
const QString StrategiesFile = QStringLiteral("strategies.json");
const QString OwnParameters = QStringLiteral("*");
const QString SecurityTable = QStringLiteral("证券列表");

/// What stops the composition: "FILE: what is wrong".
struct SourceFault {
    QString text;
};

[[noreturn]] void fail(const QString& file, const QString& what)
{
    throw SourceFault{file + QLatin1String(": ") + what};
}

QJsonValue readJson(const QString& folder, const QString& name, QJsonValue::Type wanted)
{
    QFile file(folder + QLatin1Char('/') + name);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(name, file.errorString());
    }
    QJsonParseError syntax;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &syntax);
    if (syntax.error != QJsonParseError::NoError) {
        fail(name, syntax.errorString());
    }
    const QJsonValue whole =
        document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    if (whole.type() != wanted) {
        fail(name,
             wanted == QJsonValue::Array ? QStringLiteral("is no array") : QStringLiteral("is no object"));
    }
    return whole;
}

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
}

QStringList keys(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toVariant().toStringList();
}

using Attributes = QHash<QString, QJsonValue::Type>;

/// An entry of a file. A misspelt attribute, or one of another type, would otherwise vanish silently.
QJsonObject checked(const QJsonValue& entry, const Attributes& known, const QString& file,
                    const QString& where)
{
    if (!entry.isObject()) {
        fail(file, QStringLiteral("%1 is no object").arg(where));
    }
    const QJsonObject object = entry.toObject();
    for (auto attribute = object.begin(); attribute != object.end(); ++attribute) {
        if (!known.contains(attribute.key())) {
            fail(file, QStringLiteral("%1 has an unknown attribute %2").arg(where, attribute.key()));
        }
        if (attribute->type() != known.value(attribute.key())) {
            fail(file, QStringLiteral("%1 has a %2 of another type").arg(where, attribute.key()));
        }
    }
    return object;
}

const Attributes& parameterAttributes()
{
    static const Attributes attributes = {
        {QStringLiteral("name"), QJsonValue::String},    {QStringLiteral("id"), QJsonValue::String},
        {QStringLiteral("ui"), QJsonValue::String},      {QStringLiteral("required"), QJsonValue::Bool},
        {QStringLiteral("visible"), QJsonValue::Bool},   {QStringLiteral("options"), QJsonValue::Array},
        {QStringLiteral("default"), QJsonValue::String},
    };
    return attributes;
}

const Attributes& familyAttributes()
{
    static const Attributes attributes = {{QStringLiteral("table"), QJsonValue::Array},
                                          {QStringLiteral("parameters"), QJsonValue::Array}};
    return attributes;
}

const Attributes& strategyAttributes()
{
    static const Attributes attributes = {
        {QStringLiteral("name"), QJsonValue::String},   {QStringLiteral("alias"), QJsonValue::String},
        {QStringLiteral("family"), QJsonValue::String}, {QStringLiteral("own"), QJsonValue::Array},
        {QStringLiteral("without"), QJsonValue::Array},
    };
    return attributes;
}

/// "value=display", each; the display may hold a further "=".
QJsonArray optionsOf(const QStringList& options)
{
    QJsonArray list;
    for (const QString& option : options) {
        const int equals = option.indexOf(QLatin1Char('='));
        list.append(
            QJsonObject{{Field::value, option.left(equals)}, {Field::display, option.mid(equals + 1)}});
    }
    return list;
}

QString displayOf(const QString& value, const QJsonArray& options)
{
    for (const QJsonValue& option : options) {
        if (option.toObject().value(Field::value).toString() == value) {
            return option.toObject().value(Field::display).toString();
        }
    }
    return value;
}

QJsonObject documentEntry(const QString& key, const QJsonObject& source)
{
    const QString name = text(source, "name");
    if (name.isEmpty()) {
        fail(ParametersFile, QStringLiteral("%1 has no name").arg(key));
    }
    const QString id = text(source, "id");
    const QString ui = text(source, "ui");
    const QString byDefault = text(source, "default");
    const QJsonArray options = optionsOf(keys(source, "options"));
    QJsonObject entry{{Field::paramName, name},
                      {Field::paramId, id.isEmpty() ? name : id},
                      {Field::ui, ui.isEmpty() ? UiType::LineEdit : ui},
                      {Field::visible, source.value(QLatin1String("visible")).toBool(true)},
                      {Field::required, source.value(QLatin1String("required")).toBool(false)},
                      {Field::strDefault, QJsonObject{{Field::value, byDefault},
                                                      {Field::display, displayOf(byDefault, options)}}}};
    if (!options.isEmpty()) {
        entry.insert(Field::options, options);
    }
    return entry;
}

class Composer {
public:
    explicit Composer(const QString& folder)
        : mParameters(readJson(folder, ParametersFile, QJsonValue::Object).toObject()),
          mFamilies(readJson(folder, FamiliesFile, QJsonValue::Object).toObject()),
          mStrategies(readJson(folder, StrategiesFile, QJsonValue::Array).toArray())
    {
    }

    QJsonArray compose() const
    {
        QJsonArray catalogue;
        QSet<QString> names;
        for (const QJsonValue& value : mStrategies) {
            const QString code = text(value.toObject(), "name");
            const QJsonObject strategy = checked(value, strategyAttributes(), StrategiesFile, code);
            for (const char* key : {"name", "alias"}) {
                const QString name = text(strategy, key);
                if (name.isEmpty() || names.contains(name)) {
                    fail(StrategiesFile,
                         QStringLiteral("%1 is missing or not unique: %2").arg(QLatin1String(key), name));
                }
                names.insert(name);
            }
            catalogue.append(composed(strategy));
        }
        return catalogue;
    }

private:
    QJsonObject composed(const QJsonObject& strategy) const
    {
        const QString name = text(strategy, "name");
        const QString family = text(strategy, "family");
        if (!mFamilies.contains(family)) {
            fail(StrategiesFile, QStringLiteral("%1 is of an unknown family %2").arg(name, family));
        }
        return {
            {QStringLiteral("name"), name},
            {QStringLiteral("alias"), text(strategy, "alias")},
            {QStringLiteral("globalType"), Algo_Values::AlgoGlobalType::algo},
            {QStringLiteral("paramFormats"),
             document(strategy, checked(mFamilies.value(family), familyAttributes(), FamiliesFile, family))}};
    }

    QJsonArray document(const QJsonObject& strategy, const QJsonObject& family) const
    {
        QJsonArray columns;
        for (const QString& key : keys(family, "table")) {
            columns.append(parameter(key, FamiliesFile));
        }
        QJsonArray entries{QJsonObject{{Field::paramName, SecurityTable},
                                       {Field::paramId, Algo_Values::AlgoParamId::AlgoSecurityList},
                                       {Field::ui, UiType::Table},
                                       {Field::columns, columns}}};
        for (const QString& key : instanceKeys(strategy, family)) {
            const bool own = keys(strategy, "own").contains(key);
            entries.append(parameter(key, own ? StrategiesFile : FamiliesFile));
        }
        return entries;
    }

    static QStringList instanceKeys(const QJsonObject& strategy, const QJsonObject& family)
    {
        QStringList result;
        for (const QString& key : keys(family, "parameters")) {
            result += key == OwnParameters ? keys(strategy, "own") : QStringList(key);
        }
        for (const QString& key : keys(strategy, "without")) {
            if (result.removeAll(key) == 0) {
                fail(StrategiesFile, QStringLiteral("%1 is without %2, which its family does not have")
                                         .arg(text(strategy, "name"), key));
            }
        }
        return result;
    }

    /// `namedIn`: the file that wants it.
    QJsonObject parameter(const QString& key, const QString& namedIn) const
    {
        if (!mParameters.contains(key)) {
            fail(namedIn, QStringLiteral("%1 is no parameter").arg(key));
        }
        return documentEntry(key,
                             checked(mParameters.value(key), parameterAttributes(), ParametersFile, key));
    }

    const QJsonObject mParameters;
    const QJsonObject mFamilies;
    const QJsonArray mStrategies;
};

QByteArray indent(int depth)
{
    return QByteArray(4 * depth, ' ');
}

QByteArray compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray listed(const QJsonArray& objects, int depth, QByteArray (*toLine)(const QJsonObject&, int))
{
    QList<QByteArray> lines;
    for (const QJsonValue& object : objects) {
        lines.append(indent(depth + 1) + toLine(object.toObject(), depth + 1));
    }
    return "[\n" + lines.join(",\n") + '\n' + indent(depth) + ']';
}

/// `object` with its array `key` written out below it, one element a line.
QByteArray withList(QJsonObject object, const QString& key, int depth,
                    QByteArray (*toLine)(const QJsonObject&, int))
{
    const QJsonArray list = object.take(key).toArray();
    QByteArray head = compact(object);
    head.chop(1);
    return head + ",\"" + key.toUtf8() + "\":" + listed(list, depth, toLine) + '}';
}

QByteArray columnLine(const QJsonObject& column, int)
{
    return compact(column);
}

QByteArray parameterLine(const QJsonObject& entry, int depth)
{
    return entry.contains(Field::columns) ? withList(entry, Field::columns, depth, columnLine)
                                          : compact(entry);
}

QByteArray strategyLine(const QJsonObject& strategy, int depth)
{
    return withList(strategy, QStringLiteral("paramFormats"), depth, parameterLine);
}

} // namespace

QByteArray compose(const QString& sourceFolder, QString& error)
{
    error.clear();
    try {
        return listed(Composer(sourceFolder).compose(), 0, strategyLine) + '\n';
    } catch (const SourceFault& fault) {
        error = fault.text;
        return QByteArray();
    }
}

} // namespace catalogue
