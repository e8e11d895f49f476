#pragma once

#include "desk/models/RecordModel.h"
#include "desk/models/WireText.h"
#include "ledger/records/Records.h"

/// What gateways said and heard, oldest first.
class WireModel : public RecordModel<ledger::WireMessage> {
public:
    enum Column { At, Session, Direction, Kind, Order, Content };

    explicit WireModel(QObject* parent = nullptr);

protected:
    Cell cellOf(const ledger::WireMessage& message, int column) const override;
};

/// The fields of one message.
class WireFieldsModel : public RecordModel<wire_text::Field> {
public:
    enum Column { Tag, Name, Value };

    explicit WireFieldsModel(QObject* parent = nullptr);

protected:
    Cell cellOf(const wire_text::Field& field, int column) const override;
};

/// What gateways heard of nothing that is ours, or cannot be: kept, and never counted.
class StraysModel : public RecordModel<ledger::StrayReport> {
public:
    enum Column { At, ExecId, Text };

    explicit StraysModel(QObject* parent = nullptr);

protected:
    Cell cellOf(const ledger::StrayReport& stray, int column) const override;
};
