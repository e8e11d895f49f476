#include "desk/window/DiffPanel.h"

#include "desk/models/DiffModel.h"
#include "desk/window/FilteredTable.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

DiffPanel::DiffPanel(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mModel(new DiffModel(this)),
      mTable(new FilteredTable(mModel, {QStringLiteral("变更"), QString()}, prompts, this))
{
    mTable->setColoursOf(host);
    mTable->view()->horizontalHeader()->setStretchLastSection(true);
    auto* column = new QVBoxLayout(this);
    column->addWidget(mTable);
    connect(mTable->view(), &QTableView::activated, this, [this] {
        const int line = mTable->currentRow();
        const int row = line < 0 ? 0 : mModel->records().at(line).newRow;
        if (row > 0) {
            emit rowWanted(row);
        }
    });
    clear();
}

void DiffPanel::show(const ledger::BatchDiff& diff)
{
    mModel->setRecords(diffLines(diff));
    mTable->filter()->clear();
    mTable->setEmptyText(QStringLiteral("没有变更"));
    mTable->fitColumns();
}

void DiffPanel::clear()
{
    mModel->setRecords({});
    mTable->setEmptyText(QStringLiteral("没有可比较的批次"));
}
