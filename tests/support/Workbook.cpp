#include "tests/support/Workbook.h"

#include <xlsxwriter.h>

namespace workbook {

bool write(const QString& path, const QList<Sheet>& sheets)
{
    lxw_workbook* book = workbook_new(path.toUtf8().constData());
    if (book == nullptr) {
        return false;
    }
    for (const Sheet& sheet : sheets) {
        lxw_worksheet* made = workbook_add_worksheet(book, sheet.name.toUtf8().constData());
        for (int row = 0; row < sheet.rows.size(); ++row) {
            for (int column = 0; column < sheet.rows.at(row).size(); ++column) {
                worksheet_write_string(made, lxw_row_t(row), lxw_col_t(column),
                                       sheet.rows.at(row).at(column).toUtf8().constData(), nullptr);
            }
        }
    }
    return workbook_close(book) == LXW_NO_ERROR;
}

} // namespace workbook
