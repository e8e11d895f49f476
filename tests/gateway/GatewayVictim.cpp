#include "gateway/program/Gateway.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <atomic>
#include <csignal>
#include <cstdio>

namespace {

/// Dies behind a step of the hand-off: the one that KILL_AT_STEP counts from 1; 0: behind none.
void dieAtStep(const char*)
{
    static std::atomic<int> left{qEnvironmentVariableIntValue("KILL_AT_STEP")};
    if (left > 0 && --left == 0) {
        std::raise(SIGKILL);
    }
}

gateway::FolderOptions handOffThrough(const QString& folder)
{
    gateway::FolderOptions options;
    options.path = folder;
    options.quiet = std::chrono::milliseconds(200);
    options.onStep = dieAtStep;
    return options;
}

} // namespace

/// The gateway as a process that a test can kill: CONFIG PROFILE LEDGER ORDERS_PER_SECOND; with a folder for
/// CONFIG by files.
int main(int argc, char** argv)
{
    gateway::isAskedToEndBySignal();
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false\n*.warning=false"));
    QFile out;
    QFile err;
    if (arguments.size() != 5 || !out.open(stdout, QIODevice::WriteOnly) ||
        !err.open(stderr, QIODevice::WriteOnly)) {
        return gateway::Refused;
    }
    gateway::GatewayOptions options;
    if (QFileInfo(arguments.at(1)).isDir()) {
        options.handOff = handOffThrough(arguments.at(1));
    } else {
        options.settingsFile = arguments.at(1);
    }
    options.profileFile = arguments.at(2);
    options.ledger = ledger::Address::parse(arguments.at(3)).value;
    options.dictionaryFolder = QStringLiteral(DICTIONARIES);
    options.isAskedToEnd = gateway::isAskedToEndBySignal;
    if (arguments.at(4) != QLatin1String("0")) {
        ledger::LimitScope scope;
        scope.account = QStringLiteral("80010001");
        scope.limits.ordersPerSecond = ledger::Decimal::fromText(arguments.at(4));
        options.limits.append(scope);
    }
    return gateway::run(options, out, err);
}
