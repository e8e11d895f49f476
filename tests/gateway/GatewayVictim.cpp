#include "gateway/program/Gateway.h"

#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>

#include <cstdio>

/// The gateway as a process that a test can kill: CONFIG PROFILE LEDGER ORDERS_PER_SECOND.
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
    options.settingsFile = arguments.at(1);
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
