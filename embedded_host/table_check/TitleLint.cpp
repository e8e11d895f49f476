#include "embedded_host/table_check/TitleLint.h"

#include <QMap>
#include <QRegularExpression>
#include <QVector>

#include <algorithm>
#include <numeric>

namespace table_lint {
namespace {

constexpr int LongestTitle = 64; ///< nothing longer is a misspelt title

QString plain(const QString& title)
{
    QString text;
    for (const QChar c : title.normalized(QString::NormalizationForm_KC)) {
        if (c.isLetterOrNumber()) {
            text.append(c.toLower());
        }
    }
    return text;
}

/// Characters to insert, remove or replace to make one text of the other.
int distance(const QString& a, const QString& b)
{
    QVector<int> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < a.size(); ++i) {
        int diagonal = row[0];
        row[0] = i + 1;
        for (int j = 0; j < b.size(); ++j) {
            const int replaced = diagonal + (a.at(i) == b.at(j) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
        }
    }
    return row.last();
}

/// What other systems call a column, by the column. Each is compared without blanks, brackets and signs.
const QMap<QString, QStringList>& otherNames()
{
    const auto names = [](const char* list) { return QString::fromUtf8(list).split(QLatin1Char(' ')); };
    static const QMap<QString, QStringList> list = {
        {QStringLiteral("委托限价"),
         names("限价 价格 单价 委托价格 委托价 指令价格 指令价 报价 买卖价格 买入价 "
               "卖出价 交易价格 下单价格 最高价 最低价 price "
               "limit limitprice limitpx px")},
        {QStringLiteral("委托数量"), names("数量 股数 手数 委托股数 委托手数 指令数量 交易数量 买卖数量 "
                                           "目标数量 下单数量 张数 份额 qty quantity volume "
                                           "shares orderqty orderquantity")},
        {QStringLiteral("委托金额"), names("金额 交易金额 指令金额 下单金额 目标金额 amount")},
        {QStringLiteral("最大市场占比"),
         names("市场占比 占比 最大占比 参与率 市场参与率 最大参与率 参与比例 最大参与比例 跟量比例 pov "
               "participation participationrate maxparticipation maxpov")},
        {QStringLiteral("交易方向"), names("方向 买卖方向 买卖 委托方向 买卖标志 指令方向 side direction bs "
                                           "buysell")},
        {QStringLiteral("开始时间"), names("起始时间 开始 算法开始时间 starttime start begintime "
                                           "begin")},
        {QStringLiteral("结束时间"),
         names("截止时间 终止时间 结束 到期时间 过期时间 算法过期时间 算法结束时间 endtime end "
               "expiretime")},
        {QStringLiteral("证券代码"), names("代码 股票代码 标的代码 合约代码 合约 标的 证券 code symbol "
                                           "ticker security securitycode stockcode "
                                           "instrument")},
        {QStringLiteral("市场"), names("交易市场 交易所 证券市场 市场代码 exchange market exch mic venue")}};
    return list;
}

/// The title itself, or without the unit behind it: 限价(元), 数量（股）.
QStringList spellings(const QString& title)
{
    static const QRegularExpression unit(QStringLiteral("[(（\\[【/].*$"));
    QString bare = title;
    return {plain(title), plain(bare.remove(unit))};
}

/// Columns that are one in the trade, whatever a strategy calls it.
QString generalName(const QString& column)
{
    static const QMap<QString, QString> names = {{QStringLiteral("限价"), QStringLiteral("委托限价")},
                                                 {QStringLiteral("算法开始时间"), QStringLiteral("开始时间")},
                                                 {QStringLiteral("算法过期时间"), QStringLiteral("结束时间")},
                                                 {QStringLiteral("代码"), QStringLiteral("证券代码")}};
    return names.value(column, column);
}

/// Words by which a title is about a column, by the column; the longer ones of a list say more.
const QList<QPair<QString, QStringList>>& wordsOfColumns()
{
    const auto words = [](const char* list) { return QString::fromUtf8(list).split(QLatin1Char(' ')); };
    static const QList<QPair<QString, QStringList>> list = {
        {QStringLiteral("单笔最小委托金额"), words("最小金额 最低金额 单笔最小 起始金额")},
        {QStringLiteral("委托限价"), words("价 price")},
        {QStringLiteral("委托数量"), words("数量 股数 手数 张数 qty quantity")},
        {QStringLiteral("委托金额"), words("金额 amount")},
        {QStringLiteral("最大市场占比"), words("占比 参与 跟量 市占 成交量比例 pov")},
        {QStringLiteral("交易方向"), words("方向 买卖")},
        {QStringLiteral("开始时间"), words("开始 起始")},
        {QStringLiteral("结束时间"), words("结束 截止 终止 到期 过期")},
        {QStringLiteral("风格参数"), words("风格 激进")},
        {QStringLiteral("委托属性"), words("属性")},
        {QStringLiteral("创建后是否立即启动"), words("启动")}};
    return list;
}

/// What a file tells beside its orders.
bool isForReading(const QString& plainTitle)
{
    static const QStringList words =
        QStringLiteral(
            "最新 现价 昨 前收 收盘 开盘 今开 涨停 跌停 涨跌 成本 均价 成交价 成交数量 成交金额 "
            "成交时间 已成 参考 估 市值 净值 持仓 持有 可用 可卖 剩余 冻结 总 更新 录入 导出 下单时间 "
            "备注 说明 理由 原因 名称 类型 类别 单位 价值 评价 代价 性价 last close pre")
            .split(QLatin1Char(' '));
    return std::any_of(words.begin(), words.end(),
                       [&](const QString& word) { return plainTitle.contains(word); });
}

} // namespace

QString synonymOf(const QString& title, const QStringList& columns)
{
    const QStringList written = spellings(title);
    for (const QString& column : columns) {
        const QStringList names = otherNames().value(generalName(column)) + QStringList{column};
        for (const QString& name : names) {
            if (!written.first().isEmpty() && written.contains(plain(name))) {
                return column;
            }
        }
    }
    return QString();
}

QString wordedAs(const QString& title, const QStringList& columns)
{
    const QString written = plain(title);
    if (isForReading(written)) {
        return QString();
    }
    for (const auto& entry : wordsOfColumns()) {
        const bool isAbout = std::any_of(entry.second.begin(), entry.second.end(),
                                         [&](const QString& word) { return written.contains(word); });
        for (const QString& column : isAbout ? columns : QStringList()) {
            if (generalName(column) == entry.first) {
                return column;
            }
        }
    }
    return QString();
}

QString orderColumnOf(const QString& title)
{
    return synonymOf(title, otherNames().keys());
}

QString nearestTitle(const QString& title, const QStringList& known)
{
    const QString wanted = plain(title.left(LongestTitle));
    QString nearest;
    int best = std::max(2, wanted.size() / 3 + 1); // one character may differ, or a third of them
    for (const QString& candidate : wanted.size() > 1 ? known : QStringList()) {
        const int away = distance(wanted, plain(candidate.left(LongestTitle)));
        if (away < best) {
            best = away;
            nearest = candidate;
        }
    }
    return nearest;
}

} // namespace table_lint
