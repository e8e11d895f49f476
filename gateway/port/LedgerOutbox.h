#pragma once

#include "gateway/port/LedgerPort.h"
#include "ledger/Outbox.h"

#include <QMap>

#include <memory>

namespace gateway {

/// The port on the desk's own ledger.
class LedgerOutbox : public LedgerPort {
public:
    LedgerOutbox(std::shared_ptr<ledger::Ledger> ledger, std::unique_ptr<ledger::Outbox> outbox);

    Outcome<QList<OpenInstance>> open() override;
    Outcome<QList<OpenInstance>> queued(int most) override;
    Outcome<QSet<QString>> take(const QList<InstanceKey>& keys) override;
    Outcome<QList<Order>> ordersOf(qint64 batch) override;
    Outcome<std::optional<OpenInstance>> find(const QString& clOrdId) override;
    qint64 changeCount() override;
    Outcome<QList<CancelOrder>> takeCancels(int most) override;
    Outcome<QHash<QString, Standing>> record(const Step& step) override;
    Outcome<void> noteSession(const QString& state, const QString& text) override;
    Outcome<void> noteTraffic(const std::vector<Traffic>& traffic) override;

private:
    using Standings = QHash<QString, Standing>;

    Outcome<QUuid> draftOf(qint64 batch);
    Outcome<QList<OpenInstance>> converted(const Outcome<QList<ledger::Order>>& orders);
    QString recordReports(const Step& step, Standings& standings);
    QString recordDecisions(const Step& step, Standings& standings);

    std::shared_ptr<ledger::Ledger> mLedger;
    std::unique_ptr<ledger::Outbox> mOutbox;
    QMap<qint64, QUuid> mDrafts; ///< by batch
};

} // namespace gateway
