#include "desk/models/WireText.h"

#include "words/Words.h"

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

const QMap<QString, const char*>& tradeNames()
{
    static const QMap<QString, const char*> all = {
        {QStringLiteral("0"), QT_TRANSLATE_NOOP("Words", "心跳")},
        {QStringLiteral("1"), QT_TRANSLATE_NOOP("Words", "测试请求")},
        {QStringLiteral("2"), QT_TRANSLATE_NOOP("Words", "重传请求")},
        {QStringLiteral("3"), QT_TRANSLATE_NOOP("Words", "会话拒绝")},
        {QStringLiteral("4"), QT_TRANSLATE_NOOP("Words", "序号重置")},
        {QStringLiteral("5"), QT_TRANSLATE_NOOP("Words", "登出")},
        {QStringLiteral("8"), QT_TRANSLATE_NOOP("Words", "执行回报")},
        {QStringLiteral("9"), QT_TRANSLATE_NOOP("Words", "撤单拒绝")},
        {QStringLiteral("A"), QT_TRANSLATE_NOOP("Words", "登录")},
        {QStringLiteral("AB"), QT_TRANSLATE_NOOP("Words", "多腿委托")},
        {QStringLiteral("D"), QT_TRANSLATE_NOOP("Words", "委托")},
        {QStringLiteral("F"), QT_TRANSLATE_NOOP("Words", "撤单")},
        {QStringLiteral("H"), QT_TRANSLATE_NOOP("Words", "状态查询")},
        {QStringLiteral("j"), QT_TRANSLATE_NOOP("Words", "业务拒绝")}};
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
    const QString shown = name.isEmpty() ? type : name;
    const char* words = tradeNames().value(type);
    return words == nullptr ? shown : Words::tr(words) + QLatin1Char(' ') + shown;
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
