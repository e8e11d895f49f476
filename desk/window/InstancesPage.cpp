#include "desk/window/InstancesPage.h"

#include "desk/models/InstancesModel.h"
#include "desk/window/FilteredTable.h"
#include "embedded_host/EmbeddedHost.h"

#include <QPushButton>
#include <QVBoxLayout>

InstancesPage::InstancesPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts,
                             QWidget* parent)
    : QWidget(parent), mHost(host), mBooks(books),
      mModel(new InstancesModel([this](const QString& symbol) { return nameOf(symbol); }, this)),
      mTable(new FilteredTable(mModel, {QStringLiteral("算法实例"), QString()}, prompts, this)),
      mAllBatches(mTable->addButton(QStringLiteral("显示全部批次"), QStringLiteral("button_allBatches")))
{
    mTable->setColoursOf(host);
    mTable->setProgressColumn(host, InstancesModel::Filled);
    auto* column = new QVBoxLayout(this);
    column->addWidget(mTable);
    connect(mAllBatches, &QPushButton::clicked, this, [this] { showBatch(std::nullopt); });
    connect(mTable, &FilteredTable::said, this, &InstancesPage::said);
    connect(mModel, &ListModel::failed, this, &InstancesPage::said);
    showBatch(std::nullopt);
}

void InstancesPage::showBatch(std::optional<qint64> batch)
{
    mAllBatches->setVisible(batch.has_value());
    mModel->setPages(pagesOfBatch(batch));
    tellState();
}

void InstancesPage::reload()
{
    mModel->reload();
    tellState();
}

/// Much may have come while another page was in front.
void InstancesPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    reload();
}

QString InstancesPage::error() const
{
    return mModel->error();
}

void InstancesPage::tellState()
{
    mTable->setEmptyText(error().isEmpty() ? QStringLiteral("还没有实例") : error());
    mTable->fitColumnsOnce();
    if (!error().isEmpty()) {
        emit said(error());
    }
}

Pages<ledger::Instance> InstancesPage::pagesOfBatch(std::optional<qint64> batch) const
{
    if (!mBooks.ledger) {
        return pagesOf<ledger::Instance>([this] {
            return Outcome<QList<ledger::Instance>>{{}, mBooks.ledgerError};
        });
    }
    if (batch) {
        return pagesOf<ledger::Instance>([this, batch] { return mBooks.ledger->instancesOf(*batch); });
    }
    return [this](const ledger::Instance* last, int count) {
        return mBooks.ledger->instancesBehind(last ? std::make_optional(last->id) : std::nullopt, count);
    };
}

QString InstancesPage::nameOf(const QString& symbol) const
{
    const Security* security = mHost.referenceData().security(symbol);
    return security ? security->name : QString();
}
