#include "embedded_host/table_reader/xls/XlsSheetList.h"

#include "embedded_host/table_reader/xls/XlsSheet.h"

#include <memory>
#include <vector>

namespace table_reader {
namespace {

/// A sheet on its way to its first row: its texts come when all sheets have said which they want.
struct FirstLook {
    explicit FirstLook(int number) : sheet(number), rows(SheetRows::forFirstLook(table)) {}

    int sheet; ///< its number in the workbook
    table::Table table;
    SheetRows rows;
};

using FirstLooks = std::vector<std::unique_ptr<FirstLook>>;

FirstLooks lookAt(BiffStream& stream, const XlsWorkbook& workbook, SharedTexts& texts)
{
    FirstLooks looks;
    for (int number = 0; number < workbook.sheets.size() && looks.size() < SheetsLookedAt; ++number) {
        const XlsSheetEntry& entry = workbook.sheets.at(number);
        if (number != workbook.readSheet && !entry.hidden && entry.isWorksheet) {
            looks.push_back(std::make_unique<FirstLook>(number));
            XlsSheet(stream, workbook, looks.back()->rows, texts).read(entry.position);
        }
    }
    return looks;
}

} // namespace

QList<table::Sheet> listXlsSheets(BiffStream& stream, const XlsWorkbook& workbook, const table::Table& table)
{
    QList<table::Sheet> sheets;
    for (int number = 0; number < workbook.sheets.size(); ++number) {
        const XlsSheetEntry& entry = workbook.sheets.at(number);
        const bool isRead = number == workbook.readSheet;
        sheets.append({entry.name, !entry.hidden, number == workbook.activeSheet, isRead,
                       isRead ? headOf(table) : QStringList()});
    }
    SharedTexts texts;
    const FirstLooks looks = lookAt(stream, workbook, texts);
    readXlsTexts(stream, workbook, texts);
    for (const auto& look : looks) {
        look->rows.finish();
        sheets[look->sheet].head = headOf(look->table);
    }
    return sheets;
}

} // namespace table_reader
