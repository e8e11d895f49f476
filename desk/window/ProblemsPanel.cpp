#include "desk/window/ProblemsPanel.h"

#include "desk/check/RejectedRows.h"
#include "desk/models/ProblemsModel.h"
#include "desk/window/FilteredTable.h"
#include "embedded_host/UserPrompts.h"
#include "table/FaultCatalogue.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

ProblemsPanel::ProblemsPanel(UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mPrompts(prompts), mModel(new ProblemsModel(this)),
      mTable(new FilteredTable(mModel, {QStringLiteral("问题"), QString()}, prompts, this)),
      mDetail(new QLabel(this)),
      mSave(mTable->addButton(QStringLiteral("保存问题行"), QStringLiteral("button_saveRejects")))
{
    QPushButton* next = mTable->addButton(QStringLiteral("下一个 F8"), QStringLiteral("button_nextProblem"));
    mSave->setToolTip(QStringLiteral("把有问题的行连同原因另存为文件，改好后可直接再次导入"));
    mTable->view()->horizontalHeader()->setStretchLastSection(true);
    mDetail->setTextFormat(Qt::PlainText);
    mDetail->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mDetail->setProperty("role", QStringLiteral("caption"));
    mDetail->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 4, 0, 0);
    column->setSpacing(4);
    column->addWidget(mTable, 1);
    column->addWidget(mDetail);

    connect(mSave, &QPushButton::clicked, this, &ProblemsPanel::saveRejects);
    connect(next, &QPushButton::clicked, this, &ProblemsPanel::goToNext);
    connect(mTable, &FilteredTable::currentRowChanged, this, &ProblemsPanel::showDetail);
    connect(mTable, &FilteredTable::said, this, &ProblemsPanel::said);
    show();
}

void ProblemsPanel::begin(const QString& path, const table::Table& table)
{
    clear();
    mPath = path;
    mTableOfFile = table;
    show();
}

void ProblemsPanel::addOfFile(const table::Faults& faults)
{
    mOfFile += faults;
    show();
}

void ProblemsPanel::showOfBatch(const table::Faults& faults)
{
    mOfBatch = faults;
    show();
}

void ProblemsPanel::forgetBatch()
{
    if (!mOfBatch.isEmpty()) {
        mOfBatch.clear();
        show();
    }
}

void ProblemsPanel::clear()
{
    mPath.clear();
    mTableOfFile = {};
    mOfFile.clear();
    mOfBatch.clear();
    show();
}

bool ProblemsPanel::namesFileRows() const
{
    return std::any_of(mOfFile.cbegin(), mOfFile.cend(),
                       [this](const table::Fault& fault) { return rowOf(fault) > 0; });
}

int ProblemsPanel::rowOf(const table::Fault& fault) const
{
    for (int row = 0; row < mTableOfFile.rows.size(); ++row) {
        if (mTableOfFile.lineOf(row) == fault.line) {
            return row;
        }
    }
    return -1;
}

void ProblemsPanel::saveRejects()
{
    if (!namesFileRows()) {
        emit said(QStringLiteral("没有问题行"));
        return;
    }
    const bool spreadsheet = mTableOfFile.format != QLatin1String("csv");
    const QString path = mPrompts.chooseSaveFile(this, QStringLiteral("保存问题行"),
                                                 rejected_rows::suggestedPath(mPath, spreadsheet),
                                                 QStringLiteral("表格文件 (*.csv *.xlsx)"));
    if (path.isEmpty()) {
        return;
    }
    const QList<table_writer::RefusedRow> rows =
        rejected_rows::of(mOfFile, mTableOfFile, rejected_rows::needDatesForCsv(mTableOfFile, path));
    const QString error = rejected_rows::write(path, mTableOfFile, rows);
    emit said(error.isEmpty() ? QStringLiteral("已把 %1 行问题保存到 %2").arg(rows.size()).arg(path) : error);
}

void ProblemsPanel::show()
{
    mProblems.clear();
    for (const table::Fault& fault : qAsConst(mOfFile)) {
        mProblems.append({fault, Problem::Subject::File});
    }
    for (const table::Fault& fault : qAsConst(mOfBatch)) {
        mProblems.append({fault, Problem::Subject::Batch});
    }
    mTable->filter()->clear(); // it was typed for other problems, and would hide these
    mTable->setEmptyText(mPath.isEmpty() ? QStringLiteral("导入文件后，其中的问题显示在这里")
                                         : QStringLiteral("没有问题"));
    mModel->setRecords(mProblems);
    mTable->fitColumns();
    mSave->setEnabled(namesFileRows());
    showDetail(-1);
    emit countChanged(mProblems.size());
}

void ProblemsPanel::step(int by)
{
    const int count = mProblems.size();
    if (count == 0) {
        emit said(mTable->emptyText());
        return;
    }
    const int current = mTable->currentRow();
    const int next = current < 0 ? (by > 0 ? 0 : count - 1) : (current + by + count) % count;
    mTable->setCurrentRow(next);
    emit said(QStringLiteral("问题 %1 / %2").arg(next + 1).arg(count));
}

void ProblemsPanel::showDetail(int row)
{
    if (row < 0 || row >= mProblems.size()) {
        mDetail->clear();
        return;
    }
    mDetail->setText(detailOf(mProblems.at(row)));
    emit currentChanged(mProblems.at(row));
}

QString ProblemsPanel::detailOf(const Problem& problem) const
{
    const int at = problem.subject == Problem::Subject::File ? rowOf(problem.fault) : -1;
    if (at < 1) {
        return table::sentence(problem.fault).simplified();
    }
    const QStringList& header = mTableOfFile.rows.first();
    const QStringList& row = mTableOfFile.rows.at(at);
    QStringList cells;
    for (int column = 0; column < row.size(); ++column) {
        if (!row.at(column).trimmed().isEmpty()) {
            cells.append(header.value(column) + QLatin1Char('=') + row.at(column).simplified());
        }
    }
    return cells.join(QStringLiteral("  ·  "));
}
