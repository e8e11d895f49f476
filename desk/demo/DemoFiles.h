#pragma once

#include "table/Outcome.h"

#include <QDateTime>
#include <QString>

/// What a demonstration lays down in its home: settings of both sides of a session, a broker's profile, and
/// orders for the next day on which the exchanges trade.
namespace demo {

struct Files {
    QString brokerSettings;
    QString deskSettings;
    QString profile;
    QString orders;
};

/// `share` is the folder of reference data and samples, `port` one that nobody listens on.
Outcome<Files> writeFiles(const QString& home, const QString& share, int port, const QDateTime& now);

/// A port of this machine that was free just now; 0: there is none.
int freePort();

/// The next morning that is still to come on which the exchanges of the sample trade.
Outcome<QDate> nextTradingDay(const QString& referenceData, const QDateTime& now);

} // namespace demo
