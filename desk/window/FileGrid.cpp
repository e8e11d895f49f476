#include "desk/window/FileGrid.h"

#include "desk/check/ClipboardCells.h"
#include "desk/window/FileGridModel.h"
#include "desk/window/ReplaceDialog.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/skin/SkinService.h"
#include "words/Words.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int WidestColumn = 220;

} // namespace

FileGrid::FileGrid(EmbeddedHost& host, QWidget* parent)
    : QWidget(parent),
      mModel(new FileGridModel([&host](const QString& name) { return host.skins().colours().colour(name); },
                               this)),
      mView(new QTableView(this)), mState(new QLabel(this))
{
    mView->setModel(mModel);
    mView->setObjectName(QStringLiteral("table_file"));
    mView->setAccessibleName(Words::tr("文件"));
    mView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    mView->setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::DoubleClicked);
    mView->setTabKeyNavigation(false);
    mView->setWordWrap(false);
    mView->verticalHeader()->setDefaultSectionSize(mView->fontMetrics().height() + 8);
    mState->setObjectName(QStringLiteral("label_edits"));
    mState->setProperty("role", QStringLiteral("caption"));
    // Of the view alone: in a cell's editor these keys are the editor's.
    const auto onKey = [this](const QKeySequence& key, void (FileGrid::*act)()) {
        connect(new QShortcut(key, mView, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
                act);
    };
    onKey(QKeySequence::Delete, &FileGrid::clearCells);
    onKey(QKeySequence::Copy, &FileGrid::copySelection);
    auto* tools = new QHBoxLayout;
    tools->setSpacing(6);
    makeTools(tools);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(9, 6, 9, 6);
    column->setSpacing(4);
    column->addLayout(tools);
    column->addWidget(mView, 1);
    connect(mView->selectionModel(), &QItemSelectionModel::currentChanged, this, &FileGrid::sayCell);
    connect(mModel, &FileGridModel::edited, this, &FileGrid::showState);
    connect(mModel, &FileGridModel::edited, this, &FileGrid::edited);
    showState();
}

void FileGrid::makeTools(QHBoxLayout* row)
{
    row->addWidget(mState, 1);
    mUndo = makeButton(Words::tr("撤销"), "button_undoEdit", Words::tr("撤销上一处修改（Ctrl+Z）"));
    mRedo = makeButton(Words::tr("重做"), "button_redoEdit", Words::tr("重做撤销的修改（Ctrl+Shift+Z）"));
    QPushButton* rows = makeButton(Words::tr("排除/恢复行"), "button_toggleRows",
                                   Words::tr("所选行不导入，或恢复导入（Ctrl+-）"));
    QPushButton* replace = makeButton(Words::tr("全列替换…"), "button_replace",
                                      Words::tr("把当前列中的一个值全部改为另一个（Ctrl+H）"));
    QPushButton* put = makeButton(Words::tr("粘贴"), "button_paste",
                                  Words::tr("从当前单元格起粘贴；超出最后一行的成为新行（Ctrl+V）"));
    connect(mUndo, &QPushButton::clicked, this, &FileGrid::undo);
    connect(mRedo, &QPushButton::clicked, this, &FileGrid::redo);
    connect(rows, &QPushButton::clicked, this, &FileGrid::toggleRows);
    connect(replace, &QPushButton::clicked, this, &FileGrid::replaceInColumn);
    connect(put, &QPushButton::clicked, this, &FileGrid::paste);
    mEditing = {rows, replace, put};
    for (QPushButton* button : {mUndo, mRedo, rows, replace, put}) {
        row->addWidget(button);
    }
}

QPushButton* FileGrid::makeButton(const QString& text, const char* name, const QString& tip)
{
    auto* button = new QPushButton(text, this);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(tip);
    return button;
}

const working_copy::WorkingCopy& FileGrid::copy() const
{
    return mModel->copy();
}

void FileGrid::begin(const working_copy::WorkingCopy& copy)
{
    mModel->setCopy(copy);
    mView->resizeColumnsToContents();
    for (int column = 0; column < mModel->columnCount(); ++column) {
        mView->setColumnWidth(column, qMin(mView->columnWidth(column) + 8, WidestColumn));
    }
    showState();
}

void FileGrid::setProblems(const Problems& problems)
{
    mModel->setProblems(problems);
}

void FileGrid::setEditable(bool editable)
{
    mModel->setEditable(editable);
    showState();
}

bool FileGrid::isTyping() const
{
    return mView->isPersistentEditorOpen(mView->currentIndex());
}

bool FileGrid::showCell(int line, int column)
{
    const int row = copy().rowOfLine(line);
    if (row < 0) {
        return false;
    }
    const QModelIndex cell = mModel->index(row, qMax(0, column));
    mView->setCurrentIndex(cell);
    mView->scrollTo(cell);
    return true;
}

void FileGrid::undo()
{
    mModel->edit([](working_copy::WorkingCopy& copy) {
        const bool can = copy.canUndo();
        copy.undo();
        return can;
    });
}

void FileGrid::redo()
{
    mModel->edit([](working_copy::WorkingCopy& copy) {
        const bool can = copy.canRedo();
        copy.redo();
        return can;
    });
}

void FileGrid::copySelection()
{
    if (!mView->selectionModel()->hasSelection()) {
        return;
    }
    const auto area = selectedArea();
    QList<QStringList> cells;
    for (int row = area.first.first; row <= area.second.first; ++row) {
        QStringList texts;
        for (int column = area.first.second; column <= area.second.second; ++column) {
            texts.append(mModel->index(row, column).data(Qt::EditRole).toString());
        }
        cells.append(texts);
    }
    QApplication::clipboard()->setText(clipboard_cells::textOf(cells));
    emit said(Words::tr("已复制 %1 行").arg(cells.size()));
}

void FileGrid::paste()
{
    const QList<QStringList> cells = clipboard_cells::cellsOf(QApplication::clipboard()->text());
    const int line = currentLine();
    if (line == 0 || cells.isEmpty()) {
        emit said(line == 0 ? Words::tr("先选择从哪个单元格起粘贴") : Words::tr("剪贴板中没有文字"));
        return;
    }
    const int column = mView->currentIndex().column();
    const bool done =
        mModel->edit([&](working_copy::WorkingCopy& copy) { return copy.paste(line, column, cells); });
    emit said(done ? Words::tr("已粘贴 %1 行").arg(cells.size()) : Words::tr("粘贴没有改变任何内容"));
}

void FileGrid::clearCells()
{
    if (!mView->selectionModel()->hasSelection()) {
        return;
    }
    const auto area = selectedArea();
    const QStringList blanks =
        QVector<QString>(area.second.second - area.first.second + 1, QString()).toList();
    QList<QStringList> cells;
    for (int row = area.first.first; row <= area.second.first; ++row) {
        cells.append(blanks);
    }
    const int line = copy().rows().at(area.first.first).line;
    mModel->edit([&](working_copy::WorkingCopy& copy) { return copy.paste(line, area.first.second, cells); });
}

void FileGrid::toggleRows()
{
    const QList<int> lines = selectedLines();
    const bool allOut = std::all_of(lines.begin(), lines.end(), [this](int line) {
        return copy().rows().at(copy().rowOfLine(line)).isLeftOut;
    });
    if (lines.isEmpty()) {
        emit said(Words::tr("先选择要排除的行"));
    } else if (allOut) {
        mModel->edit([&](working_copy::WorkingCopy& copy) { return copy.takeIn(lines); });
        emit said(Words::tr("已恢复 %1 行").arg(lines.size()));
    } else {
        leaveOut(lines);
    }
}

void FileGrid::leaveOut(const QList<int>& lines)
{
    mModel->edit([&](working_copy::WorkingCopy& copy) { return copy.leaveOut(lines); });
    emit said(Words::tr("已排除 %1 行，Ctrl+Z 恢复").arg(lines.size()));
}

void FileGrid::replaceInColumn()
{
    const QModelIndex current = mView->currentIndex();
    if (!current.isValid() || !mModel->isEditable()) {
        emit said(Words::tr("先选择一列中的单元格"));
        return;
    }
    const int column = current.column();
    QMap<QString, int> values;
    for (const working_copy::Row& row : copy().rows().mid(1)) {
        if (!row.isLeftOut && column < row.cells.size()) {
            ++values[row.cells.at(column)];
        }
    }
    ReplaceDialog dialog(copy().titles().value(column), values, current.data(Qt::EditRole).toString(), this);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    int replaced = 0;
    mModel->edit([&](working_copy::WorkingCopy& copy) {
        replaced = copy.replaceInColumn(column, dialog.before(), dialog.after());
        return replaced > 0;
    });
    emit said(Words::tr("已替换 %1 行").arg(replaced));
}

void FileGrid::sayCell()
{
    const QModelIndex current = mView->currentIndex();
    if (!current.isValid()) {
        return;
    }
    const QString reasons = mModel->reasonsAt(current).replace(QLatin1Char('\n'), Words::tr("；"));
    const QString column = copy().titles().value(current.column());
    const QString place = Words::tr("文件第 %1 行 %2").arg(currentLine()).arg(column);
    emit said(reasons.isEmpty() ? place : Words::tr("%1：%2").arg(place, reasons));
}

void FileGrid::showState()
{
    const auto& rows = copy().rows();
    const int out = int(
        std::count_if(rows.begin(), rows.end(), [](const working_copy::Row& row) { return row.isLeftOut; }));
    const int edits = copy().edits().size();
    mState->setText(edits == 0 ? (rows.isEmpty() ? QString() : Words::tr("未修改，原文件不会被写入"))
                               : Words::tr("已修改 %1 处，排除 %2 行；原文件不变").arg(edits).arg(out));
    mUndo->setEnabled(mModel->isEditable() && copy().canUndo());
    mRedo->setEnabled(mModel->isEditable() && copy().canRedo());
    for (QPushButton* button : qAsConst(mEditing)) {
        button->setEnabled(mModel->isEditable() && !rows.isEmpty());
    }
}

int FileGrid::currentLine() const
{
    const QModelIndex current = mView->currentIndex();
    return current.isValid() ? copy().rows().value(current.row()).line : 0;
}

QList<int> FileGrid::selectedLines() const
{
    QList<int> lines;
    if (mView->selectionModel()->hasSelection()) {
        for (const QItemSelectionRange& range : mView->selectionModel()->selection()) {
            for (int row = qMax(1, range.top()); row <= range.bottom(); ++row) {
                lines.append(copy().rows().at(row).line);
            }
        }
    }
    return lines;
}

/// The corners of all that is selected.
QPair<table::Cell, table::Cell> FileGrid::selectedArea() const
{
    QRect area;
    for (const QItemSelectionRange& range : mView->selectionModel()->selection()) {
        area |= QRect(QPoint(range.left(), range.top()), QPoint(range.right(), range.bottom()));
    }
    return {{area.top(), area.left()}, {area.bottom(), area.right()}};
}
