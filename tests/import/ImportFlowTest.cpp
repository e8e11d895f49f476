#include "host/SolveyUtils.h"
#include "tests/support/DialogFixture.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Sheet.h"

#include <QDir>

/// From the press on 导入算法 to what the dialog shows.
class ImportFlow : public DialogFixture {
protected:
    /// `count` good data rows, the n-th with n as its quantity.
    QList<QStringList> numberedRows(int count)
    {
        Sheet sheet = Sheet::ordinary();
        for (int n = 1; n <= count; ++n) {
            sheet.add({{"委托数量"_s, QString::number(n)}});
        }
        return sheet.rows();
    }
    QString pathIn(const QString& subfolder, const QString& name)
    {
        QDir(folder.path()).mkpath(subfolder);
        return writeCsv(Sheet::ordinary().add().rows(), subfolder + QLatin1Char('/') + name);
    }
    void expectFormat(const QString& path, bool csv)
    {
        importFile(path);
        EXPECT_EQ(csv, inspect().isCsvFile()) << path.toStdString();
        EXPECT_EQ(csv ? "yyyy-M-d H:m:s"_s : "yyyy-M-dTH:m:s.z"_s, inspect().dateTimeFormat())
            << path.toStdString();
    }
    int instanceCount() { return dialog->getWidgetData().size(); }
};

TEST_F(ImportFlow, AsksForTheFileAndHandsItToTheReader)
{
    open();
    const QString path = writeCsv(Sheet::ordinary().add().rows());
    importFile(path);
    const auto asked = callsOf("SolveyUtils::GetOpenTableFileName");
    ASSERT_EQ(1, asked.size());
    EXPECT_EQ((QVariantList{"AlgoBatchImportParamSetting"_s, "导入算法"_s, QString(), 0}),
              asked.first().arguments);
    const auto read = callsOf("SolveyUtils::ReadTableData");
    ASSERT_EQ(1, read.size());
    EXPECT_EQ((QVariantList{path, 1}), read.first().arguments);
}

TEST_F(ImportFlow, ACancelledFileDialogChangesNothing)
{
    open();
    importRows(Sheet::ordinary().add().rows());
    button("btn_ok").setEnabled(false);
    importFile(QString());
    EXPECT_EQ(1, rowCount());
    EXPECT_EQ(1, instanceCount());
    EXPECT_FALSE(button("btn_ok").isEnabled());
    EXPECT_EQ(1, callsOf("SolveyUtils::ReadTableData").size());
    EXPECT_TRUE(prompts.boxes().isEmpty());
}

TEST_F(ImportFlow, ACancelledFileDialogIsLogged)
{
    open();
    const LogCapture log;
    importFile(QString());
    EXPECT_EQ(log.firstMissing({"slotBtnImportClicked"_s, "filePath is empty!"_s}), QString())
        << qPrintable(log.text());
}

TEST_F(ImportFlow, LogsItsStepsInTheirOrder)
{
    open("PursueHighLimit"_s);
    const LogCapture log;
    importRows(Sheet::sealing().add().rows());
    EXPECT_EQ(log.firstMissing({"slotBtnImportClicked"_s, "list.csv"_s, "import currentTime: before: "_s,
                                "###tag: "_s, "importDataInfo"_s, "###tag: "_s, " contentList:  2"_s,
                                " columnIndexMap: "_s, " quote: "_s, " symbol:  \"600000.SH\""_s,
                                "get sysnodeid by trading account return: \"node-1\""_s,
                                "single param data: "_s, " insAndSymbolVarMap: "_s, "###tag-import-end: "_s,
                                " contentList:  1"_s, "import currentTime: after: "_s,
                                " resultInfo:  \"0\""_s, "calculateExpectAmount"_s}),
              QString())
        << qPrintable(log.text());
}

TEST_F(ImportFlow, GoodRowsAreShownAndPricedWithoutAMessage)
{
    open();
    importRows(Sheet::ordinary().add().add({{"交易方向"_s, "2"_s}}).rows());
    EXPECT_EQ(2, rowCount());
    EXPECT_EQ(2, instanceCount());
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ(10000.0, child<SolveyDecimalLineEdit>("expectBuyLine").value());
    EXPECT_EQ(10000.0, child<SolveyDecimalLineEdit>("expectSellLine").value());
}

TEST_F(ImportFlow, ShowsTheReadersOwnErrorInABoxOfTheHostsSize)
{
    open();
    importRows(Sheet::ordinary().add().rows());
    button("btn_ok").setEnabled(false);
    importFile(folder.filePath("nowhere.csv"_s));
    ASSERT_EQ(1, prompts.boxes().size());
    const ShownBox box = prompts.boxes().first();
    QString error;
    SolveyUtils::ReadTableData(folder.filePath("nowhere.csv"_s), ReadTableCfg(1), error);
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(error, box.text);
    EXPECT_EQ("错误"_s, box.title);
    EXPECT_EQ(1, box.type);
    EXPECT_EQ(0, box.flag);
    EXPECT_EQ(box.sizeBefore, box.size);
    EXPECT_EQ(0, rowCount());
    EXPECT_TRUE(button("btn_ok").isEnabled());
}

TEST_F(ImportFlow, AFileWithoutRowsCannotBeRead)
{
    open();
    importFile(writeFile(QByteArray(), "empty.csv"_s));
    EXPECT_EQ("文件读取失败"_s, lastBoxText());
    EXPECT_EQ(0, rowCount());
}

TEST_F(ImportFlow, NoRowsAtAllAreAnEmptyTable)
{
    open();
    importRows(Sheet::ordinary().add().rows());
    QList<QStringList> rows;
    RecordDataList records;
    QMap<int, QString> errors;
    EXPECT_EQ("导入文件的表格内容为空！"_s, inspect().parseStrLst2TableModel(rows, records, errors));
    EXPECT_EQ(0, instanceCount());
}

TEST_F(ImportFlow, AHeaderWithoutDataRowsLacksData)
{
    open();
    importRows(Sheet::ordinary().rows());
    ASSERT_EQ(1, prompts.boxes().size());
    EXPECT_EQ("导入文件的表格内容缺少数据！"_s, lastBoxText());
    EXPECT_EQ(prompts.boxes().first().sizeBefore, prompts.boxes().first().size);
    EXPECT_TRUE(callsOf("CommonQuotaHandler::SubscribeQuota").isEmpty());
}

TEST_F(ImportFlow, TheSecondPartOfThePathBetweenDotsTellsCsv)
{
    open();
    expectFormat(pathIn("plain"_s, "list.csv"_s), true);
    expectFormat(pathIn("plain"_s, "list.CSV"_s), true);
    expectFormat(pathIn("plain"_s, "list.csv.txt"_s), true);
    expectFormat(pathIn("data.old"_s, "list.csv"_s), false);
    expectFormat(pathIn("plain"_s, "list.v2.csv"_s), false);
    expectFormat(pathIn("plain"_s, "list.xlsx"_s), false);
    expectFormat(pathIn("plain"_s, "list"_s), false);
}

TEST_F(ImportFlow, BelowAFolderWithADotSpreadsheetTimesAreReadAndOthersStillUnderstood)
{
    open();
    QDir(folder.path()).mkpath("data.old"_s);
    const auto rows = Sheet::ordinary()
                          .add({{"开始时间"_s, "2024-3-5T9:30:0.5"_s}})
                          .add({{"开始时间"_s, "2024-3-5 9:30:0"_s}})
                          .rows();
    importFile(writeCsv(rows, "data.old/list.csv"_s));
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ("2024-03-05 09:30:00"_s, value(0, "开始时间"_s));
    EXPECT_EQ("2024-03-05 09:30:00"_s, value(1, "开始时间"_s));
    importFile(writeCsv(rows, "list.csv"_s));
    EXPECT_EQ("导入文件中包含以下错误:\r\n第2行：开始时间格式不正确，时间格式为yyyy-MM-dd HH:mm:ss\r\n"_s,
              lastBoxText());
}

TEST_F(ImportFlow, AThousandRowsAreImportedWithoutAQuestion)
{
    open();
    importRows(numberedRows(1000));
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ(1000, rowCount());
    EXPECT_EQ(1000, instanceCount());
}

TEST_F(ImportFlow, OneRowMoreIsAskedAboutAndYesTakesTheFirstThousand)
{
    open();
    importRows(numberedRows(1001));
    ASSERT_EQ(1, prompts.boxes().size());
    const ShownBox box = prompts.boxes().first();
    EXPECT_EQ("错误"_s, box.title);
    EXPECT_EQ("当前导入数量已超过1000条，是否取前1000条进行批量创建算法实例？"_s, box.text);
    EXPECT_EQ(3, box.type);
    EXPECT_EQ(1, box.flag);
    EXPECT_EQ(box.sizeBefore, box.size);
    EXPECT_EQ(1000, rowCount());
    EXPECT_EQ(1000, instanceCount());
    EXPECT_EQ("1"_s, value(0, "委托数量"_s));
    EXPECT_EQ("1000"_s, value(999, "委托数量"_s));
}

TEST_F(ImportFlow, NoToTheQuestionEndsTheImportInSilence)
{
    open();
    importRows(Sheet::ordinary().add().rows());
    prompts.setAnswerYes(false);
    importRows(numberedRows(1001));
    EXPECT_EQ(1, prompts.boxes().size());
    EXPECT_EQ(0, rowCount());
    EXPECT_TRUE(button("btn_ok").isEnabled());
}

/// The instances go when a header is matched, not before.
TEST_F(ImportFlow, AnImportThatEndsBeforeItsHeaderKeepsTheFormerInstances)
{
    open();
    importRows(Sheet::ordinary().add().rows());
    prompts.setAnswerYes(false);
    importRows(numberedRows(1001));
    EXPECT_EQ(0, rowCount());
    EXPECT_EQ(1, instanceCount());
    importFile(folder.filePath("nowhere.csv"_s));
    EXPECT_EQ(1, instanceCount());
    importRows(Sheet::ordinary().rows());
    EXPECT_EQ(0, instanceCount());
}

TEST_F(ImportFlow, BlankAndNoteRowsCountForTheLimit)
{
    open();
    QList<QStringList> rows = numberedRows(999);
    rows.append(QStringList{QString()});
    rows.append(QStringList{QString(), QString(), "备注："_s});
    importRows(rows);
    EXPECT_EQ(1, prompts.boxes().size());
    EXPECT_EQ(999, rowCount());
}

TEST_F(ImportFlow, RowErrorsAreListedByTheLineOfTheFileBesideTheRowsThatAreGood)
{
    open();
    Sheet sheet = Sheet::ordinary();
    for (int i = 0; i < 8; ++i) {
        const bool faulty = i == 0 || i == 4 || i == 7;
        sheet.add({{"证券代码"_s, faulty ? "99999%1"_s.arg(i) : "600000"_s}});
    }
    importRows(sheet.rows());
    ASSERT_EQ(1, prompts.boxes().size());
    const ShownBox box = prompts.boxes().first();
    EXPECT_EQ("导入文件中包含以下错误:\r\n"
              "第2行：证券代码999990不合法，未获取到市场\r\n"
              "第6行：证券代码999994不合法，未获取到市场\r\n"
              "第9行：证券代码999997不合法，未获取到市场\r\n"_s,
              box.text);
    EXPECT_EQ("错误"_s, box.title);
    EXPECT_EQ(1, box.type);
    EXPECT_EQ(0, box.flag);
    EXPECT_EQ(5, rowCount());
    EXPECT_EQ(5, instanceCount());
    EXPECT_EQ(50000.0, child<SolveyDecimalLineEdit>("expectBuyLine").value());
}

TEST_F(ImportFlow, TheErrorBoxGrowsByTwentyPixelsALineUpTo350)
{
    open();
    importRows(Sheet::ordinary().add({{"证券代码"_s, "999999"_s}}).rows());
    const ShownBox small = prompts.boxes().last();
    EXPECT_EQ(small.sizeBefore.width() + 10, small.size.width());
    EXPECT_EQ(qMin(small.sizeBefore.height() + 2 * 20, 350), small.size.height());
    Sheet sheet = Sheet::ordinary();
    for (int i = 0; i < 40; ++i) {
        sheet.add({{"证券代码"_s, "999999"_s}});
    }
    importRows(sheet.rows());
    EXPECT_EQ(350, prompts.boxes().last().size.height());
    EXPECT_EQ(prompts.boxes().last().sizeBefore.width() + 10, prompts.boxes().last().size.width());
}

TEST_F(ImportFlow, PlacesEveryErrorBoxByTheHost)
{
    open();
    importRows(Sheet::ordinary().add({{"证券代码"_s, "999999"_s}}).rows());
    importRows(Sheet::ordinary().rows());
    const auto placed = callsOf("SolveyUtils::GetWidgetPos");
    ASSERT_EQ(2, placed.size());
    EXPECT_EQ(2, placed.at(0).arguments.at(1));
    EXPECT_EQ(2, placed.at(1).arguments.at(1));
}

TEST_F(ImportFlow, WithErrorsOnlyTheTableStaysEmptyAndNothingIsPriced)
{
    open();
    importRows(Sheet::ordinary().add({{"证券代码"_s, "999999"_s}}).rows());
    EXPECT_EQ(0, rowCount());
    EXPECT_EQ(1, callsOf("CommonQuotaHandler::SubscribeQuota").size());
    EXPECT_TRUE(button("btn_ok").isEnabled());
}

TEST_F(ImportFlow, AFailedImportLeavesAnEmptyTableAndAnEnabledOk)
{
    open();
    importRows(Sheet::ordinary().add().rows());
    button("btn_ok").setEnabled(false);
    importRows(Sheet::ordinary().add().drop("交易方向"_s).rows());
    EXPECT_EQ("导入文件表头缺少“交易方向”列！"_s, lastBoxText());
    EXPECT_EQ(0, rowCount());
    EXPECT_EQ(0, instanceCount());
    EXPECT_TRUE(button("btn_ok").isEnabled());
}

TEST_F(ImportFlow, AnotherImportReplacesTheFormerRows)
{
    open();
    importRows(Sheet::ordinary().add().add().rows());
    importRows(Sheet::ordinary().add({{"证券代码"_s, "000001"_s}, {"市场"_s, "SZ"_s}}).rows());
    ASSERT_EQ(1, rowCount());
    EXPECT_EQ(1, instanceCount());
    EXPECT_EQ("000001.SZ"_s, value(0, "证券代码"_s));
}

TEST_F(ImportFlow, NothingIsTrimmedOnTheWayFromTheFile)
{
    open();
    importRows(Sheet::ordinary().add({{"实例备注"_s, "  留白  "_s}}).rows());
    EXPECT_EQ("  留白  "_s, value(0, "实例备注"_s));
    EXPECT_EQ("  留白  "_s, dialog->getWidgetData().first().value("实例备注"_s));
}
