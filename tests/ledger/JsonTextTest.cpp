#include "ledger/store/JsonText.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>

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
    EXPECT_EQ(objectIn(jsonText(EveryKind)), EveryKind);
}

TEST(JsonText, IsReadAlikeByEveryReaderOfJson)
{
    QJsonParseError error;
    const QJsonDocument read = QJsonDocument::fromJson(jsonText(EveryKind).toUtf8(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    EXPECT_EQ(read.object(), QJsonObject::fromVariantMap(EveryKind));
}

TEST(JsonText, KeepsWholeNumbersAndNothing)
{
    EXPECT_EQ(jsonText(QMap<QString, QVariant>{{"n"_s, 7}, {"x"_s, QVariant()}}), "{\"n\":7,\"x\":null}"_s);
    EXPECT_EQ(jsonText(QMap<QString, QVariant>()), "{}"_s);
}

TEST(JsonText, KeepsATableCellForCell)
{
    const QList<QStringList> rows{{"600000"_s, ""_s, "\"引号\""_s}, {}, {"x"_s}};
    EXPECT_EQ(rowsIn(jsonText(rows)), rows);
    EXPECT_EQ(textsIn(jsonText(rows.first())), rows.first());
}
