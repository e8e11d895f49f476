#include "desk/runner/Commands.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "embedded_host/templates/TemplateFiles.h"

#include <QJsonArray>
#include <QJsonObject>

namespace runner {

Outcome writeTemplate(const CommandLine& line)
{
    if (line.allTemplates != line.strategy.isEmpty()) {
        return refuse(QStringLiteral("template needs either --strategy CODE or --all"));
    }
    QString error;
    const std::unique_ptr<EmbeddedHost> host = openHost(line, error);
    if (!host) {
        return refuse(error);
    }
    const ReferenceData& data = host->referenceData();
    QList<AesStrategy> strategies = data.tables().strategies;
    if (!line.allTemplates) {
        if (data.strategy(line.strategy) == nullptr) {
            return refuse(QStringLiteral("unknown strategy '%1'").arg(line.strategy));
        }
        strategies = {*data.strategy(line.strategy)};
    }
    const template_files::Written written =
        template_files::write(line.files.first(), strategies, data.tables().markets);
    const QJsonObject json = {{QStringLiteral("files"), QJsonArray::fromStringList(written.files)},
                              {QStringLiteral("error"), written.error}};
    return {written.error.isEmpty() ? Done : Complained, QJsonDocument(json), QString()};
}

} // namespace runner
