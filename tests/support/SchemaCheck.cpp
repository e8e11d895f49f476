#include "tests/support/SchemaCheck.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

QString typeOf(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Null:
        return key("null");
    case QJsonValue::Bool:
        return key("boolean");
    case QJsonValue::Double:
        return std::floor(value.toDouble()) == value.toDouble() ? key("integer") : key("number");
    case QJsonValue::String:
        return key("string");
    case QJsonValue::Array:
        return key("array");
    case QJsonValue::Object:
        return key("object");
    default:
        return key("nothing");
    }
}

QJsonObject schemaIn(const QString& fileName)
{
    QFile file(QDir(QStringLiteral(SCHEMA_FOLDER)).filePath(fileName));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

class Check {
public:
    QStringList faults;

    void run(const QJsonValue& value, const QJsonObject& schema, const QString& place)
    {
        if (schema.contains(key("$ref"))) {
            byFile(value, schema[key("$ref")].toString(), place);
        } else if (schema.contains(key("anyOf"))) {
            anyOf(value, schema[key("anyOf")].toArray(), place);
        } else {
            plain(value, schema, place);
        }
    }

    void byFile(const QJsonValue& value, const QString& fileName, const QString& place)
    {
        const QJsonObject schema = schemaIn(fileName);
        if (schema.isEmpty()) {
            faults.append(place + key(": no schema ") + fileName);
            return;
        }
        run(value, schema, place);
    }

private:
    void anyOf(const QJsonValue& value, const QJsonArray& schemas, const QString& place)
    {
        for (const QJsonValue& schema : schemas) {
            Check attempt;
            attempt.run(value, schema.toObject(), place);
            if (attempt.faults.isEmpty()) {
                return;
            }
        }
        faults.append(place + key(": is none of the choices"));
    }

    void plain(const QJsonValue& value, const QJsonObject& schema, const QString& place)
    {
        const QString wanted = schema[key("type")].toString();
        const QString type = typeOf(value);
        if (type != wanted && !(wanted == key("number") && type == key("integer"))) {
            faults.append(QStringLiteral("%1: %2 instead of %3").arg(place, type, wanted));
            return;
        }
        if (schema.contains(key("enum")) && !schema[key("enum")].toArray().contains(value)) {
            faults.append(place + key(": not in the enumeration"));
        }
        if (schema.contains(key("minimum")) && value.toDouble() < schema[key("minimum")].toDouble()) {
            faults.append(place + key(": below the minimum"));
        }
        if (type == key("array")) {
            items(value.toArray(), schema[key("items")].toObject(), place);
        } else if (type == key("object")) {
            properties(value.toObject(), schema, place);
        }
    }

    void items(const QJsonArray& values, const QJsonObject& schema, const QString& place)
    {
        for (int i = 0; i < values.size(); ++i) {
            run(values.at(i), schema, QStringLiteral("%1[%2]").arg(place).arg(i));
        }
    }

    void properties(const QJsonObject& object, const QJsonObject& schema, const QString& place)
    {
        const QJsonObject known = schema[key("properties")].toObject();
        const QJsonArray required = schema[key("required")].toArray();
        for (const QJsonValue& name : required) {
            if (!object.contains(name.toString())) {
                faults.append(place + key(": lacks ") + name.toString());
            }
        }
        for (auto member = object.begin(); member != object.end(); ++member) {
            const QString memberPlace = place + QLatin1Char('.') + member.key();
            if (known.contains(member.key())) {
                run(member.value(), known[member.key()].toObject(), memberPlace);
            } else if (schema[key("additionalProperties")] == QJsonValue(false)) {
                faults.append(memberPlace + key(": is not described"));
            }
        }
    }
};

} // namespace

QStringList faultsBySchema(const QJsonValue& value, const QString& schemaFile)
{
    Check check;
    check.byFile(value, schemaFile, QStringLiteral("$"));
    return check.faults;
}
