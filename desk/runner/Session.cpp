#include "desk/runner/Session.h"

#include "embedded_host/reference_data/ReferenceFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <optional>
#include <utility>

namespace runner {

QString shippedReferenceData()
{
    const QString installed = QDir::cleanPath(QCoreApplication::applicationDirPath() +
                                              QStringLiteral("/../share/algodesk/reference_data"));
    return QDir(installed).exists() ? installed : QStringLiteral(ALGODESK_SOURCE_REFERENCE_DATA);
}

QString defaultHome()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/algodesk");
}

std::unique_ptr<EmbeddedHost> openHost(const CommandLine& line, QString& error)
{
    const QString folder = line.dataFolder.isEmpty() ? shippedReferenceData() : line.dataFolder;
    std::optional<ReferenceTables> tables = readReferenceFolder(folder, error);
    if (!tables) {
        return nullptr;
    }
    EmbeddedHost::Options options;
    options.home = line.home.isEmpty() ? defaultHome() : line.home;
    return std::make_unique<EmbeddedHost>(ReferenceData(std::move(*tables)), options);
}

} // namespace runner
