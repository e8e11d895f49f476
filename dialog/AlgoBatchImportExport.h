#pragma once

#include <QtGlobal>

/// Marks the one class that the library exports.
#if defined(ALGO_BATCH_IMPORT_BUILD)
#define ALGO_BATCH_IMPORT_EXPORT Q_DECL_EXPORT
#else
#define ALGO_BATCH_IMPORT_EXPORT Q_DECL_IMPORT
#endif
