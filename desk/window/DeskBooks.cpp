#include "desk/window/DeskBooks.h"

#include "desk/batch/LimitsFile.h"

std::optional<DeskBooks> openDeskBooks(const QString& home, const QString& dataFolder, QString& error)
{
    const std::optional<QList<ledger::LimitScope>> limits = batch::readLimits(dataFolder, error);
    if (!limits) {
        return std::nullopt;
    }
    const Outcome<std::shared_ptr<ledger::Ledger>> opened = ledger::Ledger::open(home);
    DeskBooks books;
    books.ledger = opened.value;
    books.ledgerError = opened.error;
    books.limits = *limits;
    return books;
}
