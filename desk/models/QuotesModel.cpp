#include "desk/models/QuotesModel.h"

#include "words/Words.h"

namespace {

bool canCompare(const QuoteLine& quote)
{
    return quote.last.toDouble() > 0 && quote.preClose.toDouble() > 0;
}

QString fixedText(const QVariant& number, int decimals)
{
    return number.isValid() ? QString::number(number.toDouble(), 'f', decimals) : QString();
}

/// By the change as shown: one that rounds to nothing is none.
QString tintOf(const QuoteLine& quote)
{
    const double change = fixedText(quote.change(), quote.decimals).toDouble();
    return change > 0 ? QStringLiteral("buy") : change < 0 ? QStringLiteral("sell") : QString();
}

QList<ListModel::Column> columns()
{
    return {{Words::tr("证券代码")},     {Words::tr("证券名称")},      {Words::tr("最新价"), true},
            {Words::tr("涨跌"), true},   {Words::tr("涨跌幅%"), true}, {Words::tr("昨收价"), true},
            {Words::tr("涨停价"), true}, {Words::tr("跌停价"), true}};
}

} // namespace

QVariant QuoteLine::change() const
{
    return canCompare(*this) ? last.toDouble() - preClose.toDouble() : QVariant();
}

QVariant QuoteLine::changePercent() const
{
    return canCompare(*this) ? (last.toDouble() / preClose.toDouble() - 1) * 100 : QVariant();
}

QuotesModel::QuotesModel(QObject* parent) : RecordModel(columns(), parent) {}

ListModel::Cell QuotesModel::cellOf(const QuoteLine& quote, int column) const
{
    switch (Column(column)) {
    case Symbol:
        return {quote.symbol};
    case Name:
        return {quote.name};
    case Last:
        return {quote.last, {}, tintOf(quote)};
    case Change:
        return {fixedText(quote.change(), quote.decimals), {}, tintOf(quote)};
    case ChangeRate:
        return {fixedText(quote.changePercent(), 2), {}, tintOf(quote)};
    case PreClose:
        return {quote.preClose};
    case Max:
        return {quote.max};
    case Min:
        return {quote.min};
    }
    return {};
}
