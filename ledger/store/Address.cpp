#include "ledger/store/Address.h"

#include "ledger/LedgerTexts.h"

#include <QDir>
#include <QRegularExpression>

namespace ledger {

namespace {

const QString Scheme = QStringLiteral("postgresql://");
constexpr int MostPort = 65535;

/// A host with its port; nothing where it is none. One in square brackets is an IPv6 address.
bool takeHost(const QString& text, Address::Host& host)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(\\[[0-9A-Fa-f:.]+\\]|[^:\\[\\]]*)(?::(\\d+))?$"));
    const QRegularExpressionMatch match = pattern.match(text);
    host.name = match.captured(1);
    host.port = match.captured(2).toInt();
    const bool hasSoundPort = match.captured(2).isEmpty() || (host.port > 0 && host.port <= MostPort);
    return match.hasMatch() && hasSoundPort && !host.name.isEmpty();
}

Outcome<Address> parseServer(const QString& text)
{
    Address address;
    address.kind = Address::Kind::Server;
    QString rest = text.mid(Scheme.size());
    const int at = rest.lastIndexOf(QLatin1Char('@'));
    address.user = rest.left(qMax(at, 0));
    if (address.user.contains(QLatin1Char(':'))) {
        return {{}, texts::passwordInAddress()};
    }
    rest = rest.mid(at + 1);
    const int slash = rest.indexOf(QLatin1Char('/'));
    address.database = slash < 0 ? QString() : rest.mid(slash + 1);
    const QString lowered = address.database.toLower();
    if (lowered.contains(QLatin1String("password="))) {
        return {{}, texts::passwordInAddress()};
    }
    const bool hasDatabase = !address.database.isEmpty() && !lowered.contains(QLatin1Char('/')) &&
                             !lowered.contains(QLatin1Char('?'));
    bool isSound = hasDatabase;
    for (const QString& part : rest.left(qMax(slash, 0)).split(QLatin1Char(','))) {
        Address::Host host;
        isSound = takeHost(part, host) && isSound;
        address.hosts.append(host);
    }
    return isSound ? Outcome<Address>{address, QString()} : Outcome<Address>{{}, texts::wrongAddress()};
}

} // namespace

Outcome<Address> Address::parse(const QString& text)
{
    if (text.startsWith(Scheme) || text.startsWith(QLatin1String("postgres://"))) {
        return parseServer(
            text.startsWith(Scheme) ? text : Scheme + text.mid(text.indexOf(QLatin1String("//")) + 2));
    }
    if (text.trimmed().isEmpty() || text.contains(QLatin1String("://"))) {
        return {{}, texts::wrongAddress()};
    }
    return {ofFile(text), QString()};
}

Address Address::ofFile(const QString& path)
{
    Address address;
    // a name such as ":memory:" or "file:x" means something else to SQLite: a path from the root never does
    address.path = QDir::cleanPath(QDir::current().absoluteFilePath(path));
    return address;
}

QString Address::shown() const
{
    if (kind == Kind::File) {
        return path;
    }
    QStringList names;
    for (const Host& host : hosts) {
        names.append(host.port > 0 ? QStringLiteral("%1:%2").arg(host.name).arg(host.port) : host.name);
    }
    return Scheme + (user.isEmpty() ? QString() : user + QLatin1Char('@')) + names.join(QLatin1Char(',')) +
           QLatin1Char('/') + database;
}

} // namespace ledger
