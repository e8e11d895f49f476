#include "embedded_host/table_reader/xlsx/XlsxSheetList.h"

#include "embedded_host/table_reader/shared/SheetRows.h"
#include "embedded_host/table_reader/xlsx/XlsxSheet.h"
#include "embedded_host/table_reader/xlsx/XlsxTexts.h"

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

FirstLooks lookAt(ZipArchive& archive, const XlsxWorkbook& workbook, const CellStyles& styles,
                  SharedTexts& texts)
{
    FirstLooks looks;
    for (int number = 0; number < workbook.sheets.size() && looks.size() < SheetsLookedAt; ++number) {
        const XlsxSheetEntry& entry = workbook.sheets.at(number);
        if (number == workbook.readSheet || entry.hidden || entry.part.isEmpty()) {
            continue;
        }
        looks.push_back(std::make_unique<FirstLook>(number));
        XlsxSheet(styles, workbook.dates, looks.back()->rows, texts).read(archive, entry.part);
    }
    return looks;
}

} // namespace

QList<table::Sheet> listXlsxSheets(ZipArchive& archive, const XlsxWorkbook& workbook,
                                   const CellStyles& styles, const table::Table& table)
{
    QList<table::Sheet> sheets;
    for (int number = 0; number < workbook.sheets.size(); ++number) {
        const XlsxSheetEntry& entry = workbook.sheets.at(number);
        const bool isRead = number == workbook.readSheet;
        sheets.append({entry.name, !entry.hidden, number == workbook.activeSheet, isRead,
                       isRead ? headOf(table) : QStringList()});
    }
    SharedTexts texts;
    const FirstLooks looks = lookAt(archive, workbook, styles, texts);
    supplyXlsxTexts(archive, workbook.textsPart, texts);
    for (const auto& look : looks) {
        look->rows.finish();
        sheets[look->sheet].head = headOf(look->table);
    }
    return sheets;
}

} // namespace table_reader
