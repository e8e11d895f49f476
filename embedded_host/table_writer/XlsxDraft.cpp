#include "embedded_host/table_writer/XlsxDraft.h"

#include "embedded_host/table_reader/shared/ZipArchive.h"
#include "words/Words.h"

#include <xlsxwriter.h>

#include <QDir>
#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>

namespace table_writer {
namespace {

/// The library's own temporary files stand beside the draft, not wherever it thinks best.
lxw_workbook* newWorkbook(const QTemporaryDir& folder, const QString& path)
{
    QByteArray folderName = QFile::encodeName(folder.path());
    lxw_workbook_options options{};
    options.tmpdir = folderName.data();
    return folder.isValid() ? workbook_new_opt(QFile::encodeName(path).constData(), &options) : nullptr;
}

bool isWhole(table_reader::ZipArchive& archive, const QString& name)
{
    table_reader::PartStream part(archive, name);
    if (!part.begin().isEmpty()) {
        return false;
    }
    QXmlStreamReader xml(&part);
    while (!xml.atEnd()) {
        part.beginToken();
        xml.readNext();
    }
    return !xml.hasError() && part.finish().isEmpty();
}

/// The library does not look whether what it writes reaches the disk, so every part is read again.
bool isWhole(QIODevice& file)
{
    table_reader::ZipArchive archive(file);
    if (!archive.open().isEmpty()) {
        return false;
    }
    const QStringList names = archive.names();
    return !names.isEmpty() && std::all_of(names.begin(), names.end(),
                                           [&](const QString& name) { return isWhole(archive, name); });
}

} // namespace

XlsxDraft::XlsxDraft()
    : mPoints(newlocale(LC_NUMERIC_MASK, "C", duplocale(uselocale(locale_t(nullptr))))),
      mFormer(uselocale(mPoints)), mPath(mFolder.filePath(QStringLiteral("draft.xlsx"))),
      mWorkbook(newWorkbook(mFolder, mPath))
{
}

XlsxDraft::~XlsxDraft()
{
    if (mWorkbook != nullptr) {
        workbook_close(mWorkbook);
    }
    uselocale(mFormer);
    freelocale(mPoints);
}

QByteArray XlsxDraft::close(QString& error)
{
    lxw_workbook* const workbook = mWorkbook;
    mWorkbook = nullptr;
    const bool closed = workbook != nullptr && workbook_close(workbook) == LXW_NO_ERROR;
    QFile file(mPath);
    if (!closed || !file.open(QIODevice::ReadOnly) || !isWhole(file) || !file.seek(0)) {
        error = Words::tr("临时文件夹%1无法写入或空间不足").arg(QDir::tempPath());
        return QByteArray();
    }
    return file.readAll();
}

} // namespace table_writer
