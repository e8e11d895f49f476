#include "tests/properties/RandomImports.h"

#include <QRegularExpression>

using small_market::combo;
using small_market::line;
using small_market::optional;

void RandomImports::openRandomStrategy()
{
    const QList<QVariant> candidates = {line("单笔最大"_s, optional("5"_s, "五"_s)),
                                        line("自定"_s, optional(QString(), QString())),
                                        combo("选项"_s, {"1=壹"_s, "2=贰"_s}, optional("1"_s, "壹"_s)),
                                        line("最大市场占比"_s, optional("30"_s, QString())),
                                        line("扫盘比例（%）"_s, optional(QString(), QString()))};
    QVariantList document = small_market::ordinaryDocument();
    mExtraTitles.clear();
    for (const QVariant& candidate : candidates) {
        if (chance(50)) {
            document.insert(1 + below(document.size()), candidate);
            mExtraTitles.append(candidate.toMap().value("paramName"_s).toString());
        }
    }
    openDocument(document, "RANDOM"_s);
}

QMap<QString, QString> RandomImports::randomCells(bool faulty)
{
    const bool shanghai = chance(50);
    QMap<QString, QString> cells = {
        {"证券代码"_s, shanghai ? "600000"_s : "000001"_s},
        {"市场"_s, shanghai ? oneOf<QString>({"SH"_s, "上海"_s, "沪市"_s}) : "SZ"_s},
        {"委托数量"_s, QString::number(1 + below(100000))},
        {"交易方向"_s, oneOf<QString>({"1"_s, "2"_s})},
        {"委托属性"_s, chance(90) ? "0"_s : oneOf<QString>({"9"_s, "6"_s})}, // 0 alone can be confirmed
        {"委托限价"_s, oneOf<QString>({"10.5"_s, QString(), "7.777"_s})},
        {"选项"_s, oneOf<QString>({"1"_s, "2"_s, QString()})},
        {"自定"_s, oneOf<QString>({"文本"_s, "a,b"_s, "引\"号"_s, "两\n行"_s})}};
    if (faulty) {
        const QList<QPair<QString, QString>> faults = {
            {"证券代码"_s, "999999"_s}, {"市场"_s, "ZZ"_s},       {"委托数量"_s, QString()},
            {"交易方向"_s, "买入"_s},   {"委托属性"_s, "?"_s},    {"创建后是否立即启动"_s, "5"_s},
            {"开始时间"_s, "昨天"_s},   {"风格参数"_s, "bold"_s}, {"创建后是否立即启动"_s, QString()}};
        const auto fault = oneOf(faults);
        cells[fault.first] = fault.second;
    }
    return cells;
}

QList<int> RandomImports::randomOrder(int count)
{
    QList<int> order;
    for (int i = 0; i < count; ++i) {
        order.insert(below(order.size() + 1), i);
    }
    return order;
}

RandomImports::RandomTable RandomImports::randomTable(int rowCount)
{
    RandomTable result = {Sheet(small_market::ordinaryHeader() + mExtraTitles), {}};
    for (int i = 0; i < rowCount; ++i) {
        const RowKind kind = oneOf<RowKind>({RowKind::Good, RowKind::Good, RowKind::Good, RowKind::Faulty,
                                             RowKind::Faulty, RowKind::Note, RowKind::Blank});
        result.kinds.append(kind);
        switch (kind) {
        case RowKind::Good:
        case RowKind::Faulty:
            result.sheet.add(randomCells(kind == RowKind::Faulty));
            break;
        case RowKind::Note:
            result.sheet.addRow({oneOf<QString>({QString(), " "_s}), QString(), "备注："_s});
            break;
        case RowKind::Blank:
            result.sheet.addRow({QString()});
            break;
        }
    }
    return result;
}

RandomImports::RandomTable RandomImports::randomLockTable(int rowCount)
{
    const QList<QPair<QString, QString>> faults = {{"证券代码"_s, "999999"_s}, {"交易方向"_s, "1"_s},
                                                   {"委托属性"_s, "0"_s},      {"委托限价"_s, "10"_s},
                                                   {"委托限价"_s, "1/2/3"_s},  {"交易方向"_s, "1/"_s},
                                                   {"委托数量"_s, QString()},  {"委托属性"_s, "0/0/0"_s}};
    RandomTable result = {Sheet::paired(), {}};
    for (int i = 0; i < rowCount; ++i) {
        const bool faulty = chance(50);
        const auto fault = oneOf(faults);
        const QMap<QString, QString> cells = {{fault.first, fault.second}};
        result.kinds.append(faulty ? RowKind::Faulty : RowKind::Good);
        result.sheet.add(faulty ? cells : QMap<QString, QString>());
    }
    return result;
}

QList<int> RandomImports::errorLines() const
{
    QList<int> lines;
    static const QRegularExpression line("第(\\d+)行："_s);
    auto matches = line.globalMatch(lastBoxText());
    while (matches.hasNext()) {
        lines.append(matches.next().captured(1).toInt());
    }
    return lines;
}

QVariantList RandomImports::outcome()
{
    QVariantList records;
    const RecordDataList rows = table().getViewData();
    for (const RecordData& row : rows) {
        QVariantMap record;
        for (auto cell = row.constBegin(); cell != row.constEnd(); ++cell) {
            record[QString::number(cell.key())] = cell.value();
        }
        records.append(record);
    }
    QVariantList maps;
    for (const auto& map : dialog->getWidgetData()) {
        maps.append(map);
    }
    return {records, maps, lastBoxText(), child<SolveyDecimalLineEdit>("expectBuyLine").value(),
            child<SolveyDecimalLineEdit>("expectSellLine").value()};
}
