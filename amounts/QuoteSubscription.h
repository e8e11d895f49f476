#pragma once

#include <QStringList>

/// Subscribes the symbols in one call and blocks the thread for 300 ms, so that the first quotes arrive from
/// the host's own threads before anything is priced.
void subscribeAndAwaitQuotes(const QStringList& symbols);
