#pragma once

#include "desk/models/PagedModel.h"

/// The batches of the ledger. Roles: BatchRole; StateRole, a ledger::BatchState.
class BatchesModel : public PagedModel<ledger::Batch> {
public:
    enum Column { Number, State, Created, File, Account, Strategy, Rows, Buy, Sell, By, Digest };

    explicit BatchesModel(QObject* parent = nullptr);

protected:
    Cell cellOf(const ledger::Batch& batch, int column) const override;
    QVariant roleOf(const ledger::Batch& batch, int role) const override;
};
