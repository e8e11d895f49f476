#include "tests/runner/RunnerTest.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>

/// From a broker's own file to the messages of a batch.
class AtdlCommand : public RunnerTest {
protected:
    QString out() const { return folder() + "/out"_s; }
    QString sample() const { return QStringLiteral(SAMPLES) + "/atdl/broker.xml"_s; }

    static QByteArray read(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
        return file.readAll();
    }

    /// The desk's data with what the broker's file gave.
    void takeOver()
    {
        ASSERT_EQ(1, run({"atdl"_s, sample(), out()}).status);
        QJsonArray strategies = QJsonDocument::fromJson(read(dataFolder() + "/strategies.json"_s)).array();
        for (const QJsonValue& one : QJsonDocument::fromJson(read(out() + "/strategies.json"_s)).array()) {
            strategies.append(one);
        }
        writeData("strategies.json"_s, QJsonDocument(strategies).toJson());
        writeData("strategy_rules.json"_s, read(out() + "/strategy_rules.json"_s));
    }

    static QStringList north() { return {"--strategy"_s, "NORTH-VWAP"_s, "--account"_s, "A1"_s}; }

    /// A file by the template's header, a row of these cells by title; two days ahead.
    QString filledIn(const QMap<QString, QString>& cells)
    {
        const QString path = folder() + "/template.csv"_s;
        QFile::remove(path);
        EXPECT_EQ(0,
                  run({"template"_s, "--strategy"_s, "NORTH-VWAP"_s, "--data"_s, dataFolder(), path}).status);
        const QString header = QString::fromUtf8(read(path)).remove(QChar(0xfeff)).section("\r\n"_s, 0, 0);
        const QString day = QDate::currentDate().addDays(2).toString(Qt::ISODate);
        const QMap<QString, QString> usual = {{"证券代码"_s, "600000"_s},
                                              {"市场"_s, "SH"_s},
                                              {"委托数量"_s, "1000"_s},
                                              {"交易方向"_s, "1"_s},
                                              {"委托限价"_s, "9.86"_s},
                                              {"开始时间"_s, day + " 10:00:00"_s},
                                              {"结束时间"_s, day + " 14:30:00"_s},
                                              {"最大市场占比"_s, "15"_s},
                                              {"紧急程度"_s, "low"_s},
                                              {"场所"_s, "LIT DRK"_s},
                                              {"实例备注"_s, "试单"_s},
                                              {"创建后是否立即启动"_s, "7"_s}};
        QStringList row;
        for (const QString& title : header.split(QLatin1Char(','))) {
            row.append(cells.value(title, usual.value(title)));
        }
        return write("orders.csv"_s, (header + "\n"_s + row.join(","_s) + "\n"_s).toUtf8());
    }

    Run checked(const QMap<QString, QString>& cells)
    {
        return run(QStringList{"check"_s, filledIn(cells), "--data"_s, dataFolder(), "--home"_s, home()} +
                   north());
    }

    /// What the guard says of the broker's rules: rule, line and column.
    static QStringList faultsIn(const Run& run)
    {
        QStringList texts;
        for (const QJsonValue& line : run.object()["guard"_s].toObject()["refusals"_s].toArray()) {
            for (const QJsonValue& fault : line.toObject()["faults"_s].toArray()) {
                const QJsonObject one = fault.toObject();
                if (one["rule"_s].toString().startsWith("broker."_s)) {
                    texts.append(QStringLiteral("%1 %2 %3")
                                     .arg(one["rule"_s].toString())
                                     .arg(one["line"_s].toInt())
                                     .arg(one["column"_s].toString()));
                }
            }
        }
        return texts;
    }

    QStringList dryRun(const QStringList& way)
    {
        const Run shown = run(QStringList{"gateway"_s, "--profile"_s, out() + "/profile.json"_s, "--data"_s,
                                          dataFolder(), "--home"_s, home(), "--dry-run"_s, "1"_s} +
                              way);
        EXPECT_EQ(0, shown.status) << shown.err.constData();
        QStringList lines;
        for (const QByteArray& line : shown.out.trimmed().split('\n')) {
            const QJsonObject json = QJsonDocument::fromJson(line).object();
            lines.append(json["message"_s].toString() + json["content"_s].toString() +
                         json["reason"_s].toString());
        }
        return lines;
    }
};

TEST_F(AtdlCommand, WritesThreeFilesAndNamesWhatIsLost)
{
    const Run made = run({"atdl"_s, sample(), out()});
    EXPECT_EQ(1, made.status) << "something could not be carried over";
    expectValid(made.object(), "atdl.schema.json"_s);
    EXPECT_EQ(4, made.object()["notCarried"_s].toArray().size());
    EXPECT_EQ(2, made.object()["strategies"_s].toArray().size());
    EXPECT_EQ(QDir(out()).entryList(QDir::Files),
              QStringList({"profile.json"_s, "strategies.json"_s, "strategy_rules.json"_s}));
}

TEST_F(AtdlCommand, WritesNothingOverAFileThatIsThere)
{
    ASSERT_TRUE(QDir().mkpath(out()));
    const QString path = write("out/profile.json"_s, "mine");
    expectRefused(run({"atdl"_s, sample(), out()}), "已有 profile.json，不会覆盖"_s);
    EXPECT_EQ(read(path), "mine");
    EXPECT_EQ(QDir(out()).entryList(QDir::Files), QStringList{"profile.json"_s});
}

TEST_F(AtdlCommand, RefusesHostileFiles)
{
    const auto refused = [this](const QByteArray& document, const QString& why) {
        expectRefused(run({"atdl"_s, write("broker.xml"_s, document), out()}), why);
        EXPECT_FALSE(QDir(out()).exists());
    };
    refused("<!DOCTYPE a [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><a>&x;</a>", "DOCTYPE"_s);
    refused("<!DOCTYPE a [<!ENTITY a \"aa\"><!ENTITY b \"&a;&a;\">]><a>&b;</a>", "DOCTYPE"_s);
    refused(QByteArray("<a>").repeated(1000), "元素嵌套超过 64 层"_s);
    refused("<Strategies>", "不是正确的 XML"_s);
    refused("<Strategies xmlns='urn:other'/>", "不是 FIXatdl 1.1 文件"_s);
    expectRefused(run({"atdl"_s, "/no/such.xml"_s, out()}), "无法读取"_s);
}

TEST_F(AtdlCommand, AnOrderGoesFromTheTemplateToTheMessage)
{
    takeOver();
    const QString file = filledIn({});
    EXPECT_EQ(QStringList(), faultsIn(checked({})));
    const Run created = import(file, north() + QStringList{"--confirm"_s, "--create"_s});
    ASSERT_EQ(0, created.status) << created.out.constData();
    const QString day = QDate::currentDate().addDays(2).toString("yyyyMMdd"_s);
    const QString message = dryRun({}).join(" "_s);
    EXPECT_TRUE(message.contains("|55=600000|207=XSHG|54=1|38=1000|40=2|44=9.86|"_s)) << qPrintable(message);
    EXPECT_TRUE(message.contains("|847=VWAP|20001=3|168=%1-02:00:00|126=%1-06:30:00|849=0.15|20010=L|20011=N|"
                                 "20014=LIT DRK|20016=ALGO"_s.arg(day)))
        << qPrintable(message);
    const QString sheet = dryRun({"--files"_s, folder()}).join(" "_s);
    EXPECT_TRUE(sheet.contains(",TargetStrategy,20001,EffectiveTime,ExpireTime,ParticipationRate,20010,"_s))
        << qPrintable(sheet);
}

TEST_F(AtdlCommand, CheckNamesWhatTheBrokerWouldNotTake)
{
    takeOver();
    const Run run = checked({{"最大市场占比"_s, "40"_s}, {"紧急程度"_s, "high"_s}, {"子单数"_s, "1.5"_s}});
    EXPECT_EQ(3, run.status);
    expectValid(run.object(), "check.schema.json"_s);
    EXPECT_EQ(faultsIn(run), QStringList({"broker.most 2 最大市场占比"_s, "broker.value 2 子单数"_s,
                                          "broker.condition 2 "_s}));
    EXPECT_EQ(faultsIn(checked({{"紧急程度"_s, "high"_s}})), QStringList{"broker.condition 2 "_s});
}

TEST_F(AtdlCommand, TheGuardCreatesNothingThatTheBrokerWouldNotTake)
{
    takeOver();
    const QString file = filledIn({{"最大市场占比"_s, "40"_s}});
    const Run refused = import(file, north() + QStringList{"--confirm"_s, "--create"_s, "--yes"_s});
    EXPECT_EQ(1, refused.status);
    EXPECT_TRUE(creation(refused)["batch"_s].isNull());
    expectValid(creation(refused), "create.schema.json"_s);
    EXPECT_TRUE(refused.out.contains("broker.most")) << refused.out.constData();
}

TEST_F(AtdlCommand, ARulesFileThatIsWrongStopsTheCommand)
{
    takeOver();
    writeData("strategy_rules.json"_s, R"({"NORTH-VWAP": {"bounds": 1}})");
    expectRefused(checked({}), "NORTH-VWAP.bounds：未知的键"_s);
}
