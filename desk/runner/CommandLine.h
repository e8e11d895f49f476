#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace runner {

/// What stands behind a subcommand's name.
struct CommandLine {
    QStringList files; ///< positional arguments
    QString inputName; ///< what was given for a table; empty: its path
    QString strategy;
    QString account;
    QString switchAccount;
    QString dataFolder;
    QString home;
    QString ledger;                     ///< address; empty: the file in the home
    QString wait = QStringLiteral("5"); ///< seconds for another program's change of the ledger
    QString encoding;
    QString rejects;
    QString mapping;
    QString batch;
    QString reason;                         ///< of a halt or its end, a refusal, a settlement
    QString settleAs;                       ///< name of a state
    QString from;                           ///< number of an audit entry
    QString day;                            ///< yyyy-MM-dd
    QString out;                            ///< the file that a report goes to
    QString pace = QStringLiteral("600");   ///< seconds of an order in one of the clock
    QString accept;                         ///< rules that are acknowledged, separated by commas
    QString duplicates;                     ///< leave-out, changed-only or replace; empty: acknowledged
    QString against;                        ///< number of the batch that is compared or replaced
    QString amount;                         ///< the gross amount, typed once more
    QString answer = QStringLiteral("yes"); ///< to the row-limit question: yes or no
    bool confirm = false;
    bool create = false;
    bool faults = false;
    bool yes = false;
    bool allTemplates = false;
    bool verify = false;
    bool headless = false;
    bool help = false;
};

/// A subcommand as it is typed.
struct Command {
    QString name;
    QStringList options;   ///< names of those that it takes
    QStringList arguments; ///< placeholders of those that it needs, such as FILE; "ID…" stands for any number
};

/// Reads what follows the subcommand's name; nothing and a line in `error` where it is wrong. No value and no
/// argument is empty: a script whose variable is not set must not work on something else.
std::optional<CommandLine> parseCommandLine(const QStringList& arguments, const Command& command,
                                            QString& error);

/// The help text.
QString usage();

} // namespace runner
