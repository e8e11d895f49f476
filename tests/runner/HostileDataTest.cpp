#include "tests/runner/RunnerTest.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <QFile>

/// A reference data folder made by a stranger to hold the machine up: refused by file and line, and never at
/// the price of much memory.
class HostileData : public RunnerTest {
protected:
    static QStringList files()
    {
        return {"markets.csv"_s,  "securities.csv"_s,  "accounts.csv"_s, "security_accounts.csv"_s,
                "quotes.csv"_s,   "strategies.json"_s, "futures.csv"_s,  "hk_rates.csv"_s,
                "calendar.csv"_s, "limits.csv"_s,      "rules.csv"_s,    "authorities.csv"_s};
    }
    QString path(const QString& name) const { return dataFolder() + QLatin1Char('/') + name; }

    /// Puts the file there by `make`, runs an import, and takes it away again.
    template <typename Make> void expectRefusedWith(const QString& name, const Make& make)
    {
        SCOPED_TRACE(qPrintable(name));
        QFile::remove(path(name));
        make(path(name));
        expectRefused(create(table(goodRow())), name + QLatin1Char(':'));
        QFile::remove(path(name));
        RunnerTest::SetUp();
    }
    void expectRefusedContent(const QString& name, const QByteArray& bytes)
    {
        expectRefusedWith(name, [&](const QString&) { writeData(name, bytes); });
    }

    void TearDown() override
    {
        rusage usage = {};
        getrusage(RUSAGE_CHILDREN, &usage);
#if !defined(__SANITIZE_ADDRESS__)
        EXPECT_LT(usage.ru_maxrss, 256 * 1024) << "KiB of the largest run";
#endif
        RunnerTest::TearDown();
    }
};

TEST_F(HostileData, OfDevicesPipesAndFoldersIsRefused)
{
    for (const QString& name : files()) {
        expectRefusedWith(name, [](const QString& path) { QFile::link("/dev/zero"_s, path); });
        expectRefusedWith(name,
                          [](const QString& path) { mkfifo(QFile::encodeName(path).constData(), 0600); });
        expectRefusedWith(name, [](const QString& path) { QFile::link("nowhere"_s, path); });
    }
}

TEST_F(HostileData, OfEndlessFilesIsRefused)
{
    for (const QString& name : files()) {
        expectRefusedWith(name, [](const QString& path) {
            QFile file(path);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly) &&
                        file.resize(qint64(1) << 40)); // nothing but a hole
        });
    }
}

TEST_F(HostileData, OfTooManyColumnsRowsAndEntriesIsRefused)
{
    QByteArray columns("symbol");
    for (int column = 0; column < 10000; ++column) {
        columns += ",c" + QByteArray::number(column);
    }
    expectRefusedContent("securities.csv"_s, columns + "\n");
    QByteArray rows("symbol\n");
    QByteArray entries("[");
    for (int entry = 0; entry < 220000; ++entry) {
        rows += QByteArray::number(entry) + "\n";
        entries += R"({"name":")" + QByteArray::number(entry, 36) + "\"},\n";
    }
    expectRefusedContent("securities.csv"_s, rows);
    entries.chop(2);
    expectRefusedContent("strategies.json"_s, entries + "]");
}

TEST_F(HostileData, OfTextsOfAMegabyteIsRefused)
{
    const QByteArray text(1 << 20, 'x');
    expectRefusedContent("securities.csv"_s, "symbol,name\n600000.SH," + text + "\n");
    expectRefusedContent("strategies.json"_s, R"([{"name":"AITWAP","alias":")" + text + R"("}])");
    expectRefusedContent("strategies.json"_s,
                         R"([{"name":"AITWAP","paramFormats":[{"paramId":"a","strDefault":")" + text +
                             R"("}]}])");
}

TEST_F(HostileData, OfNegativeStepsPricesAndCeilingsIsRefused)
{
    expectRefusedContent("securities.csv"_s, "symbol,qtyStep\n600000.SH,-100\n");
    expectRefusedContent("securities.csv"_s, "symbol,minQtyPerOrder\n600000.SH,-1\n");
    expectRefusedContent("quotes.csv"_s, "symbol,LastPx\n600000.SH,-10\n");
    expectRefusedContent("futures.csv"_s, "symbol,multiplier\nIF2512.CFE,-300\n");
    expectRefusedContent("hk_rates.csv"_s, "exchange,HKSExchgRateBuy,HKSExchgRateSell\nHKSH,-1,1\n");
    expectRefusedContent("limits.csv"_s, "account,strategy,maxDayBuy\n*,*,-1\n");
}
