#include "gateway/program/Gateway.h"

#include "gateway/handoff/OrderSheet.h"
#include "gateway/messages/OrderMessages.h"
#include "gateway/port/LedgerOutbox.h"
#include "gateway/program/Dispatch.h"
#include "words/Words.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>

#include <csignal>

namespace gateway {

namespace {

volatile std::sig_atomic_t endAsked = 0;

void askToEnd(int)
{
    endAsked = 1;
}

int complain(QIODevice& err, int status, const QString& error)
{
    err.write(error.toUtf8() + '\n');
    return status;
}

QStringList accountsOf(const Profile& profile)
{
    return profile.accounts.isEmpty() ? QStringList{QStringLiteral("*")} : profile.accounts;
}

bool isByFiles(const GatewayOptions& options)
{
    return !options.handOff.path.isEmpty();
}

/// The profile, as far as it fits the way on which the orders go.
Outcome<Profile> profileFor(const GatewayOptions& options)
{
    Outcome<Profile> profile = loadProfile(options.profileFile);
    const QString clashes = profile.ok() && isByFiles(options) ? clashesIn(profile.value) : QString();
    if (!clashes.isEmpty()) {
        profile.error = Words::tr("“%1”：%2").arg(options.profileFile, clashes);
    }
    return profile;
}

/// The ceiling of a scope, rounded down; 0: none.
int perSecond(const ledger::LimitScope& scope)
{
    return scope.limits.ordersPerSecond ? static_cast<int>(scope.limits.ordersPerSecond->toDouble()) : 0;
}

Dispatch::Terms termsOf(const GatewayOptions& options, const Profile& profile)
{
    Dispatch::Terms terms;
    terms.profile = profile;
    // A folder engine answers for a counterparty that does not, and knows what never left.
    terms.profile.statusRequest = profile.statusRequest || isByFiles(options);
    terms.isAskedToEnd = options.isAskedToEnd;
    for (const ledger::LimitScope& scope : options.limits) {
        const int ceiling = perSecond(scope);
        int& known = scope.account == QLatin1String("*") ? terms.ordersPerSecondInAll
                                                         : terms.ordersPerSecond[scope.account];
        known = ceiling > 0 && (known == 0 || ceiling < known) ? ceiling : known;
    }
    return terms;
}

std::unique_ptr<Engine> openFolder(const GatewayOptions& options, const Profile& profile, Inbox& inbox)
{
    FolderOptions handOff = options.handOff;
    handOff.asksCounterparty = profile.statusRequest;
    return std::make_unique<FolderEngine>(handOff, inbox);
}

std::unique_ptr<Engine> openSession(const GatewayOptions& options, Inbox& inbox, QString& error)
{
    Engine::Options engine;
    engine.settingsFile = options.settingsFile.toStdString();
    engine.dictionaryFolder = options.dictionaryFolder.toStdString();
    engine.storeFolder = options.storeFolder.toStdString();
    engine.resetsSequence = options.resetsSequence;
    std::string fault;
    std::unique_ptr<Engine> opened = Engine::open(engine, inbox, fault);
    if (!opened) {
        error = Words::tr("“%1”：%2").arg(options.settingsFile, QString::fromStdString(fault));
    }
    return opened;
}

Outcome<std::unique_ptr<ledger::Outbox>> claim(const std::shared_ptr<ledger::Ledger>& ledger,
                                               const Profile& profile, const Engine& engine, bool& isServed)
{
    ledger::Gateway self;
    self.session = QString::fromStdString(engine.session());
    self.accounts = accountsOf(profile);
    self.host = QSysInfo::machineHostName();
    self.pid = QCoreApplication::applicationPid();
    self.state = QStringLiteral("disconnected");
    return ledger::Outbox::claim(ledger, self, &isServed);
}

int serve(const GatewayOptions& options, const Profile& profile, LedgerPort& port, Engine& engine,
          Inbox& inbox, QIODevice& out, QIODevice& err)
{
    Printer printer(out);
    Dispatch dispatch(termsOf(options, profile), port, engine, inbox, printer);
    const Outcome<void> begun = dispatch.begin();
    if (!begun.ok()) {
        return complain(err, Refused, begun.error);
    }
    const std::string fault = engine.start();
    if (!fault.empty()) {
        return complain(err, Refused, QString::fromStdString(fault));
    }
    dispatch.run();
    engine.stop();
    dispatch.finish(); // what came while it said goodbye
    return Ended;
}

/// The message as it would go out.
void show(const Message& message, bool byFiles, QJsonObject& line)
{
    if (byFiles) {
        line.insert(QStringLiteral("file"), sheetName(message));
        line.insert(QStringLiteral("content"), QString::fromUtf8(sheetOf(message)));
    } else {
        line.insert(QStringLiteral("message"), QString::fromStdString(lineOf(message, '|')));
    }
}

} // namespace

bool isAskedToEndBySignal()
{
    static const bool isInstalled = [] {
        std::signal(SIGTERM, askToEnd);
        std::signal(SIGINT, askToEnd);
        std::signal(SIGPIPE, SIG_IGN);
        return true;
    }();
    return isInstalled && endAsked != 0;
}

int run(const GatewayOptions& options, QIODevice& out, QIODevice& err)
{
    const Outcome<Profile> profile = profileFor(options);
    if (!profile.ok()) {
        return complain(err, Refused, profile.error);
    }
    Inbox inbox;
    QString fault;
    const std::unique_ptr<Engine> engine =
        isByFiles(options) ? openFolder(options, profile.value, inbox) : openSession(options, inbox, fault);
    if (!engine) {
        return complain(err, Refused, fault);
    }
    const auto opened = ledger::Ledger::open(options.ledger);
    if (!opened.ok()) {
        return complain(err, Refused, opened.error);
    }
    bool isServed = false;
    auto claimed = claim(opened.value, profile.value, *engine, isServed);
    if (!claimed.ok()) {
        return complain(err, isServed ? Served : Refused, claimed.error);
    }
    LedgerOutbox port(opened.value, std::move(claimed.value));
    return serve(options, profile.value, port, *engine, inbox, out, err);
}

int dryRun(const GatewayOptions& options, qint64 batch, QIODevice& out, QIODevice& err)
{
    const Outcome<Profile> profile = profileFor(options);
    if (!profile.ok()) {
        return complain(err, Refused, profile.error);
    }
    ledger::Ledger::Options reading;
    reading.access = ledger::Ledger::Access::Read;
    const auto opened = ledger::Ledger::open(options.ledger, reading);
    if (!opened.ok()) {
        return complain(err, Refused, opened.error);
    }
    LedgerOutbox port(opened.value, nullptr);
    const Outcome<QList<Order>> orders = port.ordersOf(batch);
    if (!orders.ok()) {
        return complain(err, Refused, orders.error);
    }
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const QHash<int, QString> refusals = refusalsOf(profile.value, orders.value, now);
    for (const Order& order : orders.value) {
        QJsonObject line = {{QStringLiteral("id"), InstanceKey{batch, order.row}.text()},
                            {QStringLiteral("clOrdId"), clOrdIdOf(order)}};
        if (refusals.contains(order.row)) {
            line.insert(QStringLiteral("reason"), refusals.value(order.row));
        } else {
            show(newOrder(profile.value, order, now).value, isByFiles(options), line);
        }
        out.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
    }
    return Ended;
}

int forget(const GatewayOptions& options, QIODevice& err)
{
    const Outcome<Profile> profile = loadProfile(options.profileFile);
    if (!profile.ok()) {
        return complain(err, Refused, profile.error);
    }
    const auto opened = ledger::Ledger::open(options.ledger);
    if (!opened.ok()) {
        return complain(err, Refused, opened.error);
    }
    bool isServed = false;
    const Outcome<void> forgotten =
        ledger::Outbox::forget(*opened.value, accountsOf(profile.value), &isServed);
    return forgotten.ok() ? static_cast<int>(Ended)
                          : complain(err, isServed ? Served : Refused, forgotten.error);
}

} // namespace gateway
