#pragma once

#include <QString>

/// Import files as traders have them: 16 columns of codes, names, quantities, prices, dates and remarks below
/// a header.
namespace bench {

constexpr int Columns = 16;

struct Files {
    QString csv;      ///< 1,000 rows, GB18030 as a Chinese spreadsheet saves it
    QString xlsx;     ///< 1,000 rows
    QString longXlsx; ///< 100,000 rows
    QString xls;      ///< 1,000 rows
    QString hugeCsv;  ///< 5 GB, nearly all of it a hole in the file
};

/// Makes the files in a folder that goes when the program ends.
const Files& files();

} // namespace bench
