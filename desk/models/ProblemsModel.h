#pragma once

#include "desk/models/RecordModel.h"
#include "desk/window/ImportProblems.h"

/// What is wrong with the imported file or the batch, one problem a row.
class ProblemsModel : public RecordModel<Problem> {
public:
    enum Column { Place, Title, Raw, Reason };

    explicit ProblemsModel(QObject* parent = nullptr);

protected:
    Cell cellOf(const Problem& problem, int column) const override;
};
