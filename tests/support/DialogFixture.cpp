#include "tests/support/DialogFixture.h"

#include "host/AlgoConstants.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

QString csvCell(QString cell)
{
    return QLatin1Char('"') + cell.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

} // namespace

DialogFixture::DialogFixture()
{
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    options.loginAccount =
        QStringLiteral("%1.%2").arg(QLatin1String(test->test_suite_name()), QLatin1String(test->name()));
    options.loginAccount.replace(QLatin1Char('/'), QLatin1Char('-')); // of a test over a table of cases
    mWorkFolder = QCoreApplication::applicationDirPath() + "/work/"_s + options.loginAccount;
    removeWorkFolder();
}

DialogFixture::~DialogFixture()
{
    dialog.reset(); // writes what it has not written yet
    removeWorkFolder();
}

void DialogFixture::removeWorkFolder()
{
    QDir(mWorkFolder).removeRecursively();
}

void DialogFixture::openHost()
{
    dialog.reset();
    host.reset();
    host = std::make_unique<EmbeddedHost>(ReferenceData(tables), options);
    host->setPrompts(&prompts);
    host->journal().setRecording(true);
}

void DialogFixture::open(const QString& strategy, const QString& account, BatchInsType type)
{
    construct(type);
    load(strategy);
    accounts().SetCurTradingAccount(account);
}

void DialogFixture::construct(BatchInsType type)
{
    openHost();
    dialog = std::make_unique<AlgoBatchImportParamSetting>(nullptr, type);
}

void DialogFixture::openDocument(const QVariantList& document, const QString& code, const QString& account)
{
    auto& strategies = tables.strategies;
    const auto isReplaced = [&](const AesStrategy& strategy) { return strategy.name() == code; };
    strategies.erase(std::remove_if(strategies.begin(), strategies.end(), isReplaced), strategies.end());
    strategies.append(AesStrategy(code, code, small_market::toJson(document), "algo"_s));
    open(code, account);
}

void DialogFixture::load(const QString& strategy)
{
    const AesStrategy* known = host->referenceData().strategy(strategy);
    dialog->CreateStrategyInitWidget(known == nullptr ? AesStrategy() : *known);
}

void DialogFixture::loadDocument(const QVariantList& document, const QString& code)
{
    dialog->CreateStrategyInitWidget(AesStrategy(code, code, small_market::toJson(document), "algo"_s));
}

void DialogFixture::chooseAlgoType(const QString& code)
{
    algoTypes().setCurrentIndex(algoTypes().findData(code));
}

QList<HostJournal::Call> DialogFixture::callsOf(const char* operation)
{
    return host->journal().callsOf(QString::fromLatin1(operation));
}

QString DialogFixture::writeFile(const QByteArray& bytes, const QString& name)
{
    const QString path = folder.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    file.write(bytes);
    return path;
}

QString DialogFixture::writeCsv(const QList<QStringList>& rows, const QString& name)
{
    QByteArray bytes;
    for (const QStringList& row : rows) {
        QStringList cells;
        for (const QString& text : row) {
            cells.append(csvCell(text));
        }
        bytes += cells.join(QLatin1Char(',')).toUtf8() + "\r\n";
    }
    return writeFile(bytes, name);
}

void DialogFixture::importFile(const QString& path)
{
    prompts.setFileToOpen(path);
    button("btn_import").click();
}

void DialogFixture::importRows(const QList<QStringList>& rows)
{
    importFile(writeCsv(rows));
}

QString DialogFixture::cell(int row, const QString& column, const QString& role)
{
    const int index = table().headNames().indexOf(column);
    return table().getViewData().value(row).value(index).value(role).toString();
}

QString DialogFixture::shown(int row, const QString& column)
{
    return cell(row, column, QStringLiteral("0"));
}

QString DialogFixture::value(int row, const QString& column)
{
    return cell(row, column, QStringLiteral("256"));
}

QVariantMap DialogFixture::leg(int instance, int k)
{
    const QVariantMap map = dialog->getWidgetData().value(instance);
    return map.value(Algo_Values::AlgoParamId::AlgoSecurityList).toList().value(k).toMap();
}

QString DialogFixture::lastBoxText() const
{
    return prompts.boxes().isEmpty() ? QString() : prompts.boxes().last().text;
}
