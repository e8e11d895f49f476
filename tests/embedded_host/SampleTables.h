#pragma once

#include "embedded_host/reference_data/ReferenceData.h"

/// A small market in memory: shares on SH and SZ, one on both Hong Kong connects, a repo, a futures contract,
/// a cash and a credit account.
ReferenceTables sampleTables();
