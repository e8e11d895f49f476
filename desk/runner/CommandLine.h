#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace runner {

/// What stands behind a subcommand's name.
struct CommandLine {
    QStringList files; ///< positional arguments
    QString strategy;
    QString account;
    QString switchAccount;
    QString dataFolder;
    QString home;
    QString encoding;
    QString rejects;
    QString batch;
    QString amount; ///< the gross amount, typed once more
    bool answerYes = true;
    bool confirm = false;
    bool create = false;
    bool yes = false;
    bool allTemplates = false;
    bool help = false;
};

/// Reads a subcommand's arguments; nothing and a line in `error` where they are wrong. `accepted` names the
/// options that the subcommand has, `fileCount` how many positional arguments.
std::optional<CommandLine> parseCommandLine(const QStringList& arguments, const QStringList& accepted,
                                            int fileCount, QString& error);

/// The help text.
QString usage();

} // namespace runner
