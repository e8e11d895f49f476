#pragma once

#include "desk/window/DeskBooks.h"
#include "desk/window/HandOver.h"
#include "ledger/BatchCreation.h"

#include <optional>

class QWidget;

/// From a confirmed batch to instances in the ledger, where the guard and the user let it pass.
class BatchCreator {
public:
    BatchCreator(const DeskBooks& books, QWidget* parent) : mBooks(books), mParent(parent) {}

    /// Nothing where the guard or the user refused, or the ledger could not; the user was told why.
    std::optional<ledger::Batch> create(const HandOver& batch) const;

private:
    bool askUser(const ledger::Review& review, ledger::Consent& consent) const;
    void tell(const QString& error) const;

    const DeskBooks& mBooks;
    QWidget* mParent;
};
