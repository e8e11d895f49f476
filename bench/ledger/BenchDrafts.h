#pragma once

#include "ledger/draft/BatchDraft.h"

/// A batch of so many orders, each with as many parameters and cells as one of a usual strategy; a new id.
ledger::BatchDraft benchDraft(int rows);
