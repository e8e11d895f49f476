#include "desk/window/ProblemsPanel.h"

#include "desk/check/RejectedRows.h"
#include "desk/models/ProblemsModel.h"
#include "desk/window/FileFacts.h"
#include "desk/window/FilteredTable.h"
#include "desk/window/ProblemFacets.h"
#include "embedded_host/UserPrompts.h"
#include "table/CellAddress.h"
#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"
#include "words/Language.h"
#include "words/Words.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace {

/// By the places in the file; what is of no line comes last.
bool standsBefore(const Problem& a, const Problem& b)
{
    const auto lineOf = [](const Problem& problem) {
        return problem.fault.line > 0 ? problem.fault.line : std::numeric_limits<int>::max();
    };
    return lineOf(a) != lineOf(b) ? lineOf(a) < lineOf(b) : a.column < b.column;
}

bool isError(const Problem& problem)
{
    return problem.fault.severity == table::Severity::Error;
}

/// What only looks wrong was imported.
bool isRefusal(const Problem& problem)
{
    return isError(problem) && problem.source != Problem::Source::Check;
}

} // namespace

ProblemsPanel::ProblemsPanel(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mPrompts(prompts), mModel(new ProblemsModel(this)),
      mTable(new FilteredTable(mModel, {Words::tr("问题"), QString()}, prompts, this)),
      mFacts(new FileFacts(this)), mFacets(new ProblemFacets(this)), mDetail(new QLabel(this)),
      mSave(mTable->addButton(Words::tr("保存问题行"), QStringLiteral("button_saveRejects"))),
      mLeaveOut(mTable->addButton(Words::tr("排除问题行"), QStringLiteral("button_leaveOut")))
{
    mTable->setColoursOf(host);
    dress();
    listen();
    fill();
}

void ProblemsPanel::dress()
{
    mSave->setToolTip(Words::tr("把有问题的行连同原因另存为文件，改好后可直接再次导入（Ctrl+Shift+S）"));
    mLeaveOut->setToolTip(
        Words::tr("不导入所选问题所在的行；未选多行时为所有有错误的行（Ctrl+Shift+L）。文件网格中可恢复"));
    QHeaderView* header = mTable->view()->horizontalHeader();
    header->setSectionResizeMode(ProblemsModel::Reason, QHeaderView::Stretch);
    mDetail->setTextFormat(Qt::PlainText);
    mDetail->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mDetail->setProperty("role", QStringLiteral("caption"));
    mDetail->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* choice = new QHBoxLayout;
    choice->addWidget(mFacets);
    choice->addWidget(mFacts, 1);
    mTable->addRow(choice);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 4, 0, 0);
    column->setSpacing(4);
    column->addWidget(mTable, 1);
    column->addWidget(mDetail);
}

void ProblemsPanel::listen()
{
    QPushButton* next = mTable->addButton(Words::tr("下一个 F8"), QStringLiteral("button_nextProblem"));
    next->setToolTip(Words::tr("到下一个问题（F8）；Shift+F8 到上一个，Enter 到文件中的单元格"));
    connect(mSave, &QPushButton::clicked, this, &ProblemsPanel::saveRejects);
    connect(mLeaveOut, &QPushButton::clicked, this, &ProblemsPanel::leaveOutFaulty);
    connect(next, &QPushButton::clicked, this, &ProblemsPanel::goToNext);
    connect(mFacets, &ProblemFacets::changed, this, &ProblemsPanel::applyFacets);
    connect(mTable, &FilteredTable::currentRowChanged, this, &ProblemsPanel::showDetail);
    connect(mTable->view(), &QTableView::activated, this, &ProblemsPanel::goToPlace);
    connect(mTable, &FilteredTable::said, this, &ProblemsPanel::said);
}

void ProblemsPanel::begin(const QString& path)
{
    clear();
    mPath = path;
    fill();
}

void ProblemsPanel::setTable(const table::Table& table, const QSet<int>& leftOut)
{
    mTableOfFile = table;
    Problems& aside = mBySource[Problem::Source::SetAside];
    aside.erase(std::remove_if(aside.begin(), aside.end(),
                               [&](const Problem& problem) { return !leftOut.contains(problem.fault.line); }),
                aside.end());
}

void ProblemsPanel::setLinesOfRows(const QList<int>& lines)
{
    mLinesOfRows = lines;
    fill();
}

void ProblemsPanel::show(Problem::Source source, const table::Faults& faults)
{
    mBySource[source].clear();
    append(source, faults);
    fill();
}

void ProblemsPanel::add(Problem::Source source, const table::Faults& faults)
{
    append(source, faults);
    fill();
}

void ProblemsPanel::append(Problem::Source source, const table::Faults& faults)
{
    for (const table::Fault& fault : faults) {
        Problem problem;
        problem.fault = fault;
        problem.source = source;
        mBySource[source].append(problem);
    }
}

void ProblemsPanel::showReport(const FileReport& report)
{
    mReport = report;
    mFacts->showReport(report);
    Problems& found = mBySource[Problem::Source::Check];
    found.clear();
    for (const table_lint::Finding& finding : report.findings) {
        Problem problem;
        problem.fault = finding.fault;
        problem.source = Problem::Source::Check;
        problem.suggestions = finding.suggestions;
        problem.address = finding.address;
        found.append(problem);
    }
    fill();
}

void ProblemsPanel::forgetBatch()
{
    mBySource[Problem::Source::Confirmation].clear();
    mBySource[Problem::Source::Guard].clear();
    fill();
}

void ProblemsPanel::clear()
{
    mPath.clear();
    mTableOfFile = {};
    mLinesOfRows.clear();
    mBySource.clear();
    mLastLine = 0;
    mLastColumn = -1;
    mReport = {};
    mFacts->showReport(mReport);
    fill();
    mFacets->clear();
}

Problems ProblemsPanel::problemsOf(Problem::Source source) const
{
    return mBySource.value(source);
}

bool ProblemsPanel::hasErrors() const
{
    return std::any_of(mProblems.begin(), mProblems.end(), isError);
}

bool ProblemsPanel::namesFileRows() const
{
    return std::any_of(mProblems.cbegin(), mProblems.cend(), [this](const Problem& problem) {
        return isRefusal(problem) && rowOf(problem.fault) > 0;
    });
}

int ProblemsPanel::rowOf(const table::Fault& fault) const
{
    if (fault.line <= 0) {
        return -1;
    }
    // Lines rise, and mostly each is the next one.
    const auto found = std::lower_bound(mTableOfFile.lines.begin(), mTableOfFile.lines.end(), fault.line);
    const bool isThere = found != mTableOfFile.lines.end() && *found == fault.line;
    return isThere ? int(found - mTableOfFile.lines.begin()) : -1;
}

/// With its place in the file and in the dialog's table, as far as these are known.
Problem ProblemsPanel::placed(Problem problem) const
{
    table::Fault& fault = problem.fault;
    if (problem.isOfBatch()) {
        problem.row = fault.row;
        fault.line = fault.line > 0 ? fault.line : mLinesOfRows.value(fault.row - 1);
    } else if (fault.line > 0) {
        problem.row = mLinesOfRows.indexOf(fault.line) + 1;
    }
    const int row = rowOf(fault);
    problem.column = fault.column.isEmpty() ? -1 : mTableOfFile.rows.value(0).indexOf(fault.column);
    if (problem.address.isEmpty() && row >= 0 && problem.column >= 0) {
        problem.address = table::cellAddress(row, problem.column);
    }
    return problem;
}

void ProblemsPanel::saveRejects()
{
    if (!namesFileRows()) {
        emit said(Words::tr("没有问题行"));
        return;
    }
    const bool spreadsheet = mTableOfFile.format != QLatin1String("csv");
    const QString path = mPrompts.chooseSaveFile(this, Words::tr("保存问题行"),
                                                 rejected_rows::suggestedPath(mPath, spreadsheet),
                                                 Words::tr("表格文件 (*.csv *.xlsx)"));
    if (path.isEmpty()) {
        return;
    }
    table::Faults faults;
    for (const Problem& problem : qAsConst(mProblems)) {
        if (isRefusal(problem)) {
            faults.append(problem.fault);
        }
    }
    const QList<table_writer::RefusedRow> rows =
        rejected_rows::of(faults, mTableOfFile, rejected_rows::needDatesForCsv(mTableOfFile, path));
    const QString error = rejected_rows::write(path, mTableOfFile, rows);
    emit said(error.isEmpty() ? Words::tr("已把 %1 行问题保存到 %2").arg(rows.size()).arg(path) : error);
}

QList<int> ProblemsPanel::faultyLines() const
{
    const QList<int> selected = mTable->selectedRows();
    QList<int> lines;
    for (int i = 0; i < mProblems.size(); ++i) {
        const Problem& problem = mProblems.at(i);
        const bool isMeant = selected.size() > 1 ? selected.contains(i) : isError(problem);
        const bool isIn = problem.source != Problem::Source::SetAside && rowOf(problem.fault) > 0;
        if (isMeant && isIn && !lines.contains(problem.fault.line)) {
            lines.append(problem.fault.line);
        }
    }
    return lines;
}

void ProblemsPanel::leaveOutFaulty()
{
    const QList<int> lines = faultyLines();
    if (lines.isEmpty()) {
        emit said(Words::tr("没有可排除的问题行"));
        return;
    }
    for (const Problem& problem : qAsConst(mProblems)) {
        if (problem.source != Problem::Source::SetAside && lines.contains(problem.fault.line)) {
            Problem aside = problem;
            aside.source = Problem::Source::SetAside;
            mBySource[Problem::Source::SetAside].append(aside);
        }
    }
    emit leavingOutWanted(lines);
}

void ProblemsPanel::change(const std::function<void()>& several)
{
    const bool isWithin = mIsChanging;
    mIsChanging = true;
    several();
    mIsChanging = isWithin;
    fill();
}

void ProblemsPanel::fill()
{
    if (mIsChanging) {
        return;
    }
    mProblems.clear();
    const QSet<int> aside = [this] {
        QSet<int> lines;
        for (const Problem& problem : mBySource.value(Problem::Source::SetAside)) {
            lines.insert(problem.fault.line);
        }
        return lines;
    }();
    for (auto found = mBySource.cbegin(); found != mBySource.cend(); ++found) {
        const bool isAside = found.key() == Problem::Source::SetAside;
        for (const Problem& problem : *found) {
            if (isAside || problem.fault.line == 0 || !aside.contains(problem.fault.line)) {
                mProblems.append(placed(problem));
            }
        }
    }
    std::stable_sort(mProblems.begin(), mProblems.end(), standsBefore);
    mTable->filter()->clear(); // it was typed for other problems, and would hide these
    mTable->setEmptyText(mPath.isEmpty() ? Words::tr("导入文件后，其中的问题显示在这里")
                                         : Words::tr("没有问题"));
    mFacets->count(mProblems);
    mModel->setRecords(mProblems);
    applyFacets();
    mTable->fitColumns();
    mSave->setEnabled(namesFileRows());
    mLeaveOut->setEnabled(!faultyLines().isEmpty());
    showDetail(-1);
    emit countChanged(mProblems.size());
}

void ProblemsPanel::applyFacets()
{
    mTable->setChoice(mFacets->isOpen() ? std::function<bool(int)>() : [this](int row) {
        return row < mProblems.size() && mFacets->accepts(mProblems.at(row));
    });
}

/// Where the next problem stands among those shown. The list may be another one than that of the last step:
/// then it goes on behind the place in the file.
int ProblemsPanel::placeAmong(const QList<int>& shown, int by) const
{
    const int count = shown.size();
    const int current = shown.indexOf(mTable->currentRow());
    if (current >= 0) {
        return (current + by + count) % count;
    }
    if (mLastLine == 0) {
        return by > 0 ? 0 : count - 1;
    }
    Problem last;
    last.fault.line = mLastLine;
    last.column = mLastColumn;
    const auto behind = std::find_if(shown.begin(), shown.end(),
                                     [&](int row) { return standsBefore(last, mProblems.at(row)); });
    const int next = int(behind - shown.begin()) % count;
    return by > 0 ? next : (next - 1 + count) % count;
}

void ProblemsPanel::step(int by)
{
    const QList<int> shown = mTable->shownSourceRows();
    if (shown.isEmpty()) {
        emit said(mProblems.isEmpty() ? mTable->emptyText() : Words::tr("没有符合筛选的问题"));
        return;
    }
    const int place = placeAmong(shown, by);
    mTable->setCurrentRow(shown.at(place));
    const Problem& problem = mProblems.at(shown.at(place));
    emit said(Words::tr("问题 %1 / %2：%3")
                  .arg(QString::number(place + 1), QString::number(shown.size()),
                       words::sentence(problem.fault).simplified()));
}

void ProblemsPanel::goToPlace()
{
    const int row = mTable->currentRow();
    if (row >= 0 && row < mProblems.size()) {
        emit placeWanted(mProblems.at(row));
    }
}

void ProblemsPanel::showDetail(int row)
{
    if (row < 0 || row >= mProblems.size()) {
        mDetail->clear();
        return;
    }
    const Problem& problem = mProblems.at(row);
    mLastLine = problem.fault.line;
    mLastColumn = problem.column;
    mDetail->setText(detailOf(problem));
    emit currentChanged(problem);
}

QString ProblemsPanel::detailOf(const Problem& problem) const
{
    const int at = rowOf(problem.fault);
    if (at < 1) {
        return words::sentence(problem.fault).simplified();
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
