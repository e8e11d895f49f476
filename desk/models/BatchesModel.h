#pragma once

#include "desk/models/PagedModel.h"

#include <QMap>

/// The batches of the ledger. Roles: BatchRole; StateRole, a ledger::BatchState; ProgressRole, how many of
/// its instances are over.
class BatchesModel : public PagedModel<ledger::Batch> {
public:
    enum Column {
        Number,
        State,
        Created,
        File,
        Account,
        Strategy,
        Rows,
        Progress,
        Buy,
        Sell,
        By,
        Digest,
        Edits
    };

    /// Of batches by their numbers, how many instances are in each state.
    using Counts = QMap<qint64, QMap<ledger::InstanceState, qint64>>;

    explicit BatchesModel(QObject* parent = nullptr);

    void setCounts(const Counts& counts);

protected:
    Cell cellOf(const ledger::Batch& batch, int column) const override;
    QVariant roleOf(const ledger::Batch& batch, int role) const override;
    bool isSame(const ledger::Batch& one, const ledger::Batch& other) const override;

private:
    Counts mCounts;
};
