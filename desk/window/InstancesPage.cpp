#include "desk/window/InstancesPage.h"

#include "desk/models/InstancesModel.h"
#include "desk/window/FilteredTable.h"
#include "embedded_host/EmbeddedHost.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// Newest batch first, each in the order of its rows.
void sortNewestFirst(QList<ledger::Instance>& instances)
{
    std::stable_sort(
        instances.begin(), instances.end(),
        [](const ledger::Instance& a, const ledger::Instance& b) { return a.id.batch > b.id.batch; });
}

} // namespace

InstancesPage::InstancesPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts,
                             QWidget* parent)
    : QWidget(parent), mHost(host), mBooks(books),
      mModel(new InstancesModel([this](const QString& symbol) { return nameOf(symbol); }, this)),
      mTable(new FilteredTable(mModel, {QStringLiteral("算法实例"), QString()}, prompts, this)),
      mAllBatches(mTable->addButton(QStringLiteral("显示全部批次"), QStringLiteral("button_allBatches")))
{
    mTable->setColoursOf(host);
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
    mModel->setPages(pagesOf<ledger::Instance>([this, batch] { return instancesOf(batch); }));
    tellState();
}

void InstancesPage::reload()
{
    mModel->reload();
    tellState();
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

Outcome<QList<ledger::Instance>> InstancesPage::instancesOf(std::optional<qint64> batch) const
{
    if (!mBooks.ledger) {
        return {{}, mBooks.ledgerError};
    }
    Outcome<QList<ledger::Instance>> instances = mBooks.ledger->instances(batch);
    sortNewestFirst(instances.value);
    return instances;
}

QString InstancesPage::nameOf(const QString& symbol) const
{
    const Security* security = mHost.referenceData().security(symbol);
    return security ? security->name : QString();
}
