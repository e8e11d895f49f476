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

namespace {

ushort codeOf(QChar unit)
{
    return unit.unicode();
}

ushort codeOf(char unit)
{
    return static_cast<unsigned char>(unit);
}

/// Whatever the encoding: the characters of an address are ASCII.
template <typename Text> CellPosition positionIn(const Text& text)
{
    constexpr int MaxRow = 100'000'000;
    int row = 0;
    int column = 0;
    for (const auto unit : text) {
        const ushort code = codeOf(unit);
        const ushort upper = code & ~ushort(0x20);
        if (upper >= u'A' && upper <= u'Z' && row == 0) {
            column = column * 26 + (upper - u'A' + 1);
        } else if (code >= u'0' && code <= u'9' && column > 0) {
            row = row * 10 + (code - u'0');
        } else if (code != u'$') {
            return {};
        }
        if (column > SheetColumns || row > MaxRow) {
            return {};
        }
    }
    return row > 0 && column > 0 ? CellPosition{row - 1, column - 1} : CellPosition{};
}

} // namespace

CellPosition parseCellAddress(const QStringRef& text)
{
    return positionIn(text);
}

CellPosition parseCellAddress(std::string_view text)
{
    return positionIn(text);
}

} // namespace table
