#pragma once

#include "desk/models/BatchesModel.h"

#include <QString>

/// What a trader is told of batches on their way: that all of one is over, that something of it was rejected
/// or must be looked after.
class OrderNotices {
public:
    struct Notice {
        qint64 batch = 0;
        QString text;
        bool isWarning = false;
    };

    /// What has come since the last call; the first one only looks.
    QList<Notice> take(const BatchesModel::Counts& counts);

private:
    BatchesModel::Counts mKnown;
    bool mLooked = false;
};
