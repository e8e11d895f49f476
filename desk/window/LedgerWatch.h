#pragma once

#include "ledger/store/Address.h"

#include <QObject>

class QThread;

/// Sees what other programs do to the ledger. A server's word that something was changed is a hint, which may
/// be lost; asking is the truth: what was created elsewhere is told within two seconds. A ledger that cannot
/// be read is tried again after pauses that grow. All this happens on a connection and in a thread of its
/// own, so that a server that does not answer holds no window up.
class LedgerWatch : public QObject {
    Q_OBJECT

public:
    explicit LedgerWatch(const ledger::Address& address, QObject* parent = nullptr);
    ~LedgerWatch() override;

signals:
    /// By whatever program; also at first, and after a time in which nobody could look.
    void changed();
    /// It cannot be read, for the reason in `error`; it is tried again after so many seconds.
    void lost(const QString& error, int seconds);
    void restored();

private:
    QThread* mThread;
};
