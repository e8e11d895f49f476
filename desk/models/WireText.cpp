#include "desk/models/WireText.h"

#include <QFile>
#include <QHash>
#include <QMap>
#include <QSet>
#include <QXmlStreamReader>

static void initDictionaries()
{
    Q_INIT_RESOURCE(dictionaries); // a resource of a static library is asked for, or left out
}

namespace wire_text {

namespace {

const QChar Separator(1);

/// Names of fields and messages.
struct Names {
    QHash<int, QString> fields;
    QHash<QString, QString> messages; ///< by type

    void add(const QString& dictionary)
    {
        QFile file(dictionary);
        if (!file.open(QIODevice::ReadOnly)) {
            return;
        }
        QXmlStreamReader xml(&file);
        while (!xml.atEnd()) {
            xml.readNext();
            const QXmlStreamAttributes attributes = xml.attributes();
            const QString name = attributes.value(QLatin1String("name")).toString();
            if (attributes.hasAttribute(QLatin1String("number"))) {
                fields.insert(attributes.value(QLatin1String("number")).toInt(), name);
            } else if (attributes.hasAttribute(QLatin1String("msgtype"))) {
                messages.insert(attributes.value(QLatin1String("msgtype")).toString(), name);
            }
        }
    }
};

const Names& names()
{
    static const Names all = [] {
        initDictionaries();
        Names read;
        for (const char* name : {"FIXT11", "FIX50SP2", "FIX44"}) {
            read.add(QStringLiteral(":/dictionaries/%1.xml").arg(QLatin1String(name)));
        }
        return read;
    }();
    return all;
}

const QMap<QString, QString>& chineseNames()
{
    static const QMap<QString, QString> all = {
        {QStringLiteral("0"), QStringLiteral("心跳")},     {QStringLiteral("1"), QStringLiteral("测试请求")},
        {QStringLiteral("2"), QStringLiteral("重传请求")}, {QStringLiteral("3"), QStringLiteral("会话拒绝")},
        {QStringLiteral("4"), QStringLiteral("序号重置")}, {QStringLiteral("5"), QStringLiteral("登出")},
        {QStringLiteral("8"), QStringLiteral("执行回报")}, {QStringLiteral("9"), QStringLiteral("撤单拒绝")},
        {QStringLiteral("A"), QStringLiteral("登录")},     {QStringLiteral("AB"), QStringLiteral("多腿委托")},
        {QStringLiteral("D"), QStringLiteral("委托")},     {QStringLiteral("F"), QStringLiteral("撤单")},
        {QStringLiteral("H"), QStringLiteral("状态查询")}, {QStringLiteral("j"), QStringLiteral("业务拒绝")}};
    return all;
}

/// BeginString, BodyLength, CheckSum, MsgSeqNum, MsgType, the two parties, SendingTime.
bool isOfTheSession(int tag)
{
    static const QSet<int> tags = {8, 9, 10, 34, 35, 49, 52, 56};
    return tags.contains(tag);
}

} // namespace

QList<Field> fieldsOf(const QString& message)
{
    QList<Field> fields;
    const QStringList parts = message.split(Separator, Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        const int equals = part.indexOf(QLatin1Char('='));
        bool isNumber = false;
        const int tag = part.left(equals).toInt(&isNumber);
        if (equals > 0 && isNumber) {
            fields.append({tag, names().fields.value(tag), part.mid(equals + 1)});
        }
    }
    return fields;
}

QString valueOf(const QList<Field>& fields, int tag)
{
    for (const Field& field : fields) {
        if (field.tag == tag) {
            return field.value;
        }
    }
    return {};
}

QString messageName(const QString& type)
{
    const QString name = names().messages.value(type);
    return QStringList({chineseNames().value(type), name.isEmpty() ? type : name})
        .join(QLatin1Char(' '))
        .trimmed();
}

QString summaryOf(const QList<Field>& fields)
{
    QStringList texts;
    for (const Field& field : fields) {
        if (!isOfTheSession(field.tag)) {
            const QString name = field.name.isEmpty() ? QString::number(field.tag) : field.name;
            texts.append(name + QLatin1Char('=') + field.value);
        }
    }
    return texts.join(QStringLiteral("  "));
}

} // namespace wire_text
