#include "desk/runner/Commands.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "embedded_host/templates/TemplateFiles.h"
#include "words/Words.h"

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
        return refuse(Words::tr("template 需要 --strategy CODE 或 --all 之一"));
    }
    if (!isTableFile(line.files.first())) {
        return refuse(Words::tr("OUT 应以 .xlsx 或 .csv 结尾"));
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
