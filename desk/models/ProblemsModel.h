#pragma once

#include "desk/check/Problem.h"
#include "desk/models/RecordModel.h"

/// What is wrong with the imported file or the batch, one problem a row. Role: StateRole, a table::Severity.
class ProblemsModel : public RecordModel<Problem> {
public:
    enum Column { Place, Title, Raw, Reason };

    explicit ProblemsModel(QObject* parent = nullptr);

protected:
    Cell cellOf(const Problem& problem, int column) const override;
    QVariant roleOf(const Problem& problem, int role) const override;
};
