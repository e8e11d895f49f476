#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

namespace ledger {
class Ledger;
}

/// Tells when the ledger was changed, by whatever program.
class LedgerWatch : public QObject {
    Q_OBJECT

public:
    /// Without a ledger nothing ever changes.
    explicit LedgerWatch(std::shared_ptr<ledger::Ledger> ledger, QObject* parent = nullptr);

public slots:
    /// At once, instead of at the next look.
    void look();

signals:
    void changed();

private:
    std::shared_ptr<ledger::Ledger> mLedger;
    QTimer mTimer;
    qint64 mSeen = -1;
};
