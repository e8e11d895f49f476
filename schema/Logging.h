#pragma once

#include <QLoggingCategory>

/// The room's category: QT_LOGGING_RULES="algo.schema.debug=false" makes it silent and free.
inline Q_LOGGING_CATEGORY(lcSchema, "algo.schema")
