#include "tests/runner/RunnerTest.h"

#include "tests/ledger/LedgerPlace.h"
#include "tests/support/SchemaCheck.h"

#include <QDir>
#include <QFile>
#include <QProcessEnvironment>

namespace {

const char Markets[] = "exchange,name,post,codeLength,aliases\n"
                       "SH,上海,SH,6,沪市\nSZ,深圳,SZ,6,\nHKSH,沪港通,HK,5,\n";
const char Securities[] = "symbol,code,name,post,exchanges,subType,dispFactor\n"
                          "600000.SH,600000,样本甲,SH,SH,,\n000001.SZ,000001,样本乙,SZ,SZ,,100\n"
                          "00700.HK,00700,样本丙,HK,HKSH,HK_MAIN,\n";
const char Accounts[] = "tradingAccount,name,fundAccountType,assetProp,sysNodeId\n"
                        "A1,甲户,Cash,,node-1\nA2,乙户,Credit,,node-2\n";
const char SecurityAccounts[] =
    "tradingAccount,exchange,securityAccount\nA1,SH,S1\nA1,SZ,Z1\nA1,HKSH,H1\nA2,SH,S2\n";
const char Quotes[] = "symbol,LastPx,MaxPx,PreClosePx\n600000.SH,10,11,9.9\n000001.SZ,20,22,\n";

QByteArray parameter(const char* name, const QByteArray& more)
{
    return QByteArray(R"({"paramName":")") + name + R"(","paramId":")" + name + R"(",)" + more + "}";
}

QByteArray document(const QByteArray& extra)
{
    const QByteArray line = R"("ui":"LineEdit")";
    const QByteArray directions =
        R"("ui":"ComboBox","required":true,"options":[{"display":"买入","value":"Buy"},{"display":"卖出","value":"Sell"}])";
    const QByteArray properties =
        R"("ui":"ComboBox","options":[{"display":"普通交易","value":"0"},{"display":"信用交易","value":"9"}])";
    return R"([{"ui":"Table","columns":[)" + parameter("证券代码", line) + "," + parameter("委托数量", line) +
           "]}," + parameter("交易方向", directions) + "," + parameter("委托属性", properties) + extra + "]";
}

/// Direction, entrust property and limit of each of two legs.
QByteArray lockDocument()
{
    const QByteArray line = R"("ui":"LineEdit")";
    const QByteArray directions =
        R"("ui":"ComboBox","options":[{"display":"买入","value":"Buy"},{"display":"卖出","value":"Sell"}])";
    const QByteArray properties = R"("ui":"ComboBox","options":[{"display":"普通交易","value":"0"}])";
    return R"([{"ui":"Table","columns":[)" + parameter("证券代码", line) + "," + parameter("委托数量", line) +
           "," + parameter("交易方向", directions) + "," + parameter("委托属性", properties) + "," +
           parameter("委托限价", line) + "]}]";
}

QByteArray strategy(const char* name, const QByteArray& paramFormats, const char* globalType = "algo")
{
    return QByteArray(R"({"name":")") + name + R"(","alias":"策略)" + name + R"(","globalType":")" +
           globalType + R"(","paramFormats":)" + paramFormats + "}";
}

QByteArray strategies()
{
    const QByteArray sealing = "," + parameter("封单金额", R"("ui":"LineEdit")");
    return "[" + strategy("AITWAP", document("")) + "," + strategy("AILOCK", lockDocument()) + "," +
           strategy("KF_TWAPPLUS", document("")) + "," + strategy("PursueHighLimit", document(sealing)) +
           "," + strategy("OTHER", document(""), "manual") + "," + strategy("BROKEN", R"("[{")") + "]";
}

} // namespace

void RunnerTest::SetUp()
{
    ASSERT_TRUE(QDir(mFolder.path()).mkpath("data"_s));
    writeData("markets.csv"_s, Markets);
    writeData("securities.csv"_s, Securities);
    writeData("accounts.csv"_s, Accounts);
    writeData("security_accounts.csv"_s, SecurityAccounts);
    writeData("quotes.csv"_s, Quotes);
    writeData("strategies.json"_s, strategies());
}

void RunnerTest::prepare(QProcess& process, const QMap<QString, QString>& environment) const
{
    QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
    for (const QString& name :
         {"QT_LOGGING_RULES"_s, "QT_QPA_PLATFORM"_s, "XDG_RUNTIME_DIR"_s, "XDG_CONFIG_HOME"_s,
          "XDG_DATA_HOME"_s, "XDG_CACHE_HOME"_s, "ALGODESK_LEDGER"_s, "ALGODESK_LANGUAGE"_s}) {
        all.remove(name);
    }
    all.insert("HOME"_s, mFolder.path());
    const ledger::Address place = ledgerPlace(home(), QString());
    if (place.kind == ledger::Address::Kind::Server) {
        all.insert("ALGODESK_LEDGER"_s, place.shown());
    }
    for (auto entry = environment.constBegin(); entry != environment.constEnd(); ++entry) {
        all.insert(entry.key(), entry.value());
    }
    process.setProcessEnvironment(all);
    process.setWorkingDirectory(mFolder.path());
    process.setProgram(QStringLiteral(ALGODESK));
}

RunnerTest::Run RunnerTest::finish(QProcess& process)
{
    EXPECT_TRUE(process.waitForFinished(60000)) << process.errorString().toStdString();
    EXPECT_EQ(QProcess::NormalExit, process.exitStatus());
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

RunnerTest::Run RunnerTest::run(const QStringList& arguments, const QMap<QString, QString>& environment)
{
    QProcess process;
    prepare(process, environment);
    process.setArguments(arguments);
    process.start(QIODevice::ReadOnly);
    return finish(process);
}

QStringList RunnerTest::aitwap()
{
    return {"--strategy"_s, "AITWAP"_s, "--account"_s, "A1"_s};
}

QStringList RunnerTest::importArguments(const QString& file, const QStringList& more) const
{
    return QStringList{"import"_s, file, "--data"_s, dataFolder(), "--home"_s, home()} + more;
}

RunnerTest::Run RunnerTest::import(const QString& file, const QStringList& more)
{
    return run(importArguments(file, more));
}

RunnerTest::Run RunnerTest::create(const QString& file, const QStringList& more)
{
    return import(file, aitwap() + QStringList{"--confirm"_s, "--create"_s} + more);
}

QJsonObject RunnerTest::creation(const Run& created)
{
    return created.object()["creation"_s].toObject();
}

void RunnerTest::expectValid(const QJsonValue& value, const QString& schema)
{
    const QStringList faults = faultsBySchema(value, schema);
    EXPECT_TRUE(faults.isEmpty()) << schema.toStdString() << faults.join("\n"_s).toStdString();
}

QString RunnerTest::writeData(const QString& name, const QByteArray& bytes)
{
    return write("data/"_s + name, bytes);
}

QString RunnerTest::write(const QString& name, const QByteArray& bytes)
{
    const QString path = mFolder.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
    return path;
}

QString RunnerTest::table(const QByteArray& rows, const QString& name)
{
    return write(name, "证券代码,市场,委托数量,交易方向,委托属性,创建后是否立即启动\n" + rows);
}

void RunnerTest::expectRefused(const Run& run, const QString& text)
{
    EXPECT_EQ(2, run.status);
    EXPECT_EQ(QByteArray(), run.out);
    EXPECT_TRUE(QString::fromUtf8(run.err).contains(text))
        << run.err.constData() << "lacks " << text.toStdString();
    EXPECT_EQ(1, run.err.count('\n')) << run.err.constData();
}
