#pragma once

#include "desk/models/RecordModel.h"

#include <QStringList>

/// A list of rows of texts; commas between thousands are not sorted by.
class TextsModel : public RecordModel<QStringList> {
public:
    using RecordModel::RecordModel;

protected:
    Cell cellOf(const QStringList& row, int column) const override
    {
        return {row.value(column), QString(row.value(column)).remove(QLatin1Char(','))};
    }
};
