#pragma once

#include <QtGlobal>

/// Marks a class that the host implements and that the dialog library calls across a library boundary. It
/// keeps the class visible where the dialog library itself is built with hidden visibility.
#define ALGO_HOST_API Q_DECL_EXPORT
