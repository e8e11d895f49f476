// Sentence and fault are the same: what the dialog's boxes say is what the faults' sentences make up, word
// for word, on every sample and on samples with cells spoilt at random.

#include "desk/check/DialogFaults.h"

#include "desk/runner/DialogDriver.h"
#include "desk/runner/Session.h"
#include "host/ZelMessageBox.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "tests/catalogue/SampleTable.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QMap>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <random>

namespace {

namespace rule = table::rule;
using sample_table::Sample;

QString projectFile(const QString& name)
{
    return QStringLiteral(ALGO_PROJECT_DIR) + QLatin1Char('/') + name;
}

/// Of a rule that ends an import.
bool isEnd(const table::Fault& fault)
{
    return QStringList{rule::ReaderError,   rule::ReadFailed, rule::EmptyTable,
                       rule::MissingColumn, rule::NoDataRows, rule::NoHongKong}
        .contains(fault.rule);
}

/// One line a number, of faults with the same number the one found last; legs are looked at last.
QString rowErrorsText(const table::Faults& faults)
{
    QMap<int, QString> byNumber;
    for (const bool ofLegs : {false, true}) {
        for (const table::Fault& fault : faults) {
            if (!isEnd(fault) && (fault.rule == rule::BadPairedFields) == ofLegs) {
                byNumber[fault.row + 1] = table::sentence(fault);
            }
        }
    }
    QString text;
    for (auto row = byNumber.constBegin(); row != byNumber.constEnd(); ++row) {
        text += "第%1行：%2\r\n"_s.arg(row.key()).arg(row.value());
    }
    return text.isEmpty() ? text : "导入文件中包含以下错误:\r\n"_s + text;
}

/// The boxes that are about these faults of a file.
QStringList fileBoxes(const table::Faults& faults)
{
    const QString rows = rowErrorsText(faults);
    if (faults.isEmpty() || !rows.isEmpty()) {
        return rows.isEmpty() ? QStringList() : QStringList{rows};
    }
    return {table::sentence(faults.last())};
}

QString batchLine(const table::Fault& fault)
{
    if (fault.row == 0) {
        return table::sentence(fault);
    }
    const QString number = fault.rule == rule::NoAccountType ? "第%行："_s : "第%1行："_s.arg(fault.row);
    return number + table::sentence(fault) + (fault.rule == rule::OnlyOnMarket ? QString() : "\r\n"_s);
}

/// The one box that is about these faults of a batch.
QStringList batchBoxes(const table::Faults& faults)
{
    QString text;
    for (const table::Fault& fault : faults) {
        text += fault.rule == rule::MarketNotHeld ? table::sentence(fault) + "\r\n"_s : batchLine(fault);
    }
    if (!faults.isEmpty() && faults.first().rule == rule::MarketNotHeld) {
        text += "请检查后重新导入"_s;
    }
    return text.isEmpty() ? QStringList() : QStringList{text};
}

class SentenceAndFault : public testing::TestWithParam<Sample> {
protected:
    void SetUp() override
    {
        line.files = QStringList{projectFile("samples/"_s + GetParam().file)};
        line.strategy = GetParam().strategy;
        line.account = GetParam().account;
        line.dataFolder = projectFile("reference_data"_s);
        line.home = home.path();
        line.confirm = true;
        QString error;
        host = runner::openHost(line, error);
        ASSERT_TRUE(host) << error.toStdString();
    }

    /// Imports the table, confirms it, and holds every error box against the faults.
    void expectAgreement(const ImportedFile& file)
    {
        runner::DialogDriver driver(*host, line);
        ASSERT_EQ(driver.unknownName(), QString());
        driver.importFile(file);
        EXPECT_EQ(errorTexts(driver), fileBoxes(driver.fileFaults()));
        driver.switchAccountAndConfirm();
        EXPECT_EQ(errorTexts(driver), fileBoxes(driver.fileFaults()) + batchBoxes(driver.batchFaults()));
        for (const table::Fault& fault : driver.faults()) {
            EXPECT_EQ(fault.rule == rule::ReaderError, !file.table.error.isEmpty())
                << "only a reader's words are taken as they stand";
            EXPECT_NE(table::findRule(fault.rule), nullptr) << fault.rule.toStdString();
        }
        expectPlaces(driver.fileFaults(), file.table);
    }

    static QStringList errorTexts(const runner::DialogDriver& driver)
    {
        QStringList texts;
        for (const ShownBox& box : driver.shownBoxes()) {
            if (box.type == ZelMessageBox::Error) {
                texts.append(box.text);
            }
        }
        return texts;
    }

    /// A fault of a row names a line that the file has, and a cell that stands there.
    static void expectPlaces(const table::Faults& faults, const table::Table& table)
    {
        for (const table::Fault& fault : faults) {
            if (fault.row == 0) {
                continue;
            }
            const int row = table.lines.indexOf(fault.line);
            ASSERT_GT(row, 0) << fault.line;
            EXPECT_TRUE(fault.cell.isEmpty() || table.rows.at(row).contains(fault.cell))
                << fault.cell.toStdString();
        }
    }

    runner::CommandLine line;
    std::unique_ptr<EmbeddedHost> host;

private:
    QTemporaryDir home;
};

/// The same with a third of the cells replaced; the seed is the file's name.
void spoil(table::Table& table, const QString& name)
{
    const QStringList garbage{
        QString(),       "0"_s,      "x"_s,    "-1"_s, "3"_s, "1/2"_s,   "9.8/9.9"_s,
        "999999"_s,      "600000"_s, "HKSH"_s, "SZ"_s, "7"_s, "1/1/1"_s, "2024-01-01 25:00:00"_s,
        "currentTime"_s, "激进"_s};
    const std::string seed = name.toStdString();
    std::seed_seq seeds(seed.begin(), seed.end());
    std::mt19937 random(seeds);
    for (int row = 1; row < table.rows.size(); ++row) {
        for (QString& cell : table.rows[row]) {
            if (random() % 6 == 0) {
                cell = garbage.at(int(random() % unsigned(garbage.size())));
            }
        }
    }
}

QString otherAccount(const QString& account)
{
    return account == "80020001"_s ? "80010002"_s : "80020001"_s;
}

TEST_P(SentenceAndFault, AgreeOnASampleAsItIs)
{
    expectAgreement(ImportedFile::read(line.files.first()));
}

TEST_P(SentenceAndFault, AgreeOnASpoiltSampleUnderAnotherAccount)
{
    ImportedFile file = ImportedFile::read(line.files.first());
    spoil(file.table, GetParam().file);
    line.switchAccount = otherAccount(line.account);
    expectAgreement(file);
}

std::string testName(const testing::TestParamInfo<Sample>& info)
{
    return QString(info.param.file)
        .replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9]")), "_"_s)
        .toStdString();
}

INSTANTIATE_TEST_SUITE_P(Samples, SentenceAndFault,
                         testing::ValuesIn(sample_table::goodSamples() + sample_table::faultySamples()),
                         testName);

} // namespace
