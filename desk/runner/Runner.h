#pragma once

#include <QStringList>

class QIODevice;

/// The headless runner: one subcommand a call, JSON on `out`, one line on `err` where it cannot begin.
namespace runner {

/// Exit statuses.
enum Status {
    Done = 0,
    Complained = 1, ///< the dialog or the reader had something to say; it stands in the JSON
    Refused =
        2, ///< wrong usage, unknown strategy or account, bad reference data: nothing is printed on `out`
    // 3 and 4: `check`
    Unprinted = 5, ///< it was done, but `out` took no more
    Waiting = 6,   ///< the batch waits for a second person
};

/// `arguments` without the program's name; the first one is the subcommand. Needs a QApplication, on any
/// platform.
int run(const QStringList& arguments, QIODevice& out, QIODevice& err);

/// Whether the arguments ask for the runner; otherwise the desk window opens.
bool isAsked(const QStringList& arguments);

} // namespace runner
