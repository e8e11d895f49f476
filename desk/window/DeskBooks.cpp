#include "desk/window/DeskBooks.h"

std::optional<DeskBooks> openDeskBooks(const ledger::Address& ledger, const QString& home,
                                       const QString& dataFolder, QString& error)
{
    const Outcome<verdict::Desk> desk = verdict::Desk::read(dataFolder);
    error = desk.error;
    if (!desk.ok()) {
        return std::nullopt;
    }
    const auto opened = ledger::Ledger::open(ledger);
    DeskBooks books;
    books.home = home;
    books.address = ledger;
    books.ledger = opened.value;
    books.ledgerError = opened.error;
    books.desk = desk.value;
    return books;
}
