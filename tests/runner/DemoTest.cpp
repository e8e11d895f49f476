#include "tests/runner/RunnerTest.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>

/// `algodesk demo` on reference data and samples as they ship.
class Demo : public RunnerTest {
protected:
    /// Folders of demonstrations that were left behind.
    static QStringList leftHomes() { return QDir::temp().entryList({"algodesk-demo-*"_s}, QDir::Dirs); }

    static QList<QJsonObject> linesOf(const QByteArray& text)
    {
        QList<QJsonObject> lines;
        for (const QByteArray& line : text.trimmed().split('\n')) {
            lines.append(QJsonDocument::fromJson(line).object());
        }
        return lines;
    }

    /// What a program of the demonstration printed: each line by its schema, and each of these events among
    /// them.
    void expectLines(const QString& log, const QString& schema, const QStringList& events)
    {
        QFile file(home() + QLatin1Char('/') + log);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        QStringList seen;
        for (const QJsonObject& line : linesOf(file.readAll())) {
            expectValid(line, schema);
            seen.append(line["event"_s].toString());
        }
        for (const QString& event : events) {
            EXPECT_TRUE(seen.contains(event)) << log.toStdString() << event.toStdString();
        }
    }
};

TEST_F(Demo, TellsHowOrdersFillAndLeavesNothingBehind)
{
    const QStringList before = leftHomes();
    const Run told = run({"demo"_s, "--headless"_s, "--pace"_s, "10000"_s});
    EXPECT_EQ(told.status, 0) << told.err.toStdString() << told.out.toStdString();
    const QString story = QString::fromUtf8(told.out);
    EXPECT_TRUE(story.startsWith("模拟对手方在 127.0.0.1:"_s)) << story.toStdString();
    EXPECT_TRUE(story.contains("已导入 demo.csv，批次 1"_s));
    EXPECT_EQ(story.count("已完成\n"_s), 8 + 8) << "as it happens, and in the table at the end";
    EXPECT_TRUE(story.contains("成交 3000 / 3000  均价 9.8"_s)) << story.toStdString();
    EXPECT_TRUE(story.contains("\n全部成交，用时 "_s));
    EXPECT_EQ(leftHomes(), before);
}

TEST_F(Demo, WithoutADisplaySaysSoAndTellsTheStory)
{
    const Run told =
        run({"demo"_s, "--pace"_s, "10000"_s, "--home"_s, home()},
            {{"QT_QPA_PLATFORM"_s, QString()}, {"DISPLAY"_s, QString()}, {"WAYLAND_DISPLAY"_s, QString()}});
    EXPECT_EQ(told.status, 0) << told.err.toStdString();
    EXPECT_TRUE(QString::fromUtf8(told.err).contains("没有可用的显示环境"_s)) << told.err.toStdString();
    EXPECT_TRUE(QString::fromUtf8(told.out).contains("全部成交"_s));
    const Run again = run({"demo"_s, "--headless"_s, "--pace"_s, "10000"_s, "--home"_s, home()});
    EXPECT_EQ(again.status, 0) << again.err.toStdString();
    EXPECT_TRUE(QString::fromUtf8(again.out).contains("批次 2"_s)) << "a named home is kept";
    expectLines("gateway.log"_s, "gateway-event.schema.json"_s, {"session"_s, "instance"_s});
    expectLines("simulator.log"_s, "simulator-event.schema.json"_s, {"session"_s, "report"_s});

    const Run status = atHome({"status"_s});
    expectValid(status.object(), "status.schema.json"_s);
    EXPECT_EQ("gone"_s, status.object()["gateways"_s].toArray().at(0).toObject()["state"_s].toString());
    const Run dry = atHome({"gateway"_s, "--profile"_s, home() + "/profile.json"_s, "--dry-run"_s, "1"_s});
    ASSERT_EQ(0, dry.status) << dry.err.constData();
    const QList<QJsonObject> orders = linesOf(dry.out);
    EXPECT_EQ(8, orders.size());
    for (const QJsonObject& order : orders) {
        expectValid(order, "gateway-dry-run.schema.json"_s);
    }
}

TEST_F(Demo, RefusesWrongUsage)
{
    expectRefused(run({"demo"_s, "--headless"_s, "--pace"_s, "0"_s}), "--pace"_s);
    expectRefused(run({"demo"_s, "extra"_s}), "不带参数"_s);
}
