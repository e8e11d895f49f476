#include "bench/table_reader/BenchFiles.h"

#include "embedded_host/table_reader/xls/BiffStream.h"
#include "tests/table_reader/Samples.h"

#include <xlsxwriter.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>

namespace bench {
namespace {

namespace biff = table_reader::biff;

bool isNumber(int column)
{
    return column % 2 == 1;
}

/// Half of the columns are texts, of which some repeat from row to row.
QString textAt(int row, int column)
{
    return row == 0          ? QStringLiteral("委托列%1").arg(column)
           : column == 0     ? QStringLiteral("%1").arg(600000 + row, 6, 10, QLatin1Char('0'))
           : column % 4 == 2 ? QStringLiteral("上海证券交易所")
                             : QStringLiteral("备注%1").arg(row * 7 + column);
}

double numberAt(int row, int column)
{
    return row * 100 + column * 0.01;
}

QByteArray csv(int rows)
{
    QString text;
    for (int row = 0; row <= rows; ++row) {
        for (int column = 0; column < Columns; ++column) {
            const bool number = row > 0 && isNumber(column);
            text += number ? QString::number(numberAt(row, column)) : textAt(row, column);
            text += column + 1 < Columns ? QStringLiteral(",") : QStringLiteral("\r\n");
        }
    }
    return QTextCodec::codecForName("GB18030")->fromUnicode(text);
}

void writeXlsx(const QString& path, int rows)
{
    lxw_workbook* const workbook = workbook_new(QFile::encodeName(path).constData());
    lxw_worksheet* const sheet = workbook_add_worksheet(workbook, nullptr);
    for (int row = 0; row <= rows; ++row) {
        for (int column = 0; column < Columns; ++column) {
            const auto r = static_cast<lxw_row_t>(row);
            const auto c = static_cast<lxw_col_t>(column);
            row > 0 && isNumber(column)
                ? worksheet_write_number(sheet, r, c, numberAt(row, column), nullptr)
                : worksheet_write_string(sheet, r, c, textAt(row, column).toUtf8().constData(), nullptr);
        }
    }
    workbook_close(workbook);
}

/// Shared texts in one record and its continuations, none of them cut within a text.
QByteArray sharedTexts(const QList<QByteArray>& texts)
{
    constexpr int RecordBytes = 8000;
    samples::Biff biffs;
    const auto count = samples::dword(static_cast<quint32>(texts.size()));
    QByteArray record = count + count;
    quint16 type = biff::Sst;
    for (const QByteArray& text : texts) {
        if (record.size() + text.size() > RecordBytes) {
            biffs.record(type, record);
            type = biff::Continue;
            record.clear();
        }
        record += text;
    }
    return biffs.record(type, record).bytes();
}

QByteArray xls(int rows)
{
    samples::Biff cells;
    QList<QByteArray> texts;
    for (int row = 0; row <= rows; ++row) {
        for (int column = 0; column < Columns; ++column) {
            if (row > 0 && isNumber(column)) {
                cells.number(row, column, numberAt(row, column));
            } else {
                cells.cell(biff::LabelSst, row, column, 0,
                           samples::dword(static_cast<quint32>(texts.size())));
                texts.append(samples::text8(textAt(row, column), 2));
            }
        }
    }
    return samples::xls(cells.bytes(), sharedTexts(texts));
}

void write(const QString& path, const QByteArray& bytes, qint64 size = 0)
{
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    if (size > 0) {
        file.resize(size);
    }
}

Files make(const QTemporaryDir& folder)
{
    constexpr int Rows = 1000;
    constexpr qint64 HugeBytes = Q_INT64_C(5) << 30;
    const Files made = {folder.filePath(QStringLiteral("a.csv")), folder.filePath(QStringLiteral("a.xlsx")),
                        folder.filePath(QStringLiteral("long.xlsx")),
                        folder.filePath(QStringLiteral("a.xls")),
                        folder.filePath(QStringLiteral("huge.csv"))};
    write(made.csv, csv(Rows));
    writeXlsx(made.xlsx, Rows);
    writeXlsx(made.longXlsx, 100 * Rows);
    write(made.xls, xls(Rows));
    write(made.hugeCsv, csv(3 * Rows), HugeBytes);
    return made;
}

} // namespace

const Files& files()
{
    static const QTemporaryDir folder;
    static const Files made = make(folder);
    return made;
}

} // namespace bench
