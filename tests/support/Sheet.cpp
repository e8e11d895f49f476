#include "tests/support/Sheet.h"

#include "tests/support/SmallMarket.h"

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// What a good row holds under a title.
QString goodCell(const QString& title)
{
    static const QMap<QString, QString> cells = {{text("委托金额"), text("100000")},
                                                 {text("封单金额"), text("1234567")}};
    const QStringList header = small_market::ordinaryHeader();
    const int column = header.indexOf(title);
    return column < 0 ? cells.value(title) : small_market::ordinaryRow().at(column);
}

QStringList headerWith(const QString& quantity)
{
    QStringList header = small_market::ordinaryHeader();
    header.replace(header.indexOf(text("委托数量")), quantity);
    return header;
}

} // namespace

Sheet Sheet::ordinary()
{
    return Sheet(small_market::ordinaryHeader());
}

Sheet Sheet::paired()
{
    Sheet sheet({text("证券代码"), text("市场"), text("委托数量"), text("交易方向"), text("委托属性"),
                 text("委托限价"), text("实例备注"), text("创建后是否立即启动")});
    sheet.mGoodCells = {{text("交易方向"), text("1/2")},
                        {text("委托属性"), text("0/0")},
                        {text("委托限价"), text("10.5/10.6")}};
    return sheet;
}

Sheet Sheet::amount()
{
    return Sheet(headerWith(text("委托金额")));
}

Sheet Sheet::sealing()
{
    return Sheet(headerWith(text("封单金额")));
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
