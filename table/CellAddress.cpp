#include "table/CellAddress.h"

namespace table {

QString cellAddress(int row, int column)
{
    QString letters;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26) {
        letters.prepend(QChar(u'A' + (rest - 1) % 26));
    }
    return letters + QString::number(row + 1);
}

CellPosition parseCellAddress(const QStringRef& text)
{
    constexpr int MaxRow = 100'000'000;
    int row = 0;
    int column = 0;
    for (const QChar c : text) {
        const ushort upper = c.unicode() & ~ushort(0x20);
        if (upper >= u'A' && upper <= u'Z' && row == 0) {
            column = column * 26 + (upper - u'A' + 1);
        } else if (c >= QLatin1Char('0') && c <= QLatin1Char('9') && column > 0) {
            row = row * 10 + (c.unicode() - u'0');
        } else if (c != QLatin1Char('$')) {
            return {};
        }
        if (column > SheetColumns || row > MaxRow) {
            return {};
        }
    }
    return row > 0 && column > 0 ? CellPosition{row - 1, column - 1} : CellPosition{};
}

} // namespace table
