#include "gateway/profile/JsonSection.h"

#include "words/Words.h"

#include <QJsonArray>

#include <cmath>

namespace gateway {

namespace {

const int MostSeconds = 1000000000;

}

JsonSection::JsonSection(const QJsonObject& object, const QString& path, QStringList& complaints)
    : mObject(object), mPath(path), mComplaints(complaints)
{
}

QString JsonSection::pathOf(const QString& key) const
{
    return mPath.isEmpty() ? key : mPath + QLatin1Char('.') + key;
}

void JsonSection::complain(const QString& key, const QString& what) const
{
    mComplaints.append(Words::tr("%1：%2").arg(pathOf(key), what));
}

bool JsonSection::has(const QString& key) const
{
    return mObject.contains(key);
}

QJsonValue JsonSection::take(const QString& key)
{
    mKnown.append(key);
    return mObject.value(key);
}

void JsonSection::expect(const QString& key, const QJsonValue& value, bool isRight,
                         const QString& wanted) const
{
    if (!value.isUndefined() && !isRight) {
        complain(key, Words::tr("应为%1").arg(wanted));
    }
}

QString JsonSection::takeText(const QString& key)
{
    const QJsonValue value = take(key);
    expect(key, value, value.isString() && !value.toString().isEmpty(), Words::tr("非空文本"));
    return value.toString();
}

bool JsonSection::takeSwitch(const QString& key, bool byDefault)
{
    const QJsonValue value = take(key);
    expect(key, value, value.isBool(), Words::tr("true 或 false"));
    return value.toBool(byDefault);
}

int JsonSection::takePositive(const QString& key, int byDefault)
{
    const QJsonValue value = take(key);
    const double number = value.toDouble();
    const bool isRight =
        value.isDouble() && number >= 1 && number <= MostSeconds && std::floor(number) == number;
    expect(key, value, isRight, Words::tr("正整数"));
    return isRight ? static_cast<int>(number) : byDefault;
}

QStringList JsonSection::takeTexts(const QString& key)
{
    const QJsonValue value = take(key);
    expect(key, value, value.isArray(), Words::tr("文本数组"));
    const QJsonArray array = value.toArray();
    QStringList texts;
    for (int i = 0; i < array.size(); ++i) {
        const QString place = QStringLiteral("%1[%2]").arg(key).arg(i);
        expect(place, array.at(i), array.at(i).isString() && !array.at(i).toString().isEmpty(),
               Words::tr("非空文本"));
        texts.append(array.at(i).toString());
    }
    return texts;
}

JsonSection JsonSection::takeSection(const QString& key)
{
    const QJsonValue value = take(key);
    expect(key, value, value.isObject(), Words::tr("对象"));
    return JsonSection(value.toObject(), pathOf(key), mComplaints);
}

void JsonSection::complainOfTheRest() const
{
    const QStringList keys = mObject.keys();
    for (const QString& key : keys) {
        if (!mKnown.contains(key)) {
            complain(key, Words::tr("未知的键"));
        }
    }
}

} // namespace gateway
