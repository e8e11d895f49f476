#include "desk/demo/DemoFiles.h"

#include "embedded_host/reference_data/CalendarFile.h"
#include "files/Save.h"
#include "words/Words.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QDir>
#include <QFile>

namespace demo {

namespace {

constexpr int ShanghaiOffset = 8 * 3600;
constexpr int LongestHoliday = 30; // days
const QTime Opening(9, 30);
const QByteArray DayOfTheSample("2026-11-23");
const QString Exchange = QStringLiteral("SH");

/// Both sides forget their sequence numbers between two demonstrations.
QByteArray settingsOf(const char* role, const char* self, const char* other, const QByteArray& place)
{
    return QByteArray("[DEFAULT]\nConnectionType=") + role +
           "\nReconnectInterval=1\nHeartBtInt=30\nResetOnLogon=Y\nStartTime=00:00:00\nEndTime=00:00:00\n"
           "SocketReuseAddress=Y\n[SESSION]\nBeginString=FIX.4.4\nSenderCompID=" +
           self + "\nTargetCompID=" + other + '\n' + place;
}

Outcome<QByteArray> read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly)
               ? Outcome<QByteArray>{file.readAll(), QString()}
               : Outcome<QByteArray>{{}, Words::tr("无法读取“%1”：%2").arg(path, file.errorString())};
}

Outcome<void> save(const QString& path, const QByteArray& text)
{
    const Outcome<void> saved = files::save(path, text);
    return {saved.ok() ? QString() : files::cannotWrite(path, saved.error)};
}

QByteArray dated(QByteArray orders, const QDate& day)
{
    return orders.replace(DayOfTheSample, day.toString(Qt::ISODate).toLatin1());
}

} // namespace

int freePort()
{
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* place = reinterpret_cast<sockaddr*>(&address);
    const bool isBound = ::bind(socket, place, length) == 0 && ::getsockname(socket, place, &length) == 0;
    ::close(socket);
    return isBound ? ntohs(address.sin_port) : 0;
}

Outcome<QDate> nextTradingDay(const QString& referenceData, const QDateTime& now)
{
    const Outcome<Calendar> calendar = readCalendar(referenceData);
    if (!calendar.ok()) {
        return {{}, calendar.error};
    }
    const QDateTime local = now.toOffsetFromUtc(ShanghaiOffset);
    QDate day = local.time() < Opening ? local.date() : local.date().addDays(1);
    for (int i = 0; i < LongestHoliday && calendar.value.day(Exchange, day).state == Calendar::State::Closed;
         ++i) {
        day = day.addDays(1);
    }
    return {day, QString()};
}

Outcome<Files> writeFiles(const QString& home, const QString& share, int port, const QDateTime& now)
{
    const QDir folder(home);
    const Files files = {
        folder.filePath(QStringLiteral("broker.cfg")), folder.filePath(QStringLiteral("desk.cfg")),
        folder.filePath(QStringLiteral("profile.json")), folder.filePath(QStringLiteral("demo.csv"))};
    const QString samples = share + QStringLiteral("/samples/gateway/");
    const Outcome<QByteArray> profile = read(samples + QStringLiteral("broker-4.4.json"));
    const Outcome<QByteArray> orders = read(samples + QStringLiteral("demo.csv"));
    const Outcome<QDate> day = nextTradingDay(share + QStringLiteral("/reference_data"), now);
    const QByteArray number = QByteArray::number(port) + '\n';
    QString error = profile.error + orders.error + day.error;
    for (const auto& file :
         {qMakePair(files.brokerSettings,
                    settingsOf("acceptor", "BROKER", "DESK", "SocketAcceptPort=" + number)),
          qMakePair(files.deskSettings,
                    settingsOf("initiator", "DESK", "BROKER",
                               "SocketConnectHost=127.0.0.1\nSocketConnectPort=" + number)),
          qMakePair(files.profile, profile.value), qMakePair(files.orders, dated(orders.value, day.value))}) {
        error = error.isEmpty() ? save(file.first, file.second).error : error;
    }
    return {files, error};
}

} // namespace demo
