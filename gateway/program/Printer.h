#pragma once

#include "gateway/recovery/Track.h"
#include "gateway/session/Engine.h"

#include <QIODevice>
#include <QJsonObject>

namespace gateway {

/// What happens, a JSON line each, on the program's standard output.
class Printer {
public:
    explicit Printer(QIODevice& out);

    void session(const QString& session, const QString& state, const QString& text);
    void instance(const InstanceKey& key, const QString& clOrdId, const Standing& standing);
    /// A report that was refused, or is not ours.
    void kept(const KeptReport& report);
    /// What a simulated broker says of an order.
    void message(const Message& message);

private:
    void print(QJsonObject line);

    QIODevice& mOut;
};

/// "connected", "loggedOn", …: as printed and as the ledger keeps it; empty of a note.
QString nameOf(SessionNews::State state);

} // namespace gateway
