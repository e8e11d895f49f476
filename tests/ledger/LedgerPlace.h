#pragma once

#include "ledger/store/Address.h"

/// Where the ledger of a test is: in a file of its folder, or, in the program that runs the same tests on a
/// server, in a database made for that folder. Each program links one of the two.
ledger::Address ledgerPlace(const QString& home, const QString& user);

/// What somebody with the file, or with the server, does to a ledger behind its back. False where it failed
/// or changed nothing.
bool tamperWith(const QString& home, const QString& statement);
