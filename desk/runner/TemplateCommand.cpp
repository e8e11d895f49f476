#include "desk/runner/Commands.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "embedded_host/templates/TemplateFiles.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace runner {

bool isTableFile(const QString& path)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    return ending == QLatin1String("xlsx") || ending == QLatin1String("csv");
}

Result writeTemplate(const CommandLine& line)
{
    if (line.allTemplates != line.strategy.isEmpty()) {
        return refuse(QStringLiteral("template needs either --strategy CODE or --all"));
    }
    if (!isTableFile(line.files.first())) {
        return refuse(QStringLiteral("OUT must end in .xlsx or .csv"));
    }
    QString error;
    const std::unique_ptr<EmbeddedHost> host = openHost(line, error);
    if (!host) {
        return refuse(error);
    }
    const ReferenceData& data = host->referenceData();
    QList<AesStrategy> strategies;
    for (const AesStrategy& strategy : data.tables().strategies) {
        const bool isWanted = line.allTemplates || strategy.name() == line.strategy;
        if (isWanted && unknownStrategy(data, strategy.name()).isEmpty()) {
            strategies.append(strategy);
        }
    }
    if (!line.allTemplates && strategies.isEmpty()) {
        return refuse(unknownStrategy(data, line.strategy));
    }
    const template_files::Written written =
        template_files::write(line.files.first(), strategies, data.tables().markets);
    const QJsonObject json = {{QStringLiteral("files"), QJsonArray::fromStringList(written.files)},
                              {QStringLiteral("error"), written.error}};
    return print(written.error.isEmpty() ? Done : Complained, QJsonDocument(json));
}

} // namespace runner
