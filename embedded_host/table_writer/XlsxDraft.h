#pragma once

#include <locale.h>

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

struct lxw_workbook;

namespace table_writer {

/// A workbook on its way into memory. The library behind it writes to named files only, and it writes numbers
/// as the thread's locale does, where xlsx wants a point: while a draft lives, its thread writes points.
///
///     XlsxDraft draft;
///     if (draft.workbook() != nullptr) { … add sheets … }
///     const QByteArray bytes = draft.close(error);
class XlsxDraft {
public:
    XlsxDraft();
    ~XlsxDraft();
    XlsxDraft(const XlsxDraft&) = delete;
    XlsxDraft& operator=(const XlsxDraft&) = delete;

    /// Null where memory or the temporary folder is missing; close() then says so.
    lxw_workbook* workbook() const { return mWorkbook; }
    /// The finished file, once, and whole. Empty with `error` on failure.
    QByteArray close(QString& error);

private:
    locale_t mPoints;
    locale_t mFormer;
    QTemporaryDir mFolder;
    QString mPath;
    lxw_workbook* mWorkbook;
};

} // namespace table_writer
