#pragma once

#include "desk/verdict/Desk.h"
#include "ledger/Ledger.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

/// Where the desk writes its batches, and the ceilings that it holds them against.
struct DeskBooks {
    std::shared_ptr<ledger::Ledger> ledger; ///< null: nothing can be created
    ledger::Address address;                ///< where it is
    QString home;                           ///< keeps the ids of attempts to create
    QString ledgerError;                    ///< why there is none, for the user; empty with a ledger
    verdict::Desk desk;
    ledger::Clock clock; ///< by which orders are late or early; null: the system's
};

/// A ledger, the home beside it and the ceilings of a reference data folder. A ledger that cannot be opened
/// leaves the desk usable; faulty ceilings do not: nothing is returned, and `error` says "FILE:LINE: what is
/// wrong".
std::optional<DeskBooks> openDeskBooks(const ledger::Address& ledger, const QString& home,
                                       const QString& dataFolder, QString& error);
