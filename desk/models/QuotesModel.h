#pragma once

#include "desk/models/RecordModel.h"

/// The quote of a security; a price that is not known is empty, and all have the security's decimals.
struct QuoteLine {
    QString symbol;
    QString name;
    int decimals = 2;
    QString last;
    QString preClose;
    QString max;
    QString min;

    /// Of the last price against the previous close; nothing where either is not known.
    QVariant change() const;
    QVariant changePercent() const;
};

/// Quotes; up in the colour of buying, down in that of selling.
class QuotesModel : public RecordModel<QuoteLine> {
public:
    enum Column { Symbol, Name, Last, Change, ChangeRate, PreClose, Max, Min };

    explicit QuotesModel(QObject* parent = nullptr);

protected:
    Cell cellOf(const QuoteLine& quote, int column) const override;
};
