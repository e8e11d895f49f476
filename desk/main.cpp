#include "desk/runner/Runner.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>

#include <cstdio>

namespace {

QStringList argumentsOf(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.append(QFile::decodeName(argv[i]));
    }
    return arguments;
}

/// Needs no display: everything is drawn off screen, and the categories keep silent unless QT_LOGGING_RULES
/// asks for them.
int runHeadless(int& argc, char** argv, const QStringList& arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false\n*.warning=false"));
    QApplication application(argc, argv);
    QFile out;
    QFile err;
    if (!out.open(stdout, QIODevice::WriteOnly) || !err.open(stderr, QIODevice::WriteOnly)) {
        return runner::Refused;
    }
    return runner::run(arguments, out, err);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("algodesk"));
    const QStringList arguments = argumentsOf(argc, argv);
    if (runner::isAsked(arguments)) {
        return runHeadless(argc, argv, arguments);
    }
    return 0;
}
