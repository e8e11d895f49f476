#pragma once

#include "desk/models/RecordModel.h"

#include <QMap>

using ParameterMap = QMap<QString, QVariant>;

/// The parameter maps that were handed over, one instance a row: a column for every parameter that any of
/// them has, what one looks for first in front. The values of two legs stand in one cell, separated by a
/// slash.
class ParametersModel : public RecordModel<ParameterMap> {
public:
    explicit ParametersModel(QObject* parent = nullptr);

    void setMaps(const QList<ParameterMap>& maps);

protected:
    Cell cellOf(const ParameterMap& map, int column) const override;

private:
    QStringList mKeys; ///< a column each
};
