#include "desk/runner/DialogDriver.h"

#include "desk/runner/Session.h"
#include "tests/runner/RunnerTest.h"

using DialogDriver = RunnerTest;

TEST_F(DialogDriver, NamesTheDigestOfTheFileThatItImported)
{
    runner::CommandLine line;
    line.files = QStringList{table(goodRow())};
    line.strategy = "AITWAP"_s;
    line.account = "A1"_s;
    line.dataFolder = dataFolder();
    line.home = home();
    line.create = true;
    QString error;
    const auto host = runner::openHost(line, error);
    ASSERT_TRUE(host) << error.toStdString();
    runner::DialogDriver driver(*host, line);
    driver.importFile(ImportedFile::read(driver.path()));
    const QString imported = batch::sha256OfFile(driver.path());
    table(goodRow() + goodRow()); // a colleague saves the file again
    EXPECT_EQ(imported, batch::makeDraft(driver.content()).fileSha256);
}
