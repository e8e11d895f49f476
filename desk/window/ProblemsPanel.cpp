#include "desk/window/ProblemsPanel.h"

#include "desk/models/ProblemsModel.h"
#include "desk/window/FilteredTable.h"
#include "desk/window/RejectFile.h"
#include "embedded_host/table_reader/TableReader.h"
#include "embedded_host/UserPrompts.h"

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

void ProblemsPanel::begin(const QString& path)
{
    clear();
    mPath = path;
    show();
}

void ProblemsPanel::addOfFile(const QString& boxText)
{
    mOfFile.append(import_problems::fromBoxText(boxText));
    if (namesFileRows() && mFileRows.isEmpty()) {
        readFileRows();
    }
    import_problems::locate(mOfFile, mFileRows);
    show();
}

void ProblemsPanel::showOfBatch(const QString& boxText)
{
    mOfBatch = import_problems::fromBoxText(boxText);
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
    mFileRows.clear();
    mReadError.clear();
    mOfFile.clear();
    mOfBatch.clear();
    show();
}

bool ProblemsPanel::namesFileRows() const
{
    return std::any_of(mOfFile.cbegin(), mOfFile.cend(),
                       [](const Problem& problem) { return problem.place == Problem::Place::FileRow; });
}

void ProblemsPanel::saveRejects()
{
    if (mFileRows.isEmpty()) {
        emit said(mReadError.isEmpty() ? QStringLiteral("没有问题行") : mReadError);
        return;
    }
    const QString path = mPrompts.chooseSaveFile(this, QStringLiteral("保存问题行"),
                                                 reject_file::suggestedPath(mPath, mIsSpreadsheet),
                                                 QStringLiteral("表格文件 (*.csv *.xlsx)"));
    if (path.isEmpty()) {
        return;
    }
    const bool datesForCsv = mIsSpreadsheet && !path.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive);
    const reject_file::Refused refused = reject_file::refusedRows(mProblems, mFileRows, datesForCsv);
    const QString error = table_writer::writeRejects(path, mFileRows.first(), refused.rows);
    const QStringList done = {QStringLiteral("已把 %1 行问题保存到 %2").arg(refused.rows.size()).arg(path),
                              refused.doubt};
    emit said(error.isEmpty() ? done.join(QLatin1Char(' ')).trimmed() : error);
}

void ProblemsPanel::readFileRows()
{
    const table::Table table = table_reader::readTable(mPath);
    mFileRows = table.rows;
    mReadError = table.error;
    mIsSpreadsheet = table.format != QLatin1String("csv");
}

void ProblemsPanel::show()
{
    mProblems = mOfFile + mOfBatch;
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
    if (problem.place != Problem::Place::FileRow || problem.line < 2 || problem.line > mFileRows.size()) {
        return problem.reason.simplified();
    }
    const QStringList& header = mFileRows.first();
    const QStringList& row = mFileRows.at(problem.line - 1);
    QStringList cells;
    for (int column = 0; column < row.size(); ++column) {
        if (!row.at(column).trimmed().isEmpty()) {
            cells.append(header.value(column) + QLatin1Char('=') + row.at(column).simplified());
        }
    }
    return cells.join(QStringLiteral("  ·  "));
}
