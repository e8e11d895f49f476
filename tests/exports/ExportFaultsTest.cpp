// A fault at every call of the system that an export makes, one after the other, until none is left: the old
// file is left as it was and the user is told, or the new one is whole.

#include "desk/report/DayReport.h"
#include "desk/window/FilteredTable.h"
#include "desk/window/ProblemsPanel.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/RecordingPrompts.h"
#include "embedded_host/table_reader/TableReader.h"
#include "embedded_host/table_writer/TextTable.h"
#include "host/SolveyConstants.h"
#include "host/SolveyUtils.h"
#include "table/Rules.h"
#include "tests/support/FaultyDisk.h"
#include "tests/support/SmallMarket.h"
#include "tests/support/Text.h"
#include "tests/support/TextsModel.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <functional>

namespace {

using faulty_disk::Kind;

const QByteArray Old("what was there before");
constexpr int MostCalls = 500;

/// Writes to that path; what the user is told went wrong, empty where nothing did.
using Export = std::function<QString(const QString& path)>;

class ExportFaults : public testing::Test {
protected:
    ExportFaults() : mDrafts(qgetenv("TMPDIR"))
    {
        QDir(mFolder.path()).mkpath("out"_s);
        QDir(mFolder.path()).mkpath("drafts"_s);
        qputenv("TMPDIR", QFile::encodeName(mFolder.filePath("drafts"_s)));
    }
    ~ExportFaults() override
    {
        if (mDrafts.isNull()) {
            qunsetenv("TMPDIR");
        } else {
            qputenv("TMPDIR", mDrafts);
        }
    }

    QString path(const QString& name) const { return mFolder.filePath("out/"_s + name); }
    QStringList namesIn(const QString& folder) const
    {
        return QDir(mFolder.filePath(folder))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    static QByteArray contentOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
        return file.readAll();
    }

    void expectTruth(const QString& path, const QString& error)
    {
        if (error.isEmpty() || error.contains("已写入"_s)) {
            EXPECT_EQ(table_reader::readTable(path).rows, mRows);
        } else {
            EXPECT_EQ(contentOf(path), Old) << error.toStdString();
            EXPECT_TRUE(error.contains(QFileInfo(path).fileName())) << error.toStdString();
        }
        EXPECT_EQ(namesIn("out"_s), QStringList{QFileInfo(path).fileName()});
        EXPECT_EQ(namesIn("drafts"_s), QStringList());
    }

    int failEveryCall(Kind kind, const QString& path, const Export& write)
    {
        for (int at = 1; at < MostCalls; ++at) {
            SCOPED_TRACE("call " + std::to_string(at));
            QFile old(path);
            EXPECT_TRUE(old.open(QIODevice::WriteOnly) && old.write(Old) == Old.size());
            old.close();
            faulty_disk::arm(mFolder.path(), kind, at);
            const QString error = write(path);
            const bool isFaulty = faulty_disk::disarm();
            EXPECT_TRUE(isFaulty || error.isEmpty()) << error.toStdString();
            expectTruth(path, error);
            if (!isFaulty || HasFailure()) {
                return at - 1;
            }
        }
        ADD_FAILURE() << "there is no end of calls";
        return 0;
    }

    /// To both kinds of file, whatever fails.
    void failEveryWay(const Export& write, const QStringList& kinds = {"csv"_s, "xlsx"_s})
    {
        for (const QString& ending : kinds) {
            const QString file = path("list."_s + ending);
            ASSERT_EQ(write(file), QString());
            mRows = table_reader::readTable(file).rows;
            ASSERT_GE(mRows.size(), 2);
            for (const Kind kind : {Kind::NoSpace, Kind::InputOutput, Kind::Sync, Kind::ShortWrite}) {
                SCOPED_TRACE(ending.toStdString() + ", kind " + std::to_string(int(kind)));
                const int calls = failEveryCall(kind, file, write);
                EXPECT_GE(calls, kind == Kind::ShortWrite ? 1 : 2);
                RecordProperty(ending.toStdString() + "_kind_" + std::to_string(int(kind)), calls);
            }
            QFile::remove(file);
        }
    }

    RecordingPrompts mPrompts;

private:
    QTemporaryDir mFolder;
    const QByteArray mDrafts;
    QList<QStringList> mRows; ///< of the file that is meant
};

} // namespace

TEST_F(ExportFaults, OfAListLeaveTheOldFileAndAreSaid)
{
    TextsModel model{{{"名称"_s}, {"金额"_s, true}}};
    model.setRecords({{"甲"_s, "900.00"_s}, {"乙"_s, "1,234.00"_s}});
    FilteredTable table{&model, {"清单"_s, "还没有"_s}, mPrompts};
    QString said;
    QObject::connect(&table, &FilteredTable::said, [&](const QString& text) { said = text; });
    failEveryWay(
        [&](const QString& path) {
            mPrompts.setFileToSave(path);
            table.exportRows();
            return said.startsWith("已导出"_s) ? QString() : said;
        },
        {"csv"_s});
}

TEST_F(ExportFaults, OfRefusedRowsLeaveTheOldFileAndAreSaid)
{
    table::Table read;
    read.rows = {{"证券代码"_s, "市场"_s}, {"999999"_s, "SH"_s}};
    read.lines = {1, 2};
    read.format = "csv"_s;
    table::Fault fault;
    fault.rule = table::rule::UnknownCode;
    fault.line = 2;
    fault.arguments = QStringList{"999999"_s};
    EmbeddedHost host(ReferenceData(small_market::tables()), {});
    ProblemsPanel panel(host, mPrompts);
    panel.begin("list.csv"_s);
    panel.setTable(read, {});
    panel.add(Problem::Source::Import, {fault});
    QString said;
    QObject::connect(&panel, &ProblemsPanel::said, [&](const QString& text) { said = text; });
    failEveryWay([&](const QString& path) {
        mPrompts.setFileToSave(path);
        panel.saveRejects();
        return said.startsWith("已把"_s) ? QString() : said;
    });
}

TEST_F(ExportFaults, OfTemplatesLeaveTheOldFileAndAreSaid)
{
    EmbeddedHost host(ReferenceData(small_market::tables()), {});
    host.setPrompts(&mPrompts);
    const QString alias = host.referenceData().tables().strategies.first().alias();
    failEveryWay([&](const QString& path) {
        mPrompts.clear();
        mPrompts.setFileToSave(path);
        const bool isDone = SolveyUtils::DownloadTemplateFile(
            SolveyConstants::TemplateFileType::AlgoBatchSingle, nullptr, {alias});
        EXPECT_EQ(isDone, mPrompts.boxes().isEmpty());
        return isDone ? QString() : mPrompts.boxes().first().text;
    });
}

TEST_F(ExportFaults, OfADaysReportLeaveTheOldFileAndAreSaid)
{
    day_report::Count count;
    count.account = "1001"_s;
    const QList<QStringList> report = day_report::table({count}, QDate(2026, 3, 5), "algodesk"_s, "1.0"_s);
    failEveryWay([&](const QString& path) { return table_writer::writeTable(path, report); });
}
