#include "desk/window/DiffPanel.h"

#include "desk/window/FilteredTable.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/skin/SkinService.h"

#include <QColor>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

namespace {

enum Column { Kind, OldRow, NewRow, Title, Before, After };

const QString Added = QStringLiteral("新增行");
const QString Removed = QStringLiteral("删除行");
const QString Changed = QStringLiteral("修改");

QString cellsText(const QStringList& cells)
{
    QStringList filled;
    for (const QString& cell : cells) {
        if (!cell.isEmpty()) {
            filled.append(cell);
        }
    }
    return filled.join(QStringLiteral("  "));
}

QList<QStringList> linesOf(const ledger::BatchDiff& diff)
{
    QList<QStringList> lines;
    for (const QString& column : diff.columnsAdded) {
        lines.append({QStringLiteral("新增列"), QString(), QString(), column, QString(), QString()});
    }
    for (const QString& column : diff.columnsRemoved) {
        lines.append({QStringLiteral("删除列"), QString(), QString(), column, QString(), QString()});
    }
    for (const ledger::ChangedCell& cell : diff.cellsChanged) {
        lines.append({Changed, QString::number(cell.oldRow), QString::number(cell.newRow), cell.column,
                      cell.before, cell.after});
    }
    for (const ledger::DiffRow& row : diff.rowsRemoved) {
        lines.append(
            {Removed, QString::number(row.row), QString(), QString(), cellsText(row.cells), QString()});
    }
    for (const ledger::DiffRow& row : diff.rowsAdded) {
        lines.append(
            {Added, QString(), QString::number(row.row), QString(), QString(), cellsText(row.cells)});
    }
    return lines;
}

} // namespace

DiffPanel::DiffPanel(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mHost(host),
      mModel(new TextTable({QStringLiteral("变更"), QStringLiteral("原行"), QStringLiteral("现行"),
                            QStringLiteral("列"), QStringLiteral("原值"), QStringLiteral("新值")},
                           this)),
      mTable(new FilteredTable(mModel, {QStringLiteral("变更"), QString()}, prompts, this))
{
    mModel->setNumeric({OldRow, NewRow});
    mModel->setTint([this](int row, int column) { return tintOf(row, column); });
    mTable->view()->horizontalHeader()->setStretchLastSection(true);
    auto* column = new QVBoxLayout(this);
    column->addWidget(mTable);
    clear();
}

void DiffPanel::show(const ledger::BatchDiff& diff)
{
    mModel->setRows(linesOf(diff));
    mTable->filter()->clear();
    mTable->setEmptyText(QStringLiteral("没有变更"));
    mTable->fitColumns();
}

void DiffPanel::clear()
{
    mModel->setRows({});
    mTable->setEmptyText(QStringLiteral("没有可比较的批次"));
}

QColor DiffPanel::tintOf(int row, int column) const
{
    if (column != Kind) {
        return {};
    }
    const QString& kind = mModel->rows().at(row).at(Kind);
    const QString name = kind == Removed ? QStringLiteral("error")
                         : kind == Added ? QStringLiteral("accent")
                                         : QStringLiteral("warning");
    return mHost.skins().colours().colour(name);
}
