#pragma once

#include "desk/verdict/Judgement.h"
#include "desk/window/DeskBooks.h"
#include "desk/window/HandOver.h"

#include <functional>
#include <optional>
#include <utility>

class QWidget;
class ReferenceData;

/// From a confirmed batch to instances in the ledger, where the guard and the user let it pass.
class BatchCreator {
public:
    /// `showRow`: brings a row of the batch before the user, while he is asked.
    BatchCreator(const DeskBooks& books, const ReferenceData& data, std::function<void(int row)> showRow,
                 QWidget* parent)
        : mBooks(books), mData(data), mShowRow(std::move(showRow)), mParent(parent)
    {
    }

    /// Where an attempt before made the batch and never told, the user is told, and it is that one.
    /// Nothing where the guard or the user refused, or the ledger could not; the user was told why.
    std::optional<ledger::Batch> create(const HandOver& batch) const;

private:
    std::optional<ledger::Batch> repeated(const ledger::Batch& made) const;
    std::optional<ledger::Batch> judgeAndCreate(const HandOver& batch, const ledger::BatchDraft& draft) const;
    bool askUser(const verdict::Judgement& judgement, verdict::Acceptance& acceptance) const;
    void tell(const QString& error) const;

    const DeskBooks& mBooks;
    const ReferenceData& mData;
    std::function<void(int row)> mShowRow;
    QWidget* mParent;
};
