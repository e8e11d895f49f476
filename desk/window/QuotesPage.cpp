#include "desk/window/QuotesPage.h"

#include "desk/models/Money.h"
#include "desk/models/QuotesModel.h"
#include "desk/window/FilteredTable.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/quotes/QuoteBoard.h"
#include "host/QuotaFields.h"
#include "words/Words.h"

#include <QVBoxLayout>

namespace {

constexpr int DrawEveryMs = 250;

QString priceText(const QMap<QString, QVariant>& quote, const QString& field, int decimals)
{
    const QString text = quote.value(field).toString();
    return text.isEmpty() ? text : money::price(ledger::Decimal::fromText(text).rounded(decimals), decimals);
}

} // namespace

QuotesPage::QuotesPage(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mHost(host), mModel(new QuotesModel(this)),
      mTable(new FilteredTable(
          mModel, {Words::tr("行情"), Words::tr("导入一个批次后，其中证券的行情显示在这里")}, prompts, this))
{
    mTable->setColoursOf(host);
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
    QList<QuoteLine> quotes;
    for (const QString& symbol : mHost.quotes().subscribedSymbols()) {
        quotes.append(quoteOf(symbol));
    }
    mModel->updateRecords(quotes);
    mTable->fitColumnsOnce();
}

QuoteLine QuotesPage::quoteOf(const QString& symbol) const
{
    const QMap<QString, QVariant> quote = mHost.quotes().snapshot(symbol);
    const Security* security = mHost.referenceData().security(symbol);
    const int decimals = mHost.referenceData().priceDecimals(symbol);
    return {symbol,
            security ? security->name : QString(),
            decimals,
            priceText(quote, QuotaFields::LastPx, decimals),
            priceText(quote, QuotaFields::PreClosePx, decimals),
            priceText(quote, QuotaFields::MaxPx, decimals),
            priceText(quote, QuotaFields::MinPx, decimals)};
}
