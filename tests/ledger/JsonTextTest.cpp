#include "ledger/store/JsonText.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <random>

using namespace ledger;

namespace {

const QMap<QString, QVariant> EveryKind{
    {"text"_s, "<b>\"'\\\n\t\x01é证券😀"_s},
    {"number"_s, 123.4567},
    {"whole"_s, 1000.0},
    {"small"_s, 0.1},
    {"flag"_s, true},
    {"empty"_s, ""_s},
    {"list"_s, QVariantList{QMap<QString, QVariant>{{"a"_s, "b"_s}}, 2.5, "c"_s}},
};

} // namespace

TEST(JsonText, KeepsEveryKindOfParameter)
{
    EXPECT_EQ(objectIn(QString::fromUtf8(jsonText(EveryKind))), EveryKind);
}

TEST(JsonText, IsReadAlikeByEveryReaderOfJson)
{
    QJsonParseError error;
    const QJsonDocument read = QJsonDocument::fromJson(jsonText(EveryKind), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    EXPECT_EQ(read.object(), QJsonObject::fromVariantMap(EveryKind));
}

TEST(JsonText, KeepsWholeNumbersAndNothing)
{
    EXPECT_EQ(jsonText(QMap<QString, QVariant>{{"n"_s, 7}, {"x"_s, QVariant()}}), "{\"n\":7,\"x\":null}");
    EXPECT_EQ(jsonText(QMap<QString, QVariant>()), "{}");
}

/// Texts of numbers in every shape, strings with every kind of escape, and what is no object.
TEST(JsonText, IsReadAsQtReadsIt)
{
    std::mt19937 random(7);
    const QStringList values{"0"_s,
                             "-1"_s,
                             "100"_s,
                             "1.0"_s,
                             "2147483648"_s,
                             "4294967296"_s,
                             "9223372036854775807"_s,
                             "9223372036854775808"_s,
                             "18446744073709551615"_s,
                             "1e3"_s,
                             "1e-3"_s,
                             "0.1"_s,
                             "4.57"_s,
                             "123456789.123456789"_s,
                             "1.7976931348623157e308"_s,
                             "5e-324"_s,
                             "true"_s,
                             "null"_s,
                             "\"\""_s,
                             "\"\\u8bc1\\u5238\\ud83d\\ude00\\u0000\\/\""_s,
                             "[]"_s,
                             "[1,[2.5,{\"a\":\"b\"}]]"_s,
                             "{\"x\":{\"y\":[null,false]}}"_s};
    for (int round = 0; round < 500; ++round) {
        QStringList members;
        for (int i = int(random() % 6); i > 0; --i) {
            const double number =
                std::ldexp(double(random()) + double(random()) / 4294967296.0, int(random() % 80) - 40);
            const QString value = random() % 2 == 0
                                      ? values.at(int(random() % unsigned(values.size())))
                                      : QString::number(number, 'g', QLocale::FloatingPointShortest);
            members.append("\"%1\":%2"_s.arg(i).arg(value));
        }
        const QString json = "{%1}"_s.arg(members.join(QLatin1Char(',')));
        const QVariantMap ours = objectIn(json);
        const QVariantMap qts = QJsonDocument::fromJson(json.toUtf8()).object().toVariantMap();
        ASSERT_EQ(ours, qts) << qPrintable(json);
        for (const QString& key : qts.keys()) {
            ASSERT_EQ(ours[key].userType(), qts[key].userType()) << qPrintable(json);
        }
    }
}

TEST(JsonText, TakesWhatIsNoObjectForAnEmptyOne)
{
    for (const QString& json :
         {""_s, "[1]"_s, "1"_s, "{"_s, "{\"a\":1} x"_s, "{\"a\":}"_s, "{\"a\":1}{}"_s, "null"_s}) {
        EXPECT_EQ(objectIn(json), QVariantMap()) << qPrintable(json);
    }
    EXPECT_EQ(objectIn(QString(100000, QLatin1Char('['))), QVariantMap());
}

TEST(JsonText, KeepsATableCellForCell)
{
    const QList<QStringList> rows{{"600000"_s, ""_s, "\"引号\""_s}, {}, {"x"_s}};
    EXPECT_EQ(rowsIn(QString::fromUtf8(jsonText(rows))), rows);
    EXPECT_EQ(textsIn(QString::fromUtf8(jsonText(rows.first()))), rows.first());
}
