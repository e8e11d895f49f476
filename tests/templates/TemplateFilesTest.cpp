#include "embedded_host/templates/TemplateFiles.h"

#include "embedded_host/table_reader/shared/ZipArchive.h"
#include "embedded_host/table_reader/TableReader.h"
#include "embedded_host/templates/TemplateSheet.h"
#include "host/SolveyConstants.h"
#include "host/SolveyUtils.h"
#include "tests/catalogue/SampleTable.h"
#include "tests/catalogue/ShippedDialog.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>

namespace {

using template_files::TemplateColumn;
using template_files::TemplateSheet;
using template_files::Written;

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

class TemplateFiles : public ShippedDialog {
protected:
    const AesStrategy& strategy(const QString& code)
    {
        const auto found = std::find_if(tables.strategies.begin(), tables.strategies.end(),
                                        [&](const AesStrategy& known) { return known.name() == code; });
        EXPECT_NE(found, tables.strategies.end()) << qPrintable(code);
        return *found;
    }
    TemplateSheet sheet(const QString& code)
    {
        return template_files::describeTemplate(strategy(code), tables.markets);
    }
    TemplateColumn column(const QString& code, const QString& title)
    {
        const QList<TemplateColumn> columns = sheet(code).columns;
        const auto found = std::find_if(columns.begin(), columns.end(),
                                        [&](const TemplateColumn& known) { return known.title == title; });
        EXPECT_NE(found, columns.end()) << qPrintable(title);
        return found == columns.end() ? TemplateColumn() : *found;
    }
    Written write(const QString& code, const QString& name)
    {
        return template_files::write(folder.filePath(name), {strategy(code)}, tables.markets);
    }
    Written writeAll(const QString& name)
    {
        return template_files::write(folder.filePath(name), tables.strategies, tables.markets);
    }
    static QByteArray partOf(const QString& path, const QString& name)
    {
        QFile file(path);
        table_reader::ZipArchive archive(file);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly) && archive.open().isEmpty()) << qPrintable(path);
        table_reader::PartStream part(archive, name);
        EXPECT_EQ(part.begin(), QString());
        return part.readAll();
    }
    QList<QStringList> read(const QString& name)
    {
        return table_reader::readTable(folder.filePath(name)).rows;
    }
    struct Filling {
        QString strategy, account, code, market;
    };
    void completeAndImport(const Filling& filling, const QString& format);
    QString messageOnWritingOver(const QString& name) { return write("AITWAP"_s, name).error; }
};

TEST_F(TemplateFiles, HaveTheColumnsThatTheDialogShows)
{
    open();
    for (const AesStrategy& strategy : tables.strategies) {
        load(strategy.name());
        QStringList shown = table().headNames();
        if (strategy.name().startsWith("KF_"_s)) {
            shown.removeLast();
        }
        EXPECT_EQ(sheet(strategy.name()).titles(), shown) << qPrintable(strategy.name());
    }
}

TEST_F(TemplateFiles, LeaveTheFundAccountOut)
{
    EXPECT_TRUE(strategy("AINHG"_s).paramFormats().contains("资金账号"_s));
    EXPECT_FALSE(sheet("AINHG"_s).titles().contains("资金账号"_s));
}

TEST_F(TemplateFiles, OfferTheValuesThatMayBeTyped)
{
    EXPECT_EQ(column("AITWAP"_s, "交易方向"_s).accepted, (QStringList{"1"_s, "2"_s}));
    EXPECT_EQ(column("G-TWAP"_s, "交易方向"_s).accepted, (QStringList{"3"_s, "4"_s, "5"_s, "6"_s}));
    EXPECT_EQ(column("QND_TWAP"_s, "风格参数"_s).accepted, (QStringList{"0"_s, "1"_s, "2"_s, "3"_s}));
    EXPECT_EQ(column("AILOCK"_s, "交易方向"_s).accepted, (QStringList{"1/2"_s, "2/1"_s}));
    EXPECT_TRUE(column("AILOCK"_s, "委托属性"_s).accepted.contains("6/7"_s));
    EXPECT_EQ(column("AITWAP"_s, "创建后是否立即启动"_s).accepted, (QStringList{"0"_s, "7"_s}));
    EXPECT_TRUE(column("AITWAP"_s, "市场"_s).accepted.contains("HKSH"_s));
    EXPECT_TRUE(column("AITWAP"_s, "委托限价"_s).accepted.isEmpty());
}

TEST_F(TemplateFiles, TellUnitValuesAndDefaultInTheNotes)
{
    const QStringList notes = sheet("AITWAP"_s).notes;
    EXPECT_EQ(notes.first(), "备注："_s);
    EXPECT_TRUE(notes.contains("5、委托数量：数量（股票为股、债券为张、期货为手），必填"_s));
    EXPECT_TRUE(notes.contains("6、交易方向：1-买入，2-卖出，必填"_s));
    EXPECT_TRUE(notes.contains("8、开始时间：格式为yyyy-MM-dd HH:mm:ss，非必填，默认当前时间"_s));
    EXPECT_TRUE(notes.contains("9、结束时间：格式为yyyy-MM-dd HH:mm:ss，非必填，默认当日14:57:00"_s));
    EXPECT_TRUE(notes.contains("12、风格参数：neutral-平稳，aggressive-激进，非必填，默认平稳"_s));
    EXPECT_TRUE(notes.contains("7、委托限价：价格（元，港股为港元），非必填，空为不限价"_s));
    EXPECT_EQ(column("AILOCK"_s, "委托限价"_s).note,
              "价格（元，港股为港元），两腿以“/”分隔，先第一腿后第二腿，如10.50/10.50，必填"_s);
    EXPECT_EQ(column("AIPOV"_s, "最大市场占比"_s).note, "百分数，如15表示15%，必填"_s);
}

TEST_F(TemplateFiles, ReadBackAsTheRowsThatWereWritten)
{
    ASSERT_EQ(write("AITWAP"_s, "one.csv"_s).error, QString());
    ASSERT_EQ(write("AITWAP"_s, "one.xlsx"_s).error, QString());
    EXPECT_TRUE(bytesOf(folder.filePath("one.csv"_s)).startsWith("\xEF\xBB\xBF"));
    const QList<QStringList> expected = sheet("AITWAP"_s).rows();
    EXPECT_EQ(read("one.csv"_s).first(), expected.first());
    EXPECT_EQ(read("one.xlsx"_s).first(), expected.first());
    for (const QString& name : {"one.csv"_s, "one.xlsx"_s}) {
        const QList<QStringList> rows = read(name);
        ASSERT_EQ(rows.size(), expected.size()) << qPrintable(name);
        for (int i = 1; i < rows.size(); ++i) {
            EXPECT_EQ(rows.at(i).value(0), QString());
            EXPECT_EQ(rows.at(i).value(1), QString());
            EXPECT_EQ(rows.at(i).value(2), expected.at(i).value(2));
        }
    }
}

TEST_F(TemplateFiles, PutEveryStrategyOnASheetOfItsOwnWithTheFirstOneFirst)
{
    const Written written = writeAll("all.xlsx"_s);
    ASSERT_EQ(written.error, QString());
    EXPECT_EQ(written.files, QStringList(folder.filePath("all.xlsx"_s)));
    const table::Table first = table_reader::readTable(folder.filePath("all.xlsx"_s));
    EXPECT_EQ(first.sheet, tables.strategies.first().name());
    EXPECT_EQ(first.rows.first(), sheet(tables.strategies.first().name()).titles());
}

TEST_F(TemplateFiles, PutEveryStrategyIntoACsvFileOfItsOwn)
{
    const Written written = writeAll("all.csv"_s);
    ASSERT_EQ(written.error, QString());
    EXPECT_EQ(written.files.size(), tables.strategies.size());
    EXPECT_FALSE(QFile::exists(folder.filePath("all.csv"_s)));
    for (const AesStrategy& strategy : tables.strategies) {
        const QString name = "all-"_s + strategy.name() + ".csv"_s;
        EXPECT_EQ(read(name).value(0), sheet(strategy.name()).titles()) << qPrintable(name);
    }
}

TEST_F(TemplateFiles, GiveSheetsNamesThatAWorkbookMayHave)
{
    const QString formats = strategy("AITWAP"_s).paramFormats();
    const QString algo = "algo"_s;
    const QString longName(40, QLatin1Char('X'));
    const Written written = template_files::write(folder.filePath("odd.xlsx"_s),
                                                  {AesStrategy("a/b[c]"_s, "一"_s, formats, algo),
                                                   AesStrategy("A_B_C_"_s, "二"_s, formats, algo),
                                                   AesStrategy(longName, "三"_s, formats, algo),
                                                   AesStrategy(longName + longName, "四"_s, formats, algo)},
                                                  tables.markets);
    EXPECT_EQ(written.error, QString());
    EXPECT_EQ(table_reader::readTable(folder.filePath("odd.xlsx"_s)).sheet, "a_b_c_"_s);
}

/// A title that a spreadsheet would calculate: text in either file, and the import finds its column.
TEST_F(TemplateFiles, HaveTitlesThatAreTextWhateverTheyBeginWith)
{
    const QString title = "=1+1"_s;
    tables.strategies[0] = AesStrategy(
        "AITWAP"_s, "公式"_s, strategy("AITWAP"_s).paramFormats().replace("风格参数"_s, title), "algo"_s);
    ASSERT_TRUE(sheet("AITWAP"_s).titles().contains(title));
    ASSERT_EQ(write("AITWAP"_s, "formula.csv"_s).error, QString());
    ASSERT_EQ(write("AITWAP"_s, "formula.xlsx"_s).error, QString());
    EXPECT_TRUE(bytesOf(folder.filePath("formula.csv"_s)).contains(",'=1+1,"));
    for (const QString& name : {"formula.csv"_s, "formula.xlsx"_s}) {
        EXPECT_EQ(read(name).value(0), sheet("AITWAP"_s).titles()) << qPrintable(name);
    }
    const QByteArray cells = partOf(folder.filePath("formula.xlsx"_s), "xl/worksheets/sheet1.xml"_s);
    EXPECT_TRUE(cells.contains("<sheetData>")) << cells.constData();
    EXPECT_FALSE(cells.contains("<f>"));
}

class ImportedTemplate : public TemplateFiles, public testing::WithParamInterface<const char*> {};

TEST_P(ImportedTemplate, IsAcceptedUnchangedWithNothingToImport)
{
    for (const QString& code : {"AITWAP"_s, "AILOCK"_s, "KF_VWAPPLUS"_s, "G-TWAP"_s, "PursueHighLimit"_s}) {
        const QString name = "blank."_s + QString::fromLatin1(GetParam());
        ASSERT_EQ(write(code, name).error, QString());
        open(code, "80010001"_s);
        importFile(folder.filePath(name));
        EXPECT_EQ(lastBoxText(), QString()) << qPrintable(code);
        EXPECT_EQ(dialog->getWidgetData().size(), 0) << qPrintable(code);
    }
}

TEST_F(TemplateFiles, SayThatNothingIsThereWhenOnlyTheHeaderIsLeft)
{
    open("AITWAP"_s, "80010001"_s);
    importFile(writeCsv({sheet("AITWAP"_s).titles()}));
    EXPECT_EQ(lastBoxText(), "导入文件的表格内容缺少数据！"_s);
}

/// What a trader does: completes the example row by a code and its market.
void TemplateFiles::completeAndImport(const Filling& filling, const QString& format)
{
    ASSERT_EQ(write(filling.strategy, "blank."_s + format).error, QString());
    QList<QStringList> rows = read("blank."_s + format);
    rows.last()[0] = filling.code;
    rows.last()[2] = filling.market;
    open(filling.strategy, filling.account);
    importFile(writeCsv(rows, "filled.csv"_s));
    EXPECT_EQ(lastBoxText(), QString());
    EXPECT_EQ(dialog->getWidgetData().size(), 1);

    const QSignalSpy confirmed(dialog.get(), &AlgoBatchImportParamSetting::signalBtnOkClicked);
    button("btn_ok").click();
    EXPECT_EQ(lastBoxText(), QString());
    EXPECT_EQ(confirmed.count(), 1);
}

TEST_P(ImportedTemplate, ImportsOnceTheExampleIsCompleted)
{
    const QList<Filling> fillings = {{"AITWAP"_s, "80010001"_s, "000001"_s, "SZ"_s},
                                     {"AILOCK"_s, "80010001"_s, "600000"_s, "SH"_s},
                                     {"KF_VWAPPLUS"_s, "80010001"_s, "600000"_s, "上海"_s},
                                     {"G-TWAP"_s, "80030001"_s, "IF2612"_s, "CFE"_s},
                                     {"AITWAP7"_s, "80020001"_s, "600036"_s, "SH"_s},
                                     {"PursueHighLimit"_s, "80010001"_s, "600000"_s, "SH"_s}};
    for (const Filling& filling : fillings) {
        SCOPED_TRACE(qPrintable(filling.strategy));
        completeAndImport(filling, QString::fromLatin1(GetParam()));
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, ImportedTemplate, testing::Values("csv", "xlsx"),
                         [](const auto& format) { return std::string(format.param); });

TEST_F(TemplateFiles, HaveAnExampleThatImportsOnceItIsCompletedWhateverTheStrategy)
{
    for (const sample_table::Sample& sample : sample_table::goodSamples()) {
        SCOPED_TRACE(qPrintable(sample.strategy));
        const bool futures = sample.account == "80030001"_s;
        const QString code = futures ? "IF2612"_s : sample.strategy == "AINHG"_s ? "204001"_s : "600000"_s;
        completeAndImport({sample.strategy, sample.account, code, futures ? "CFE"_s : "SH"_s}, "csv"_s);
    }
}

/// What a trader leaves in the example is sent: no limit price, time or share that nobody chose.
TEST_F(TemplateFiles, HaveAnExampleOfWhatIsRequiredAlone)
{
    for (const AesStrategy& strategy : tables.strategies) {
        for (const TemplateColumn& column : sheet(strategy.name()).columns) {
            const bool filled = column.required && column.title != "证券代码"_s && column.title != "市场"_s;
            EXPECT_EQ(!column.example.isEmpty(), filled)
                << qPrintable(strategy.name() + " "_s + column.title);
        }
    }
    EXPECT_EQ(column("AITWAP"_s, "委托数量"_s).example, "1000"_s);
    EXPECT_EQ(column("G-TWAP"_s, "委托数量"_s).example, "1"_s) << "a contract, no thousand of them";
}

TEST_F(TemplateFiles, SayOnEverySheetOfSeveralThatTheFirstOneIsRead)
{
    const QList<AesStrategy> two = {strategy("AITWAP"_s), strategy("AIVWAP"_s)};
    const QString note =
        "在算法交易台中导入时，以算法代码命名的工作表按该算法读取，几张表都填写时依次成为几个批次；其他程序只读取第一张可见的工作表"_s;
    ASSERT_EQ(template_files::write(folder.filePath("two.xlsx"_s), two, tables.markets).error, QString());
    EXPECT_EQ(read("two.xlsx"_s).value(2).value(2), note);
    ASSERT_EQ(write("AITWAP"_s, "one.xlsx"_s).error, QString());
    EXPECT_NE(read("one.xlsx"_s).value(2).value(2), note);
}

TEST_F(TemplateFiles, NameAStrategyWhoseFormatsCannotBeReadAndWriteTheOthers)
{
    const QList<AesStrategy> broken = {strategy("AITWAP"_s),
                                       AesStrategy("ODD"_s, "怪"_s, "{ no json"_s, "algo"_s)};
    for (const QString& name : {"t.csv"_s, "t.xlsx"_s}) {
        EXPECT_EQ(template_files::write(folder.filePath(name), broken, tables.markets).error,
                  "算法ODD的参数格式无法识别，模板未保存"_s);
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files, QDir::Name),
              (QStringList{"t-AITWAP.csv"_s, "t.xlsx"_s}));
    EXPECT_FALSE(
        template_files::write(folder.filePath("odd.csv"_s), broken.mid(1), tables.markets).error.isEmpty());
    EXPECT_FALSE(QFile::exists(folder.filePath("odd.csv"_s)));
}

TEST_F(TemplateFiles, RefuseAnEndingThatIsNoTemplateType)
{
    EXPECT_EQ(write("AITWAP"_s, "t.xls"_s).error,
              "模板文件的扩展名应为xlsx或csv："_s + folder.filePath("t.xls"_s));
    EXPECT_FALSE(QFile::exists(folder.filePath("t.xls"_s)));
}

TEST_F(TemplateFiles, RefuseAFolderThatIsNotThere)
{
    EXPECT_EQ(messageOnWritingOver("no/such/t.xlsx"_s),
              "文件夹不存在，模板未保存："_s + folder.filePath("no/such"_s));
}

TEST_F(TemplateFiles, RefuseANameThatIsAFolder)
{
    QDir(folder.path()).mkdir("taken.csv"_s);
    EXPECT_EQ(messageOnWritingOver("taken.csv"_s),
              "该名称是一个文件夹，模板未保存："_s + folder.filePath("taken.csv"_s));
}

TEST_F(TemplateFiles, LeaveAReadOnlyFileWhole)
{
    const QString path = writeFile("precious", "kept.xlsx"_s);
    QFile::setPermissions(path, QFileDevice::ReadOwner);
    EXPECT_EQ(messageOnWritingOver("kept.xlsx"_s), "文件是只读的，模板未保存："_s + path);
    EXPECT_EQ(bytesOf(path), QByteArray("precious"));
}

TEST_F(TemplateFiles, LeaveAFileWholeThatASpreadsheetProgramHasOpen)
{
    const QString path = writeFile("precious", "kept.xlsx"_s);
    for (const QString& mark : {"~$kept.xlsx"_s, ".~lock.kept.xlsx#"_s}) {
        const QString lock = writeFile("someone", mark);
        EXPECT_EQ(messageOnWritingOver("kept.xlsx"_s),
                  "文件正在其他程序中打开，请关闭后重试，模板未保存："_s + path);
        EXPECT_EQ(bytesOf(path), QByteArray("precious"));
        QFile::remove(lock);
    }
    EXPECT_EQ(messageOnWritingOver("kept.xlsx"_s), QString());
}

TEST_F(TemplateFiles, LeaveNothingBesideTheFile)
{
    writeFile("old", "t.xlsx"_s);
    ASSERT_EQ(write("AITWAP"_s, "t.xlsx"_s).error, QString());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("t.xlsx"_s));
    EXPECT_EQ(read("t.xlsx"_s).value(0), sheet("AITWAP"_s).titles());
}

class DownloadTemplate : public TemplateFiles {
protected:
    bool download(const QString& name, const QString& saveAs)
    {
        prompts.setFileToSave(saveAs.isEmpty() ? QString() : folder.filePath(saveAs));
        return SolveyUtils::DownloadTemplateFile(SolveyConstants::TemplateFileType::AlgoBatchSingle,
                                                 dialog.get(), {name});
    }
};

TEST_F(DownloadTemplate, SavesTheTemplateOfAnAlias)
{
    open();
    EXPECT_TRUE(download(strategy("AIVWAP"_s).alias(), "t.csv"_s));
    EXPECT_EQ(read("t.csv"_s).value(0), sheet("AIVWAP"_s).titles());
    EXPECT_EQ(lastBoxText(), QString());
}

TEST_F(DownloadTemplate, SavesAllTemplatesInAWorkbookWhenNoEndingIsGiven)
{
    open();
    EXPECT_TRUE(download("全部"_s, "all"_s));
    EXPECT_EQ(read("all.xlsx"_s).value(0), sheet(tables.strategies.first().name()).titles());
}

TEST_F(DownloadTemplate, WritesNothingWhenCancelled)
{
    open();
    EXPECT_FALSE(download("全部"_s, QString()));
    EXPECT_EQ(lastBoxText(), QString());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

/// The save dialog asked about "all.csv"; the files beside it have other names.
TEST_F(DownloadTemplate, ReplacesFilesThatTheSaveDialogDidNotNameOnlyWhenAllowed)
{
    open();
    const QString taken = writeFile("precious", "all-AIVWAP.csv"_s);
    prompts.setAnswerYes(false);
    EXPECT_FALSE(download("全部"_s, "all.csv"_s));
    EXPECT_EQ(lastBoxText(), "以下1个文件已存在，是否替换？\n"_s + taken);
    EXPECT_EQ(bytesOf(taken), QByteArray("precious"));
    EXPECT_FALSE(QFile::exists(folder.filePath("all-AITWAP.csv"_s)));

    prompts.setAnswerYes(true);
    EXPECT_TRUE(download("全部"_s, "all.csv"_s));
    EXPECT_NE(bytesOf(taken), QByteArray("precious"));
}

TEST_F(DownloadTemplate, AsksBeforeTheEndingThatItAddsLeadsToAnExistingFile)
{
    open();
    const QString taken = writeFile("precious", "t.xlsx"_s);
    prompts.setAnswerYes(false);
    EXPECT_FALSE(download(strategy("AITWAP"_s).alias(), "t"_s));
    EXPECT_EQ(lastBoxText(), "以下1个文件已存在，是否替换？\n"_s + taken);
    EXPECT_EQ(bytesOf(taken), QByteArray("precious"));
    prompts.clear();
    EXPECT_TRUE(download(strategy("AITWAP"_s).alias(), "t.xlsx"_s))
        << "named and confirmed in the save dialog";
    EXPECT_EQ(lastBoxText(), QString());
}

TEST_F(DownloadTemplate, OffersNoStrategyThatTheDialogDoesNot)
{
    const AesStrategy shipped = strategy("AITWAP"_s);
    tables.strategies = {shipped, AesStrategy("OTHER"_s, "条件单"_s, shipped.paramFormats(), "condition"_s)};
    open();
    EXPECT_TRUE(download("全部"_s, "all.csv"_s));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("all.csv"_s));
    EXPECT_FALSE(download("条件单"_s, "other.csv"_s));
}

TEST_F(DownloadTemplate, SaysThatAnUnknownAliasHasNoTemplate)
{
    open();
    EXPECT_FALSE(download("无此算法"_s, "t.csv"_s));
    EXPECT_EQ(lastBoxText(), "没有可导出的算法模板：无此算法"_s);
}

TEST_F(DownloadTemplate, SaysWhyAFileCannotBeSaved)
{
    open();
    EXPECT_FALSE(download("全部"_s, "no/such/all.xlsx"_s));
    EXPECT_EQ(lastBoxText(), "文件夹不存在，模板未保存："_s + folder.filePath("no/such"_s));
}

} // namespace
