// All that is PostgreSQL's own about the ledger, but for the rules in postgres/.

#include "ledger/store/PostgresStore.h"

#include "ledger/LedgerTexts.h"
#include "ledger/store/LedgerLog.h"
#include "ledger/store/postgres/ServerTexts.h"
#include "ledger/store/Schema.h"
#include "ledger/store/Statements.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSqlDriver>
#include <QSysInfo>
#include <QThread>
#include <QUuid>

namespace ledger {

namespace {

/// The advisory lock that every change holds. Its key is a number that nobody else uses.
constexpr qint64 ChangeLock = 0x4142494C00000001;

const QString Channel = QStringLiteral("algodesk_ledger");
/// A client that stops in the middle of a change holds up the others for so long.
constexpr int IdleSeconds = 30;
/// A commit without an answer is asked about for so long, while the server restarts or another takes over.
constexpr int SettleSeconds = 60;
constexpr int LongestPauseMs = 2000;

bool isOneOf(const QString& code, std::initializer_list<const char*> codes)
{
    for (const char* known : codes) {
        if (code == QLatin1String(known)) {
            return true;
        }
    }
    return false;
}

/// By the server's word the session is over, or the server takes no writes any more.
bool endsSession(const QString& code)
{
    return code.startsWith(QLatin1String("08")) ||
           isOneOf(code, {"57P01", "57P02", "57P03", "57P05", "25P03", "25006"});
}

QString codeOf(const QSqlError& error)
{
    return error.nativeErrorCode();
}

/// A value of libpq's connection string.
QString quoted(QString value)
{
    value.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\''), QLatin1String("\\'"));
    return QLatin1Char('\'') + value.replace(QLatin1Char(';'), QLatin1Char('_')) + QLatin1Char('\'');
}

/// As the server lists this program.
QString applicationName()
{
    return QStringLiteral("%1 %2 (%3 %4)")
        .arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion(),
             QSysInfo::machineHostName())
        .arg(QCoreApplication::applicationPid())
        .simplified();
}

} // namespace

PostgresStore::PostgresStore(const Address& address, const Settings& settings)
    : mAddress(address), mSettings(settings), mConnection(QUuid::createUuid().toString())
{
}

PostgresStore::~PostgresStore()
{
    disconnect();
}

QSqlDatabase PostgresStore::database() const
{
    return QSqlDatabase::database(mConnection, false);
}

void PostgresStore::disconnect()
{
    if (QSqlDatabase::contains(mConnection)) {
        QSqlDatabase::database(mConnection, false).close();
        QSqlDatabase::removeDatabase(mConnection);
    }
    mPrepared.clear();
}

/// Runs statements that have no values, one or several at once, and reads all their answers: the first error
/// is the script's.
QSqlError PostgresStore::run(const QString& script) const
{
    if (!database().isOpen()) {
        return QSqlError(QString(), QStringLiteral("not connected"), QSqlError::ConnectionError);
    }
    QSqlQuery query(database());
    if (!query.exec(script)) {
        return query.lastError();
    }
    while (query.nextResult()) {
    }
    return query.lastError();
}

/// A server that vanished without a word is noticed within half a minute, and not after hours.
QString PostgresStore::connectOptions() const
{
    QStringList options{
        QStringLiteral("connect_timeout=%1").arg(qMax(2, mSettings.waitSeconds)),
        QStringLiteral("target_session_attrs=read-write"),
        QStringLiteral("application_name=") + quoted(applicationName()),
        QStringLiteral("keepalives_idle=10;keepalives_interval=5;keepalives_count=3;tcp_user_timeout=20000"),
        QStringLiteral("options='-c idle_in_transaction_session_timeout=%1s -c search_path=public,pg_temp -c "
                       "client_min_messages=error'")
            .arg(IdleSeconds)};
    QStringList ports;
    bool hasPorts = false;
    for (const Address::Host& host : mAddress.hosts) {
        ports.append(host.port > 0 ? QString::number(host.port) : QString());
        hasPorts = hasPorts || host.port > 0;
    }
    if (hasPorts) {
        options.append(QStringLiteral("port=") + quoted(ports.join(QLatin1Char(','))));
    }
    return options.join(QLatin1Char(';'));
}

QString PostgresStore::connect()
{
    disconnect();
    QStringList hosts;
    for (const Address::Host& host : mAddress.hosts) {
        QString name = host.name;
        hosts.append(name.remove(QLatin1Char('[')).remove(QLatin1Char(']')));
    }
    QSqlDatabase opened = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), mConnection);
    if (!opened.isValid()) {
        return texts::noServerDriver();
    }
    opened.setConnectOptions(connectOptions());
    opened.setHostName(hosts.join(QLatin1Char(',')));
    opened.setDatabaseName(mAddress.database);
    opened.setUserName(mAddress.user);
    // numbers come as the digits that the server holds
    opened.setNumericalPrecisionPolicy(QSql::HighPrecision);
    if (!opened.open()) {
        qCInfo(lcLedger) << name() << opened.lastError().text();
        return texts::unreachableServer(name());
    }
    Statements statements(opened);
    QSqlQuery session =
        statements.select(QStringLiteral("SELECT session_user::text, pg_backend_pid(), backend_start::text "
                                         "FROM pg_stat_activity WHERE pid = pg_backend_pid()"));
    if (!statements.next(session)) {
        return sentenceFor(statements.error());
    }
    mUser = session.value(0).toString();
    mSession = session.value(1).toLongLong();
    mSessionStarted = session.value(2).toString();
    return QString();
}

QString PostgresStore::open()
{
    QString fault = connect();
    if (fault.isEmpty()) {
        fault = inspect();
    }
    if (fault.isEmpty() && !mClaimed.isEmpty()) {
        const QString holder = takeLocks(mClaimed);
        fault = holder.isEmpty() ? QString() : texts::accountsServed(holder);
    }
    subscribe();
    return fault;
}

QString PostgresStore::inspect()
{
    Statements statements(database());
    const bool isMade =
        statements.single(QStringLiteral("SELECT to_regclass('public.ledger_number') IS NOT NULL")).toBool();
    if (!statements.failed() && !isMade) {
        return texts::emptyServer(name());
    }
    const qint64 version =
        statements.single(QStringLiteral("SELECT value FROM ledger_number WHERE name = 'schema_version'"))
            .toLongLong();
    if (statements.failed()) {
        return sentenceFor(statements.error());
    }
    if (version > schemaVersion()) {
        return texts::newerServer(name(), version, schemaVersion());
    }
    return version < schemaVersion() ? texts::olderServer(name(), version) : QString();
}

QSqlError PostgresStore::begin(Begin kind)
{
    const QString script =
        kind == Begin::Read
            // one state, however many statements look at it
            ? QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY")
            : QStringLiteral("BEGIN ISOLATION LEVEL READ COMMITTED; SET LOCAL lock_timeout = '%1s'; "
                             "SELECT pg_advisory_xact_lock(%2)")
                  .arg(qMax(1, mSettings.waitSeconds))
                  .arg(ChangeLock);
    const QSqlError error = run(script);
    if (!error.isValid() || failureOf(error) != Failure::Lost) {
        return error;
    }
    // nothing has begun: a connection that was lost meanwhile is made anew
    return open().isEmpty() ? run(script) : error;
}

/// What is checked at the end of a transaction is checked before the commit, whose answer then says nothing
/// but whether it stands.
QSqlError PostgresStore::commit()
{
    const QSqlError refused = run(QStringLiteral("SET CONSTRAINTS ALL IMMEDIATE"));
    if (refused.isValid()) {
        return refused;
    }
    QSqlDatabase connection = database();
    // the driver sees a COMMIT that the server answered by ROLLBACK
    return connection.driver()->commitTransaction() ? QSqlError() : connection.lastError();
}

void PostgresStore::rollback()
{
    run(QStringLiteral("ROLLBACK"));
}

Store::Failure PostgresStore::failureOf(const QSqlError& error) const
{
    const QString code = codeOf(error);
    if (isOneOf(code, {"40001", "40P01"})) {
        return Failure::Conflict;
    }
    return endsSession(code) || (code.isEmpty() && !isAlive()) ? Failure::Lost : Failure::Final;
}

/// An error without a code of the server is the driver's. Only an answer shows that the connection is there:
/// what the driver believes is what it knew before. In a failed transaction the answer is an error, too.
bool PostgresStore::isAlive() const
{
    const QSqlError error = run(QStringLiteral("SELECT 1"));
    return !error.isValid() || (!codeOf(error).isEmpty() && !endsSession(codeOf(error)));
}

/// A session whose COMMIT is still under way would decide behind our back: it is ended, and has let go of the
/// lock before anything is read.
void PostgresStore::endSession(qint64 process, const QString& started) const
{
    Statements(database())
        .single(QStringLiteral("SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
                               "WHERE pid = ? AND backend_start::text = ? AND pid <> pg_backend_pid()"),
                {process, started});
}

/// A small change behind the one in question: once it is durable, on a standby too where one is waited for,
/// so is everything before it.
QString PostgresStore::settleOnce(qint64 process, const QString& started)
{
    const QString fault = open();
    if (!fault.isEmpty()) {
        return fault;
    }
    endSession(process, started);
    QSqlError error = begin(Begin::Write);
    if (!error.isValid()) {
        error = run(QStringLiteral("UPDATE ledger_number SET value = value + 1 WHERE name = 'last_settled'"));
    }
    if (!error.isValid()) {
        error = commit();
    }
    if (error.isValid()) {
        rollback();
    }
    return error.isValid() ? sentenceFor(error) : QString();
}

QString PostgresStore::settle()
{
    const qint64 process = mSession;
    const QString started = mSessionStarted;
    QElapsedTimer watch;
    watch.start();
    QString fault = settleOnce(process, started);
    for (int pause = 50; !fault.isEmpty() && watch.elapsed() < SettleSeconds * 1000; pause *= 2) {
        QThread::msleep(static_cast<unsigned long>(qMin(pause, LongestPauseMs)));
        fault = settleOnce(process, started);
    }
    return fault;
}

/// Arrives with the commit.
void PostgresStore::notify()
{
    run(QStringLiteral("NOTIFY ") + Channel);
}

bool PostgresStore::listen(const std::function<void()>& changed)
{
    mChanged = changed;
    return subscribe();
}

/// Again after every connecting; what came between is found by whoever asks now and then.
bool PostgresStore::subscribe()
{
    if (!mChanged || !database().isOpen()) {
        return false;
    }
    QSqlDriver* driver = database().driver();
    QObject::connect(
        driver,
        qOverload<const QString&, QSqlDriver::NotificationSource, const QVariant&>(&QSqlDriver::notification),
        driver, [this] { mChanged(); });
    return driver->subscribeToNotification(Channel);
}

} // namespace ledger
