#pragma once

#include "amounts/Logging.h"
#include "import/Logging.h"
#include "schema/Logging.h"
#include "validation/Logging.h"

#include <QLoggingCategory>

/// One category a room, on by default: QT_LOGGING_RULES="algo.*.debug=false" makes them silent and free.
inline Q_LOGGING_CATEGORY(lcDialog, "algo.dialog")
