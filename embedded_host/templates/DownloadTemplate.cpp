// The host's side of 导出模板: asks where, and writes the templates of the wanted strategies.

#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/services/Record.h"
#include "embedded_host/templates/TemplateFiles.h"
#include "embedded_host/templates/TemplateTexts.h"
#include "host/AlgoConstants.h"
#include "host/SolveyConstants.h"
#include "host/SolveyUtils.h"
#include "host/ZelMessageBox.h"

#include <QDir>
#include <QFileInfo>
#include <QWidget>

namespace {

bool refuse(QWidget* parent, const QString& reason)
{
    ZelMessageBox box(template_texts::errorTitle(), reason, ZelMessageBox::Error, parent, 0);
    box.exec();
    return false;
}

/// Of the strategies that the dialog offers.
QList<AesStrategy> strategiesNamed(const QStringList& aliases)
{
    const bool all = aliases.contains(SolveyConstants::AllTemplates);
    QList<AesStrategy> wanted;
    for (const AesStrategy& strategy : services::referenceData().tables().strategies) {
        const bool offered = strategy.globalType() == Algo_Values::AlgoGlobalType::algo;
        if (offered && (all || aliases.contains(strategy.alias()))) {
            wanted.append(strategy);
        }
    }
    return wanted;
}

/// Without an ending: the filter that the user chooses gives one.
QString suggestedName(const QStringList& aliases)
{
    QString names = aliases.join(template_texts::nameSeparator());
    for (const QChar forbidden : QStringLiteral("/\\:*?\"<>|.")) {
        names.replace(forbidden, QLatin1Char('_'));
    }
    return template_texts::suggestedName().arg(names);
}

/// The chosen name was confirmed where it was chosen; every other file is asked about before it is replaced.
bool mayReplace(QWidget* parent, const QStringList& files, const QString& confirmed)
{
    QStringList existing;
    for (const QString& file : files) {
        if (file != confirmed && QFileInfo::exists(file)) {
            existing.append(QDir::toNativeSeparators(file));
        }
    }
    if (existing.isEmpty()) {
        return true;
    }
    const QString question =
        template_texts::replaceQuestion().arg(existing.size()).arg(existing.join(QLatin1Char('\n')));
    ZelMessageBox box(template_texts::saveTitle(), question, ZelMessageBox::Question, parent, 0);
    return box.exec() == QDialog::Accepted;
}

/// Where the user wants the templates; empty when cancelled. A name without an ending becomes a workbook.
QString askForPath(QWidget* parent, const QStringList& names, const QList<AesStrategy>& strategies)
{
    const QString chosen = EmbeddedHost::current().prompts()->chooseSaveFile(
        parent, template_texts::saveTitle(), suggestedName(names), template_texts::saveFilter());
    if (chosen.isEmpty()) {
        return QString();
    }
    const QString path = QFileInfo(chosen).suffix().isEmpty() ? chosen + QLatin1String(".xlsx") : chosen;
    return mayReplace(parent, template_files::filesOf(path, strategies), chosen) ? path : QString();
}

} // namespace

bool SolveyUtils::DownloadTemplateFile(const QString& fileType, QWidget* parent, const QStringList& names)
{
    services::record("SolveyUtils::DownloadTemplateFile", fileType, parent, names);
    const QList<AesStrategy> strategies = strategiesNamed(names);
    if (fileType != SolveyConstants::TemplateFileType::AlgoBatchSingle || strategies.isEmpty()) {
        return refuse(parent, template_texts::noStrategy().arg(names.join(template_texts::nameSeparator())));
    }
    const QString path = askForPath(parent, names, strategies);
    if (path.isEmpty()) {
        return false;
    }
    const template_files::Written written =
        template_files::write(path, strategies, services::referenceData().tables().markets);
    return written.error.isEmpty() || refuse(parent, written.error);
}
