#include "desk/demo/Stage.h"

#include "words/Words.h"

#include <signal.h>
#include <sys/prctl.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QThread>

#include <algorithm>

namespace demo {

namespace {

constexpr int MostWait = 20000; // milliseconds, for a program to start or to end
constexpr int PollMs = 50;

const QString Account = QStringLiteral("80010001");

/// Asked to end when its parent does, however that ends.
class Program : public QProcess {
public:
    explicit Program(const QString& name) { setObjectName(name); }

protected:
    void setupChildProcess() override { ::prctl(PR_SET_PDEATHSIG, SIGTERM); }
};

QString fileText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

/// What an import that created nothing says.
QString complaintOf(const QByteArray& out, const QByteArray& err)
{
    return Words::tr("导入失败：%1 %2").arg(QString::fromUtf8(err), QString::fromUtf8(out)).trimmed();
}

} // namespace

Stage::Stage(const Options& options) : mOptions(options) {}

Stage::~Stage()
{
    mLedger.reset();
    for (const auto& program : mPrograms) {
        program->terminate();
    }
    for (const auto& program : mPrograms) {
        if (!program->waitForFinished(MostWait)) {
            program->kill();
            program->waitForFinished();
        }
    }
}

Outcome<void> Stage::makeHome()
{
    if (mOptions.home.isEmpty()) {
        mThrowAway =
            std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/algodesk-demo-XXXXXX"));
        mHome = mThrowAway->path();
        return {mThrowAway->isValid() ? QString() : mThrowAway->errorString()};
    }
    mHome = QDir(mOptions.home).absolutePath();
    return {QDir().mkpath(mHome) ? QString() : Words::tr("无法创建文件夹“%1”").arg(mHome)};
}

void Stage::start(const QString& name, const QStringList& arguments)
{
    auto program = std::make_unique<Program>(name);
    program->setStandardOutputFile(QDir(mHome).filePath(name + QStringLiteral(".log")));
    program->setStandardErrorFile(QDir(mHome).filePath(name + QStringLiteral(".err")));
    program->start(mOptions.program, QStringList{name} + arguments);
    mPrograms.push_back(std::move(program));
}

/// What is said of a program that is not there any more; empty while all are.
QString Stage::programThatEnded() const
{
    for (const auto& program : mPrograms) {
        if (program->waitForFinished(0) || program->state() == QProcess::NotRunning) {
            const QString name = program->objectName();
            return Words::tr("%1 已结束：%2")
                .arg(name, fileText(QDir(mHome).filePath(name + QStringLiteral(".err"))));
        }
    }
    return {};
}

bool Stage::isGatewayLoggedOn() const
{
    const QList<ledger::Gateway> gateways = mLedger->status().value.gateways;
    return std::any_of(gateways.begin(), gateways.end(), [](const ledger::Gateway& gateway) {
        return gateway.state == QLatin1String("loggedOn");
    });
}

Outcome<void> Stage::startPrograms()
{
    mPort = freePort();
    const Outcome<Files> files = writeFiles(mHome, mOptions.share, mPort, QDateTime::currentDateTimeUtc());
    if (!files.ok()) {
        return {files.error};
    }
    mFiles = files.value;
    start(QStringLiteral("simulator"), {QStringLiteral("--config"), mFiles.brokerSettings,
                                        QStringLiteral("--pace"), QString::number(mOptions.pace)});
    start(QStringLiteral("gateway"),
          {QStringLiteral("--config"), mFiles.deskSettings, QStringLiteral("--profile"), mFiles.profile,
           QStringLiteral("--home"), mHome, QStringLiteral("--ledger"), ledger::Ledger::pathIn(mHome)});
    return {};
}

Outcome<void> Stage::open()
{
    Outcome<void> made = makeHome();
    if (!made.ok()) {
        return made;
    }
    const auto opened = ledger::Ledger::open(ledger::Address::ofFile(ledger::Ledger::pathIn(mHome)));
    if (!opened.ok()) {
        return {opened.error};
    }
    mLedger = opened.value;
    made = startPrograms();
    QElapsedTimer waited;
    waited.start();
    while (made.ok() && !isGatewayLoggedOn()) {
        made.error = programThatEnded();
        if (made.ok() && waited.elapsed() > MostWait) {
            made.error = Words::tr("网关没有登录");
        }
        QThread::msleep(PollMs);
    }
    return made;
}

Outcome<qint64> Stage::importOrders()
{
    Program import(QStringLiteral("import"));
    import.start(mOptions.program,
                 {import.objectName(), mFiles.orders, QStringLiteral("--strategy"), QStringLiteral("AITWAP"),
                  QStringLiteral("--account"), Account, QStringLiteral("--home"), mHome,
                  QStringLiteral("--ledger"), ledger::Ledger::pathIn(mHome), QStringLiteral("--confirm"),
                  QStringLiteral("--create"), QStringLiteral("--accept"),
                  QStringLiteral("sameFile,sameFileLately,sameRows")});
    if (!import.waitForFinished(MostWait)) {
        return {0, import.errorString()};
    }
    const QByteArray out = import.readAllStandardOutput();
    const QJsonObject creation = QJsonDocument::fromJson(out).object()[QStringLiteral("creation")].toObject();
    const QJsonValue batch = creation[QStringLiteral("batch")].toObject()[QStringLiteral("number")];
    const bool isMade = import.exitCode() == 0 && batch.toInt() > 0;
    return isMade ? Outcome<qint64>{batch.toInt(), QString()}
                  : Outcome<qint64>{0, complaintOf(out, import.readAllStandardError())};
}

} // namespace demo
