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
    struct Created {
        ledger::Batch batch;
        QList<int> leftOut;             ///< rows of the table, from 1, that the user did not want once more
        std::optional<qint64> replaced; ///< the batch that was withdrawn with it
    };

    /// `showRow`: brings a row of the batch before the user, while he is asked.
    /// `showRow`: brings a row of the batch before the user, while he is asked. `judged`: is told what is
    /// known against the batch before he is.
    BatchCreator(const DeskBooks& books, const ReferenceData& data, std::function<void(int row)> showRow,
                 std::function<void(const verdict::Judgement&)> judged, QWidget* parent)
        : mBooks(books), mData(data), mShowRow(std::move(showRow)), mJudged(std::move(judged)),
          mParent(parent)
    {
    }

    /// Where an attempt before made the batch and never told, the user is told, and it is that one.
    /// Nothing where the guard or the user refused, or the ledger could not; the user was told why.
    std::optional<Created> create(const HandOver& batch) const;

private:
    std::optional<Created> repeated(const ledger::Batch& made) const;
    std::optional<Created> judgeAndCreate(const HandOver& batch, const ledger::BatchDraft& draft) const;
    Outcome<verdict::Judgement> judged(const HandOver& batch, const ledger::BatchDraft& draft,
                                       const verdict::DuplicateChoice& choice) const;
    bool askUser(const HandOver& batch, const ledger::BatchDraft& draft, verdict::Judgement& judgement,
                 verdict::Acceptance& acceptance) const;
    void tell(const QString& error) const;

    const DeskBooks& mBooks;
    const ReferenceData& mData;
    std::function<void(int row)> mShowRow;
    std::function<void(const verdict::Judgement&)> mJudged;
    QWidget* mParent;
};
