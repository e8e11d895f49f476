#pragma once

#include "table/Outcome.h"

#include <QList>
#include <QString>

namespace ledger {

/// Where a ledger is: a file on this machine, or a database on a server.
///
///     Address::parse("/home/trader/ledger.sqlite")
///     Address::parse("postgresql://trader@db1:5432,db2/desk")
struct Address {
    struct Host {
        QString name; ///< as libpq takes it: a name, an address, the folder of a socket
        int port = 0; ///< 0: the server's usual one
    };

    enum class Kind { File, Server };

    Kind kind = Kind::File;
    QString path;      ///< of a file
    QString user;      ///< of a server; empty: the system's user
    QList<Host> hosts; ///< whichever of them takes writes
    QString database;

    /// An address with a password in it is refused: a command line is read by everyone on the machine.
    static Outcome<Address> parse(const QString& text);
    static Address ofFile(const QString& path);

    /// As a message names it: the path, or the address without anything secret.
    QString shown() const;
};

} // namespace ledger
