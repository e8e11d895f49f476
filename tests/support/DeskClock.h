#pragma once

#include <QByteArray>
#include <QDateTime>

/// While it lives, the whole program believes that it is another time, and that it stands where the exchanges
/// do: the import that fills in what a row leaves out, the guard, the ledger. Timers are not concerned.
///
///     const DeskClock monday("2026-11-23 09:00:00");
class DeskClock {
public:
    /// In Shanghai, as yyyy-MM-dd HH:mm:ss.
    explicit DeskClock(const char* now);
    ~DeskClock();
    DeskClock(const DeskClock&) = delete;
    DeskClock& operator=(const DeskClock&) = delete;

private:
    QByteArray mZone;
};
