#pragma once

#include <QStringList>

class QIODevice;

/// `algodesk gateway` and `algodesk simulator`: they run until they are told to end, and print as they go.
namespace runner {

QStringList gatewayCommands();
bool isGatewayCommand(const QString& name);

/// `arguments` begin with the subcommand. Exit status: 0 ended as told, 2 wrong usage, configuration or
/// profile, 3 the accounts are served by another gateway.
int runGatewayCommand(const QStringList& arguments, QIODevice& out, QIODevice& err);

/// The lines of the help text.
QString gatewayUsage();

} // namespace runner
