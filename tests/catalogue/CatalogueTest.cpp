#include "tools/catalogue/Catalogue.h"

#include "tests/catalogue/ShippedDialog.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTemporaryDir>

namespace {

const QString& source()
{
    static const QString folder = shipped::path("tools/catalogue/source"_s);
    return folder;
}

QStringList expectedCodes()
{
    return QStringLiteral(
               "AIPAIR AIPAIRBASIC AIPAIRPLUS AINHG AIVWAP3 AIVWAP AITWAP AITWAP3 TWAP AIPOV AITWAPBASIC "
               "AITWAPPLUS AIVWAPBASIC AIVWAPPLUS AIPOVBASIC AIPOVPLUS AIPOVZJC AITWAPZJC AIVWAPZJC VWAP POV "
               "SUPERVWAP SUPERTWAP AILOCK AILOCKPLUS AILOCK3 AITWAP5 AITWAP7 AIPOV7 G-TWAP G-VWAP "
               "G-FuturesArbi G-Pair G-PairFuturesArbi KF_TWAPPLUS KF_VWAPPLUS QND_TWAP QND_VWAP "
               "PursueHighLimit PursueHighLimitB PursueHighLimitPLUS DoubleConditionOrder "
               "DoubleConditionOrderPLUS 52")
        .split(QLatin1Char(' '));
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

TEST(Catalogue, ThatShipsEqualsWhatItsSourceComposes)
{
    QString error;
    const QByteArray composed = catalogue::compose(source(), error);
    EXPECT_EQ(error, QString());
    ASSERT_FALSE(composed.isEmpty());
    EXPECT_TRUE(composed == bytesOf(shipped::path("reference_data/strategies.json"_s)))
        << "run: cmake --build BUILD --target catalogue";
}

TEST(Catalogue, HasEveryStrategyOnceUnderAnAliasOfItsOwn)
{
    QStringList codes;
    QSet<QString> aliases;
    for (const AesStrategy& strategy : shipped::tables().strategies) {
        codes.append(strategy.name());
        aliases.insert(strategy.alias());
        EXPECT_NE(strategy.alias(), strategy.name());
        EXPECT_EQ(strategy.globalType(), "algo"_s);
    }
    EXPECT_EQ(aliases.size(), codes.size());
    QStringList expected = expectedCodes();
    codes.sort();
    expected.sort();
    EXPECT_EQ(codes, expected);
}

TEST(Catalogue, HasADocumentThatParsesForEveryStrategy)
{
    for (const AesStrategy& strategy : shipped::tables().strategies) {
        QJsonParseError syntax;
        const QJsonDocument document = QJsonDocument::fromJson(strategy.paramFormats().toUtf8(), &syntax);
        EXPECT_EQ(syntax.error, QJsonParseError::NoError) << qPrintable(strategy.name());
        EXPECT_GE(document.array().size(), 5) << qPrintable(strategy.name());
    }
}

TEST(Catalogue, GivesPairsTheirDirectionWithinTheSecurityTable)
{
    const ReferenceData data{shipped::tables()};
    const auto tableHas = [&](const QString& code, const QString& title) {
        const QJsonArray document =
            QJsonDocument::fromJson(data.strategy(code)->paramFormats().toUtf8()).array();
        const QJsonArray columns = document.first().toObject().value("columns"_s).toArray();
        return std::any_of(columns.begin(), columns.end(), [&](const QJsonValue& column) {
            return column.toObject().value("paramName"_s).toString() == title;
        });
    };
    for (const QString& code :
         {"AIPAIR"_s, "AIPAIRBASIC"_s, "AIPAIRPLUS"_s, "AILOCK"_s, "AILOCKPLUS"_s, "AILOCK3"_s}) {
        EXPECT_TRUE(tableHas(code, "交易方向"_s) && tableHas(code, "委托属性"_s) &&
                    tableHas(code, "委托限价"_s))
            << qPrintable(code);
    }
    EXPECT_FALSE(tableHas("AITWAP"_s, "交易方向"_s));
}

/// A copy of the source in which one file reads otherwise.
class BrokenSource : public testing::Test {
protected:
    QString faultOf(const QString& name, const QByteArray& content)
    {
        QDir(folder.path()).removeRecursively();
        QDir().mkpath(folder.path());
        for (const QString& file : {"parameters.json"_s, "families.json"_s, "strategies.json"_s}) {
            QFile out(folder.filePath(file));
            EXPECT_TRUE(out.open(QIODevice::WriteOnly));
            out.write(file == name ? content : bytesOf(source() + QLatin1Char('/') + file));
        }
        QString error;
        EXPECT_TRUE(catalogue::compose(folder.path(), error).isEmpty());
        return error;
    }

    QTemporaryDir folder;
};

TEST_F(BrokenSource, IsRefusedWithTheFileAndWhatIsWrong)
{
    EXPECT_TRUE(faultOf("parameters.json"_s, "{").startsWith("parameters.json: "_s));
    EXPECT_EQ(faultOf("parameters.json"_s, R"({"code": {"nmae": "x"}})"),
              "parameters.json: code has an unknown attribute nmae"_s);
    EXPECT_EQ(faultOf("parameters.json"_s, R"({"code": {"name": "x", "default": 5}})"),
              "parameters.json: code has a default of another type"_s);
    EXPECT_EQ(faultOf("parameters.json"_s, R"({"code": "x"})"), "parameters.json: code is no object"_s);
    EXPECT_EQ(faultOf("parameters.json"_s, "[]"), "parameters.json: is no object"_s);
    EXPECT_EQ(faultOf("strategies.json"_s, "{}"), "strategies.json: is no array"_s);
    EXPECT_EQ(
        faultOf("strategies.json"_s, R"([{"name": "A", "alias": "a", "family": "twap", "own": ["colour"]}])"),
        "strategies.json: colour is no parameter"_s);
    EXPECT_EQ(faultOf("families.json"_s, R"({"twap": {"table": ["colour"], "parameters": []}})"),
              "families.json: colour is no parameter"_s);
    EXPECT_EQ(faultOf("strategies.json"_s, R"([{"name": "A", "alias": "a", "family": "none"}])"),
              "strategies.json: A is of an unknown family none"_s);
    EXPECT_EQ(faultOf("strategies.json"_s,
                      R"([{"name": "A", "alias": "a", "family": "twap", "without": ["level"]}])"),
              "strategies.json: A is without level, which its family does not have"_s);
    EXPECT_EQ(faultOf("strategies.json"_s, R"([{"name": "A", "alias": "a", "family": "twap"},
                                               {"name": "A", "alias": "b", "family": "twap"}])"),
              "strategies.json: name is missing or not unique: A"_s);
}

} // namespace
