#include "desk/runner/Session.h"

#include "desk/runner/Suggestion.h"
#include "embedded_host/reference_data/ReferenceDatabase.h"
#include "embedded_host/reference_data/ReferenceFolder.h"
#include "host/AlgoConstants.h"
#include "words/Words.h"

#include <pwd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <optional>
#include <utility>

namespace runner {

namespace {

QString shippedReferenceData()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() +
                           QStringLiteral("/../share/algodesk/reference_data"));
}

/// Who runs the program, by the system's word and not by a variable that anyone sets.
QString systemUser()
{
    const passwd* user = getpwuid(geteuid());
    return user ? QString::fromLocal8Bit(user->pw_name) : QString::number(geteuid());
}

std::unique_ptr<EmbeddedHost> hostOf(std::optional<ReferenceTables> tables, const CommandLine& line,
                                     EmbeddedHost::QuoteMode quotes)
{
    if (!tables) {
        return nullptr;
    }
    EmbeddedHost::Options options;
    options.home = homeFolder(line);
    options.loginAccount = systemUser();
    options.quotes = quotes;
    return std::make_unique<EmbeddedHost>(ReferenceData(std::move(*tables)), options);
}

} // namespace

QString referenceDataFolder(const CommandLine& line)
{
    return line.dataFolder.isEmpty() ? shippedReferenceData() : line.dataFolder;
}

QString homeFolder(const CommandLine& line)
{
    return line.home.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                                     QStringLiteral("/algodesk")
                               : line.home;
}

QString unknownStrategy(const ReferenceData& data, const QString& name)
{
    const AesStrategy* strategy = data.strategy(name);
    const bool isKnown = strategy && strategy->globalType() == Algo_Values::AlgoGlobalType::algo;
    if (isKnown) {
        return QString();
    }
    QStringList known;
    for (const AesStrategy& each : data.tables().strategies) {
        known.append(each.name());
    }
    return didYouMean(Words::tr("没有算法“%1”").arg(name), name, known);
}

std::unique_ptr<EmbeddedHost> openHost(const CommandLine& line, QString& error)
{
    return hostOf(readReferenceFolder(referenceDataFolder(line), error), line,
                  EmbeddedHost::QuoteMode::Still);
}

std::unique_ptr<EmbeddedHost> openDeskHost(const CommandLine& line, QString& error)
{
    if (!line.dataFolder.isEmpty()) {
        return openHost(line, error);
    }
    const QString home = homeFolder(line);
    QDir().mkpath(home);
    return hostOf(ReferenceDatabase::refresh(referenceDataFolder(line),
                                             home + QStringLiteral("/reference.sqlite"), error),
                  line, EmbeddedHost::QuoteMode::Moving);
}

} // namespace runner
