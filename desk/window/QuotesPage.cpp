#include "desk/window/QuotesPage.h"

#include "desk/window/FilteredTable.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/quotes/QuoteBoard.h"
#include "embedded_host/skin/SkinService.h"
#include "host/QuotaFields.h"

#include <QColor>
#include <QVBoxLayout>

namespace {

enum Column { Symbol, Name, Last, Change, ChangeRate, PreClose, Max, Min, ColumnCount };

constexpr int DrawEveryMs = 250;

QStringList titles()
{
    return {QStringLiteral("证券代码"), QStringLiteral("证券名称"), QStringLiteral("最新价"),
            QStringLiteral("涨跌"),     QStringLiteral("涨跌幅%"),  QStringLiteral("昨收价"),
            QStringLiteral("涨停价"),   QStringLiteral("跌停价")};
}

QString priceText(const QMap<QString, QVariant>& quote, const QString& field, int decimals)
{
    const QString text = quote.value(field).toString();
    return text.isEmpty() ? text : QString::number(text.toDouble(), 'f', decimals);
}

} // namespace

QuotesPage::QuotesPage(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mHost(host), mModel(new TextTable(titles(), this)),
      mTable(new FilteredTable(
          mModel, {QStringLiteral("行情"), QStringLiteral("导入一个批次后，其中证券的行情显示在这里")},
          prompts, this))
{
    mModel->setNumeric({Last, Change, ChangeRate, PreClose, Max, Min});
    mModel->setTint([this](int row, int column) { return tintOf(row, column); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(mTable);
    mSoon.setSingleShot(true);
    mSoon.setInterval(DrawEveryMs);
    connect(&mSoon, &QTimer::timeout, this, &QuotesPage::showQuotes);
    connect(
        &host.quotes(), &QuoteBoard::quotesChanged, this,
        [this] {
            if (isVisible() && !mSoon.isActive()) {
                mSoon.start();
            }
        },
        Qt::QueuedConnection);
}

void QuotesPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    showQuotes();
}

void QuotesPage::showQuotes()
{
    QList<QStringList> rows;
    for (const QString& symbol : mHost.quotes().subscribedSymbols()) {
        rows.append(rowOf(symbol));
    }
    mModel->setRows(rows);
    mTable->fitColumnsOnce();
}

QStringList QuotesPage::rowOf(const QString& symbol) const
{
    const QMap<QString, QVariant> quote = mHost.quotes().snapshot(symbol);
    const Security* security = mHost.referenceData().security(symbol);
    QStringList row;
    for (int column = 0; column < ColumnCount; ++column) {
        row.append(QString());
    }
    row[Symbol] = symbol;
    row[Name] = security ? security->name : QString();
    const int decimals = decimalsOf(symbol);
    row[Last] = priceText(quote, QuotaFields::LastPx, decimals);
    row[PreClose] = priceText(quote, QuotaFields::PreClosePx, decimals);
    row[Max] = priceText(quote, QuotaFields::MaxPx, decimals);
    row[Min] = priceText(quote, QuotaFields::MinPx, decimals);
    const double last = row[Last].toDouble();
    const double before = row[PreClose].toDouble();
    if (last > 0 && before > 0) {
        row[Change] = QString::number(last - before, 'f', decimals);
        row[ChangeRate] = QString::number((last / before - 1) * 100, 'f', 2);
    }
    return row;
}

int QuotesPage::decimalsOf(const QString& symbol) const
{
    const ReferenceData& known = mHost.referenceData();
    if (const FuturesContract* contract = known.futuresContract(symbol)) {
        return contract->pricePrecision;
    }
    const Security* security = known.security(symbol);
    return security ? security->pricePrecision : 2;
}

QColor QuotesPage::tintOf(int row, int column) const
{
    if (column != Last && column != Change && column != ChangeRate) {
        return {};
    }
    const double change = mModel->rows().at(row).at(Change).toDouble();
    const SkinColours& colours = mHost.skins().colours();
    return change > 0   ? colours.colour(QStringLiteral("buy"))
           : change < 0 ? colours.colour(QStringLiteral("sell"))
                        : QColor();
}
