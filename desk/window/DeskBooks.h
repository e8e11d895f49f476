#pragma once

#include "desk/ledger/Ledger.h"
#include "desk/ledger/Limits.h"

#include <QList>
#include <QString>

#include <memory>

/// Where the desk writes its batches, and the ceilings that it holds them against.
struct DeskBooks {
    std::shared_ptr<ledger::Ledger> ledger; ///< null: nothing can be created
    QString ledgerError;                    ///< why there is none, for the user
    QList<ledger::LimitScope> limits;
};
