#include "desk/window/BatchesPage.h"

#include "desk/window/FilteredTable.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/skin/SkinService.h"
#include "host/ZelMessageBox.h"

#include <QColor>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {

/// The newest ones.
constexpr int MostBatches = 1000;

enum Column { Number, State, Created, File, Account, Strategy, Rows, Buy, Sell, By, Digest };

const QStringList& titles()
{
    static const QStringList texts = {
        QStringLiteral("批次"),   QStringLiteral("状态"),     QStringLiteral("创建时间"),
        QStringLiteral("文件"),   QStringLiteral("账户"),     QStringLiteral("算法"),
        QStringLiteral("行数"),   QStringLiteral("预计买入"), QStringLiteral("预计卖出"),
        QStringLiteral("创建人"), QStringLiteral("SHA-256")};
    return texts;
}

QString undoneLines(const QList<ledger::ChangedInstance>& instances)
{
    QString text;
    for (const ledger::ChangedInstance& instance : instances) {
        text += QStringLiteral("  %1  %2\n")
                    .arg(instance.id.text(), instance.symbols.join(QStringLiteral(" / ")));
    }
    return text;
}

} // namespace

BatchesPage::BatchesPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mHost(host), mBooks(books), mModel(new TextTable(titles(), this)),
      mTable(new FilteredTable(mModel, {QStringLiteral("批次"), QString()}, prompts, this))
{
    mTable->setSingleSelection();
    mModel->setNumeric({Number, Rows, Buy, Sell});
    mModel->setTint([this](int row, int column) { return tintOf(row, column); });
    QPushButton* look = mTable->addButton(QStringLiteral("查看实例"), QStringLiteral("button_instances"));
    QPushButton* compare =
        mTable->addButton(QStringLiteral("与当前导入比较"), QStringLiteral("button_compare"));
    QPushButton* take = mTable->addButton(QStringLiteral("撤销批次"), QStringLiteral("button_undo"));
    mBatchButtons = {look, compare, take};
    auto* column = new QVBoxLayout(this);
    column->addWidget(mTable);

    const auto lookInto = [this] {
        if (const auto batch = selectedBatch()) {
            emit instancesWanted(*batch);
        }
    };
    connect(look, &QPushButton::clicked, this, lookInto);
    connect(mTable->view(), &QTableView::activated, this, lookInto);
    connect(compare, &QPushButton::clicked, this, [this] {
        if (const auto batch = selectedBatch()) {
            emit comparisonWanted(*batch);
        }
    });
    connect(take, &QPushButton::clicked, this, &BatchesPage::undo);
    connect(mTable, &FilteredTable::selectionChanged, this, &BatchesPage::enableButtons);
    connect(mTable, &FilteredTable::said, this, &BatchesPage::said);
    reload();
}

void BatchesPage::reload()
{
    Outcome<QList<ledger::Batch>> batches{{}, mBooks.ledgerError};
    if (mBooks.ledger) {
        batches = mBooks.ledger->batchesBefore(std::nullopt, MostBatches);
    }
    QList<QStringList> rows;
    for (const ledger::Batch& batch : qAsConst(batches.value)) {
        rows.append(rowOf(batch));
    }
    mError = batches.error;
    mTable->setEmptyText(mError.isEmpty() ? QStringLiteral("还没有批次") : mError);
    mModel->setRows(rows);
    mTable->fitColumnsOnce();
    enableButtons();
    if (!mError.isEmpty()) {
        emit said(mError);
    }
}

QStringList BatchesPage::rowOf(const ledger::Batch& batch)
{
    return {QString::number(batch.number),
            ledger::shownName(batch.state),
            batch.createdAt.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")),
            batch.fileName,
            batch.account,
            batch.strategy,
            QString::number(batch.rowCount),
            batch.expectedBuy.shown(2),
            batch.expectedSell.shown(2),
            batch.createdBy,
            batch.fileSha256};
}

QColor BatchesPage::tintOf(int row, int column) const
{
    const bool stands = mModel->rows().at(row).at(State) == ledger::shownName(ledger::BatchState::Created);
    return column == Digest || (column == State && !stands)
               ? mHost.skins().colours().colour(QStringLiteral("muted"))
               : QColor();
}

std::optional<qint64> BatchesPage::selectedBatch() const
{
    const int row = mTable->selectedRow();
    return row < 0 ? std::nullopt : std::optional<qint64>(mModel->rows().at(row).at(Number).toLongLong());
}

void BatchesPage::enableButtons()
{
    const bool chosen = selectedBatch().has_value();
    for (QPushButton* button : qAsConst(mBatchButtons)) {
        button->setEnabled(chosen);
    }
}

void BatchesPage::undo()
{
    const std::optional<qint64> batch = selectedBatch();
    if (!batch || !isUndoWanted()) {
        return;
    }
    const Outcome<ledger::UndoReport> report = mBooks.ledger->undo(*batch);
    reload();
    emit changed();
    if (report.ok()) {
        tellUndone(report.value);
    } else {
        ZelMessageBox(QStringLiteral("未撤销"), report.error, ZelMessageBox::Error, this).showModally();
    }
}

bool BatchesPage::isUndoWanted()
{
    const QStringList& cells = mModel->rows().at(mTable->selectedRow());
    const QString question =
        QStringLiteral("撤销批次 %1？\n文件 %2\n账户 %3，算法 %4，%5 行\n")
            .arg(cells.at(Number), cells.at(File), cells.at(Account), cells.at(Strategy), cells.at(Rows)) +
        QStringLiteral("未启动的实例将被撤回，运行中的将被停止；已完成的不能撤销。");
    ZelMessageBox box(QStringLiteral("撤销批次"), question, ZelMessageBox::Question, this);
    return box.showModally() == QDialog::Accepted;
}

void BatchesPage::tellUndone(const ledger::UndoReport& report)
{
    const QString summary = QStringLiteral("批次 %1：撤回 %2 个，停止 %3 个，未能撤销 %4 个")
                                .arg(report.batch)
                                .arg(report.withdrawn.size())
                                .arg(report.stopped.size())
                                .arg(report.notReversed.size());
    emit said(summary);
    if (!report.notReversed.isEmpty()) {
        const QString text = summary + QStringLiteral("\n\n以下实例已完成，其成交不能撤销：\n") +
                             undoneLines(report.notReversed);
        ZelMessageBox(QStringLiteral("撤销批次"), text, ZelMessageBox::Error, this).showModally();
    }
}
