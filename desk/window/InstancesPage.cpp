#include "desk/window/InstancesPage.h"

#include "desk/models/InstancesModel.h"
#include "desk/window/FilteredTable.h"
#include "desk/window/InstanceActions.h"
#include "embedded_host/EmbeddedHost.h"
#include "host/ZelMessageBox.h"
#include "words/Words.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QSet>
#include <QVBoxLayout>

namespace {

constexpr int ResultLines = 6;

} // namespace

InstancesPage::InstancesPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts,
                             QWidget* parent)
    : QWidget(parent), mHost(host), mBooks(books),
      mModel(new InstancesModel(
          [this](const QString& symbol) { return nameOf(symbol); },
          [&host](const QString& symbol) { return host.referenceData().priceDecimals(symbol); }, this)),
      mTable(new FilteredTable(mModel, {Words::tr("算法实例"), QString()}, prompts, this)),
      mAllBatches(mTable->addButton(Words::tr("显示全部批次"), QStringLiteral("button_allBatches"))),
      mActions(new InstanceActions(books, *mModel, *mTable)), mResults(new QPlainTextEdit(this))
{
    mTable->setColoursOf(host);
    mTable->setProgressColumn(host, InstancesModel::Filled);
    auto* column = new QVBoxLayout(this);
    column->addWidget(mTable, 1);
    mResults->setObjectName(QStringLiteral("text_results"));
    mResults->setAccessibleName(Words::tr("逐个实例的结果"));
    mResults->setReadOnly(true);
    mResults->setTabChangesFocus(true);
    mResults->setFixedHeight(ResultLines * mResults->fontMetrics().lineSpacing());
    mResults->hide();
    column->addWidget(mResults);
    connect(mActions, &InstanceActions::done, this, &InstancesPage::tellResults);
    connect(mActions, &InstanceActions::failed, this, &InstancesPage::tellFailure);
    connect(mTable, &FilteredTable::selectionChanged, this, [this] {
        const QString summary = mActions->summary();
        if (!summary.isEmpty() && isVisible()) {
            emit said(summary);
        }
    });
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

/// Other instances may have come before those that are selected.
void InstancesPage::reload()
{
    QSet<QString> selected;
    const QList<int> before = mTable->selectedRows();
    for (const int row : before) {
        selected.insert(mModel->records().at(row).id.text());
    }
    mModel->reload();
    if (mTable->selectedRows().size() != before.size()) {
        QList<int> rows;
        for (int row = 0; row < mModel->rowCount(); ++row) {
            if (selected.contains(mModel->records().at(row).id.text())) {
                rows.append(row);
            }
        }
        mTable->selectRows(rows);
    }
    tellState();
}

void InstancesPage::tellResults(const QString& summary, const QStringList& results)
{
    reload();
    mResults->setPlainText(results.join(QLatin1Char('\n')));
    mResults->show();
    emit changed();
    emit said(summary);
}

void InstancesPage::tellFailure(const QString& error)
{
    reload();
    ZelMessageBox(Words::tr("未变更"), error, ZelMessageBox::Error, this).showModally();
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
    mTable->setEmptyText(error().isEmpty() ? Words::tr("还没有实例") : error());
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
