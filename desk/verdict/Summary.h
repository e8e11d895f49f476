#pragma once

#include "ledger/draft/BatchDraft.h"
#include "ledger/guard/Standing.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

namespace verdict {

/// What stands before everybody who creates, with or without findings.
struct Summary {
    struct Side {
        ledger::Decimal buy; ///< CNY
        ledger::Decimal sell;
    };
    struct Row {
        int row = 0; ///< of the batch, from 1
        QString symbol;
        QString direction;
        ledger::Decimal amount; ///< CNY, of both legs
    };

    QString account;
    QString accountName;
    QString strategy;
    QString strategyName;
    QString fileName;
    int taken = 0;
    int refused = 0;             ///< orders of the file that were not imported
    int skipped = 0;             ///< rows without a code that look like orders
    int leftOut = 0;             ///< rows that the ledger holds already, by the user's choice
    qint64 replaces = 0;         ///< the batch that is withdrawn for this one; 0: none
    QMap<QString, Side> markets; ///< by exchange
    QList<Row> largest;          ///< at most five, the largest first
    Side day;                    ///< of the account, with this batch
    qint64 dayInstances = 0;     ///< likewise
    QStringList elsewhere;       ///< the same file or orders on other accounts today, a line each
    QStringList optedOut;        ///< scopes of limits.csv that take this batch out of the general ceilings
};

/// The part that the draft tells.
Summary summaryOf(const ledger::BatchDraft& draft);
/// What the ledger adds: the account's day, and the same on other accounts.
void addStanding(Summary& summary, const ledger::Standing& standing);

/// For people, a fact a line.
QStringList linesOf(const Summary& summary);

} // namespace verdict
