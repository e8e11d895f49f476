#pragma once

#include <QLoggingCategory>

/// One category a room, on by default: QT_LOGGING_RULES="algo.*.debug=false" makes them silent and free.
Q_DECLARE_LOGGING_CATEGORY(lcDialog)
Q_DECLARE_LOGGING_CATEGORY(lcSchema)
Q_DECLARE_LOGGING_CATEGORY(lcImport)
Q_DECLARE_LOGGING_CATEGORY(lcValidation)
Q_DECLARE_LOGGING_CATEGORY(lcAmounts)
