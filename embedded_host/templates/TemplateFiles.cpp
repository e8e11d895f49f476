#include "embedded_host/templates/TemplateFiles.h"

#include "embedded_host/templates/TemplateFormats.h"
#include "embedded_host/templates/TemplateTexts.h"
#include "files/Save.h"
#include "words/Words.h"

#include <QDir>
#include <QFileInfo>

namespace template_files {

namespace {

/// Spreadsheet programs leave such a file beside one that they have open.
bool isOpenElsewhere(const QFileInfo& file)
{
    const QDir folder = file.dir();
    return folder.exists(QStringLiteral("~$") + file.fileName()) ||
           folder.exists(QStringLiteral(".~lock.%1#").arg(file.fileName()));
}

/// Why a file cannot be written there; empty where nothing speaks against it. The owner's permission counts,
/// so that a file marked read-only is spared whoever runs the program.
QString obstacle(const QString& path)
{
    const QFileInfo file(path);
    const QString shown = QDir::toNativeSeparators(path);
    if (file.isDir()) {
        return template_texts::isFolder().arg(shown);
    }
    if (!file.dir().exists()) {
        return template_texts::noFolder().arg(QDir::toNativeSeparators(file.path()));
    }
    if (file.exists() && (!file.isWritable() || !file.permission(QFileDevice::WriteOwner))) {
        return template_texts::readOnlyFile().arg(shown);
    }
    return isOpenElsewhere(file) ? template_texts::openElsewhere().arg(shown) : QString();
}

QString save(const QString& path, const QByteArray& bytes)
{
    const QString reason = obstacle(path);
    if (!reason.isEmpty()) {
        return reason;
    }
    const Outcome<void> saved = files::save(path, bytes);
    return saved.ok() ? QString()
                      : template_texts::writeFailed().arg(QDir::toNativeSeparators(path), saved.error);
}

/// "templates.csv" and AITWAP: "templates-AITWAP.csv". A path separator in a code stays out of the name.
QString ownPath(const QFileInfo& file, QString code)
{
    code.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
    return file.dir().filePath(QStringLiteral("%1-%2.%3").arg(file.completeBaseName(), code, file.suffix()));
}

Written writeXlsx(const QString& path, const QList<TemplateSheet>& sheets)
{
    QString error;
    const QByteArray bytes = xlsxBytes(sheets, error);
    if (!error.isEmpty()) {
        return {{}, template_texts::writeFailed().arg(QDir::toNativeSeparators(path), error)};
    }
    error = save(path, bytes);
    return error.isEmpty() ? Written{{path}, QString()} : Written{{}, error};
}

Written writeCsv(const QStringList& files, const QList<TemplateSheet>& sheets)
{
    Written written;
    for (int i = 0; i < sheets.size(); ++i) {
        written.error = save(files.at(i), csvBytes(sheets.at(i)));
        if (!written.error.isEmpty()) {
            return written;
        }
        written.files.append(files.at(i));
    }
    return written;
}

bool isWorkbook(const QString& path)
{
    return path.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive);
}

/// No sheets: no files. In a workbook of several each says which one is read.
Written writeSheets(const QString& path, const QStringList& csvFiles, QList<TemplateSheet> sheets)
{
    if (sheets.isEmpty() || !isWorkbook(path)) {
        return writeCsv(csvFiles, sheets);
    }
    if (sheets.size() > 1) {
        for (TemplateSheet& sheet : sheets) {
            sheet.notes.insert(1, template_texts::firstSheetOnly());
        }
    }
    return writeXlsx(path, sheets);
}

} // namespace

Written write(const QString& path, const QList<AesStrategy>& strategies, const QList<Market>& markets)
{
    if (!isWorkbook(path) && !path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive)) {
        return {{}, template_texts::unknownEnding().arg(QDir::toNativeSeparators(path))};
    }
    if (strategies.isEmpty()) {
        return {{}, template_texts::noStrategy().arg(QDir::toNativeSeparators(path))};
    }
    const QStringList files = filesOf(path, strategies);
    QList<TemplateSheet> sheets;
    QStringList csvFiles;
    QStringList withoutColumns;
    for (int i = 0; i < strategies.size(); ++i) {
        const TemplateSheet sheet = describeTemplate(strategies.at(i), markets);
        if (sheet.columns.isEmpty()) {
            withoutColumns.append(strategies.at(i).name());
        } else {
            csvFiles.append(files.value(i));
            sheets.append(sheet);
        }
    }
    Written written = writeSheets(path, csvFiles, std::move(sheets));
    if (written.error.isEmpty() && !withoutColumns.isEmpty()) {
        written.error = template_texts::noColumns().arg(withoutColumns.join(Words::tr("、")));
    }
    return written;
}

QStringList filesOf(const QString& path, const QList<AesStrategy>& strategies)
{
    if (isWorkbook(path) || strategies.size() == 1) {
        return {path};
    }
    QStringList files;
    for (const AesStrategy& strategy : strategies) {
        files.append(ownPath(QFileInfo(path), strategy.name()));
    }
    return files;
}

} // namespace template_files
