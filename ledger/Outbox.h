#pragma once

#include "ledger/Ledger.h"

namespace ledger {

/// An instance as it is to be sent.
struct Order {
    Instance instance;     ///< legs with their exchanges
    QString clOrdId;       ///< tag 11: the draft's id in base 32 and the row, always the same for an instance
    bool isRepeat = false; ///< was sent before
};

/// A cancel to be sent.
struct CancelRequest {
    Order order;
    QString clOrdId; ///< with -C1, -C2, …
};

/// What a counterparty says of an order.
struct Execution {
    QString execId; ///< tag 17: counts once; empty: counts every time (an answer to a question)
    QString clOrdId;
    std::optional<InstanceState> state; ///< absent: says nothing of it
    std::optional<Decimal> filled;      ///< tag 14; never goes down, but by a correction
    std::optional<Decimal> average;     ///< tag 6
    std::optional<Decimal> ordered;     ///< tag 38 as it was sent; absent: the leg's quantity
    int leg = 0;                        ///< 1, 2: of that leg (442=2); 0: of the order
    bool isCorrection = false;          ///< a bust or a correction (150=H, G)
    bool isCancelReject = false;
    QString reason;
    QString text; ///< the message, for one that nobody knows
};

/// What came of an execution.
struct Recorded {
    enum class Kind {
        Counted,
        Repeated,     ///< known by its identifier
        UnknownOrder, ///< kept, and shown
        AboveOrder,   ///< more filled than was ordered: kept, and shown, and not taken over
    };

    Kind kind = Kind::Counted;
    Instance instance; ///< afterwards
};

/// The gateway's side of a ledger: takes what is queued, writes back what became of it. It serves its
/// accounts alone, by a lock that ends with the process however that ends.
///
///     auto outbox = Outbox::claim(ledger, {"BANZAI->EXEC", {"80010001"}});
///     for (const Order& order : outbox.value->take(100).value) { send(order); }
///     outbox.value->record(executions);
class Outbox {
public:
    /// Takes the accounts and registers the gateway: from now on their started instances are queued. An error
    /// that names the other gateway where it has one of them; `isServed` tells that from other errors.
    static Outcome<std::unique_ptr<Outbox>> claim(const std::shared_ptr<Ledger>& ledger,
                                                  const Gateway& gateway, bool* isServed = nullptr);
    /// Takes a registration back; refused while anything of its accounts is queued or open.
    static Outcome<void> forget(Ledger& ledger, const QStringList& accounts, bool* isServed = nullptr);
    ~Outbox();

    /// Moves the next queued instances, in order of batch and row, to `sending`, all in one transaction; none
    /// of a halted account. What is returned may be sent.
    Outcome<QList<Order>> take(int most);
    /// The same of these alone, where they are still queued; the others are passed over.
    Outcome<QList<Order>> take(const QList<InstanceId>& ids);
    /// What take() would move, as it stands, with the identifiers that they will have.
    Outcome<QList<Order>> waiting(int most) const;
    /// The instance that was sent under an identifier, whatever became of it; empty where none was.
    Outcome<QList<Order>> named(const QString& clOrdId) const;
    /// How many are queued, halted ones too.
    Outcome<qint64> queued() const;
    /// What is sending, running, stopping or unknown: to be asked for after a break.
    Outcome<QList<Order>> open() const;
    /// Cancels to be sent: asked for, and the counterparty knows the order. Each call gives an instance once,
    /// with its next cancel identifier, until cancelRejected() or a new wish.
    Outcome<QList<CancelRequest>> takeCancels(int most);
    /// What the counterparty said, in one transaction, in its order.
    Outcome<QList<Recorded>> record(const QList<Execution>& executions);
    /// Other decisions of the gateway: rejected by the profile, unknown to the counterparty and so back to
    /// sending, queued or withdrawn, unknown after a silence. All in one transaction; answers how each stands
    /// afterwards: what a person settled meanwhile stays as it is.
    struct Decision {
        InstanceId id;
        InstanceState state = InstanceState::Unknown;
        QString reason;
    };
    Outcome<QList<Instance>> decide(const QList<Decision>& decisions);
    /// The session's state: connected, loggedOn, loggedOut, disconnected.
    Outcome<void> session(const QString& state, const QString& text);
    /// What was said and heard, a lot of it in one audit entry.
    Outcome<void> keepMessages(const QList<WireMessage>& messages);
    /// Whether nothing may be sent for an account now.
    Outcome<bool> isHalted(const QString& account) const;

private:
    struct Claim;
    Outbox(std::shared_ptr<Ledger> ledger, Gateway gateway, std::unique_ptr<Claim> claim);

    std::shared_ptr<Ledger> mLedger;
    Gateway mGateway;
    std::unique_ptr<Claim> mClaim;
};

/// Tag 11 of an instance: "NW66TGW5HBELBA4MNSSDJLTPKQ-7".
QString clOrdIdOf(const QUuid& draft, int row);

} // namespace ledger
