#include "desk/window/DeskBooks.h"

std::optional<DeskBooks> openDeskBooks(const QString& home, const QString& dataFolder, QString& error)
{
    const Outcome<verdict::Desk> desk = verdict::Desk::read(dataFolder);
    error = desk.error;
    if (!desk.ok()) {
        return std::nullopt;
    }
    const Outcome<std::shared_ptr<ledger::Ledger>> opened = ledger::Ledger::open(home);
    DeskBooks books;
    books.ledger = opened.value;
    books.ledgerError = opened.error;
    books.desk = desk.value;
    return books;
}
