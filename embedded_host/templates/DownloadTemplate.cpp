// The host's side of 导出模板: asks where, and writes the templates of the wanted strategies.

#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/services/Record.h"
#include "embedded_host/templates/TemplateFiles.h"
#include "embedded_host/templates/TemplateTexts.h"
#include "host/SolveyConstants.h"
#include "host/SolveyUtils.h"
#include "host/ZelMessageBox.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QWidget>

namespace {

const QString AllStrategies = QStringLiteral("全部");
constexpr int ErrorBox = 1;

bool refuse(QWidget* parent, const QString& reason)
{
    ZelMessageBox box(template_texts::ErrorTitle, reason, ErrorBox, parent, 0);
    box.exec();
    return false;
}

QList<AesStrategy> strategiesNamed(const QStringList& aliases)
{
    const QList<AesStrategy>& catalogue = services::referenceData().tables().strategies;
    if (aliases.contains(AllStrategies)) {
        return catalogue;
    }
    QList<AesStrategy> wanted;
    for (const AesStrategy& strategy : catalogue) {
        if (aliases.contains(strategy.alias())) {
            wanted.append(strategy);
        }
    }
    return wanted;
}

QString suggestedName(QString names)
{
    for (const QChar forbidden : QStringLiteral("/\\:*?\"<>|.")) {
        names.replace(forbidden, QLatin1Char('_'));
    }
    return template_texts::SuggestedName.arg(names);
}

/// Empty when cancelled; a name without an ending becomes a workbook.
QString askForPath(QWidget* parent, const QString& suggested)
{
    UserPrompts* prompts = EmbeddedHost::current().prompts();
    const QString path = prompts ? prompts->chooseSaveFile(parent, template_texts::SaveTitle, suggested,
                                                           template_texts::SaveFilter)
                                 : QFileDialog::getSaveFileName(parent, template_texts::SaveTitle, suggested,
                                                                template_texts::SaveFilter);
    const bool bare = !path.isEmpty() && QFileInfo(path).suffix().isEmpty();
    return bare ? path + QLatin1String(".xlsx") : path;
}

} // namespace

bool SolveyUtils::DownloadTemplateFile(const QString& fileType, QWidget* parent, const QStringList& names)
{
    services::record("SolveyUtils::DownloadTemplateFile", fileType, parent ? parent->objectName() : QString(),
                     names);
    const QString wanted = names.join(QStringLiteral("、"));
    const QList<AesStrategy> strategies = strategiesNamed(names);
    if (fileType != SolveyConstants::TemplateFileType::AlgoBatchSingle || strategies.isEmpty()) {
        return refuse(parent, template_texts::NoStrategy.arg(wanted));
    }
    const QString path = askForPath(parent, suggestedName(wanted));
    if (path.isEmpty()) {
        return false;
    }
    const template_files::Written written =
        template_files::write(path, strategies, services::referenceData().tables().markets);
    return written.error.isEmpty() || refuse(parent, written.error);
}
