#pragma once

#include "table/Outcome.h"

#include <QString>
#include <QTemporaryDir>

namespace runner {

/// Standard input as a file, which a command can open as often as it needs. It is gone with this object.
class StandardInput {
public:
    /// What stands for it among the arguments.
    static const QString& name();

    /// Reads it to its end and answers the path; the error says why it cannot be read or kept.
    Outcome<QString> keep();

private:
    QTemporaryDir mFolder;
};

} // namespace runner
