#include "tests/support/Sheet.h"

#include "tests/support/SmallMarket.h"
#include "tests/support/Text.h"

namespace {

/// What a good row holds under a title.
QString goodCell(const QString& title)
{
    static const QMap<QString, QString> cells = {{"委托金额"_s, "100000"_s}, {"封单金额"_s, "1234567"_s}};
    const QStringList header = small_market::ordinaryHeader();
    const int column = header.indexOf(title);
    return column < 0 ? cells.value(title) : small_market::ordinaryRow().at(column);
}

QStringList headerWith(const QString& quantity)
{
    QStringList header = small_market::ordinaryHeader();
    header.replace(header.indexOf("委托数量"_s), quantity);
    return header;
}

} // namespace

Sheet Sheet::ordinary()
{
    return Sheet(small_market::ordinaryHeader());
}

Sheet Sheet::paired()
{
    Sheet sheet({"证券代码"_s, "市场"_s, "委托数量"_s, "交易方向"_s, "委托属性"_s, "委托限价"_s, "实例备注"_s,
                 "创建后是否立即启动"_s});
    sheet.mGoodCells = {{"交易方向"_s, "1/2"_s}, {"委托属性"_s, "0/0"_s}, {"委托限价"_s, "10.5/10.6"_s}};
    return sheet;
}

Sheet Sheet::amount()
{
    return Sheet(headerWith("委托金额"_s));
}

Sheet Sheet::sealing()
{
    return Sheet(headerWith("封单金额"_s));
}

Sheet& Sheet::add(const QMap<QString, QString>& cells)
{
    QStringList row;
    for (const QString& title : mHeader) {
        row.append(cells.value(title, mGoodCells.value(title, goodCell(title))));
    }
    return addRow(row);
}

Sheet& Sheet::addRow(const QStringList& row)
{
    mRows.append(row);
    return *this;
}

Sheet& Sheet::rename(const QString& title, const QString& other)
{
    mHeader.replace(mHeader.indexOf(title), other);
    return *this;
}

Sheet& Sheet::drop(const QString& title)
{
    const int column = mHeader.indexOf(title);
    mHeader.removeAt(column);
    for (QStringList& row : mRows) {
        if (column < row.size()) {
            row.removeAt(column);
        }
    }
    return *this;
}

Sheet& Sheet::reorder(const QList<int>& order)
{
    const auto reordered = [&](const QStringList& row) {
        QStringList result;
        for (int column : order) {
            result.append(row.value(column));
        }
        return result;
    };
    mHeader = reordered(mHeader);
    for (QStringList& row : mRows) {
        row = reordered(row);
    }
    return *this;
}
