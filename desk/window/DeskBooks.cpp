#include "desk/window/DeskBooks.h"

#include "desk/batch/LimitsFile.h"

std::optional<DeskBooks> openDeskBooks(const QString& home, const QString& dataFolder, QString& error)
{
    const std::optional<QList<ledger::LimitScope>> limits = batch::readLimits(dataFolder, error);
    if (!limits) {
        return std::nullopt;
    }
    const auto opened = ledger::Ledger::open(ledger::Address::ofFile(ledger::Ledger::pathIn(home)));
    DeskBooks books;
    books.ledger = opened.value;
    books.ledgerError = opened.error;
    books.limits = *limits;
    return books;
}
