#pragma once

#include "ledger/draft/BatchDraft.h"

/// Files that several desks import at the same time: each is tried by two of them, and may be created once.

/// CNY, to the cent.
ledger::Decimal amountOfFile(int file);
bool isFileOf(int file, int desk, int desks);
/// What a desk makes of a file; trying again, it has the same id.
ledger::BatchDraft workloadDraft(int file, int desk);
