#include "embedded_host/table_reader/XlsxDraft.h"

#include <xlsxwriter.h>

#include <QFile>

namespace table_writer {

XlsxDraft::XlsxDraft()
    : mPoints(newlocale(LC_NUMERIC_MASK, "C", duplocale(uselocale(locale_t(nullptr))))),
      mFormer(uselocale(mPoints)), mPath(mFolder.filePath(QStringLiteral("draft.xlsx"))),
      mWorkbook(workbook_new(QFile::encodeName(mPath).constData()))
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
    const lxw_error status = workbook == nullptr ? LXW_ERROR_MEMORY_MALLOC_FAILED : workbook_close(workbook);
    QFile file(mPath);
    if (status != LXW_NO_ERROR) {
        error = QString::fromUtf8(lxw_strerror(status));
    } else if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
    }
    return file.readAll();
}

} // namespace table_writer
